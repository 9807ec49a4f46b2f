// The layout's sums, by numbers worked out by hand.
#include <gtest/gtest.h>

#include "app/LayoutSums.h"

namespace pixorra {
namespace {

void ExpectPreview(double windowWidth, double windowHeight, double width, double height) {
  const PreviewSize size = FitPreview(windowWidth, windowHeight);
  EXPECT_NEAR(size.Width, width, 1e-9) << windowWidth << " x " << windowHeight;
  EXPECT_NEAR(size.Height, height, 1e-9) << windowWidth << " x " << windowHeight;
}

TEST(FitPreview, TakesTheWidthThatTheWindowLeaves) {
  ExpectPreview(782, 606, 245, 183.75);
  ExpectPreview(800, 640, 263, 197.25);
  ExpectPreview(782, 2000, 245, 183.75);
}

TEST(FitPreview, IsNarrowerWhereTheHeightWouldNotDo) {
  ExpectPreview(850, 620, 264, 198);
  ExpectPreview(1280, 606, 184 * 80 / 60.0, 184);
}

TEST(FitPreview, IsAtMost350Wide) {
  ExpectPreview(887, 1000, 350, 262.5);
  ExpectPreview(888, 1000, 350, 262.5);
  ExpectPreview(1280, 960, 350, 262.5);
  ExpectPreview(886, 1000, 349, 261.75);
}

TEST(ButtonGap, IsASeventhOfWhatTheModeFrameLeavesRoundedToTheNearer) {
  EXPECT_EQ(ButtonGap(488, 177), 44);  // 44.43
  EXPECT_EQ(ButtonGap(537, 177), 51);  // 51.43
  EXPECT_EQ(ButtonGap(541, 177), 52);
  EXPECT_EQ(ButtonGap(538, 177), 52);  // 51.57
}

TEST(ButtonGap, IsAtMost55) {
  EXPECT_EQ(ButtonGap(562, 177), 55);
  EXPECT_EQ(ButtonGap(566, 177), 55);  // 55.57
  EXPECT_EQ(ButtonGap(881, 177), 55);
}

TEST(OpenFolderColumns, FollowTheRoomRoundedToTheNearerAndAreFourAtMost) {
  EXPECT_EQ(OpenFolderColumns(782, 97), 2);   // 1.92
  EXPECT_EQ(OpenFolderColumns(838, 97), 2);   // 2.49
  EXPECT_EQ(OpenFolderColumns(839, 97), 3);   // 2.51
  EXPECT_EQ(OpenFolderColumns(935, 97), 3);   // 3.49
  EXPECT_EQ(OpenFolderColumns(936, 97), 4);   // 3.51
  EXPECT_EQ(OpenFolderColumns(1081, 97), 4);  // 5
  EXPECT_EQ(OpenFolderColumns(3840, 97), 4);
}

TEST(OpenFolderColumns, SendAnExactHalfToTheEvenNeighbour) {
  EXPECT_EQ(OpenFolderColumns(596 + 150, 100), 2);  // 1.5
  EXPECT_EQ(OpenFolderColumns(596 + 250, 100), 2);  // 2.5
  EXPECT_EQ(OpenFolderColumns(596 + 350, 100), 4);  // 3.5
}

TEST(BandHeight, IsThePreviewsHeightAndAtLeast184) {
  EXPECT_EQ(BandHeight(0), 184);
  EXPECT_EQ(BandHeight(184), 184);
  EXPECT_EQ(BandHeight(185), 185);
  EXPECT_EQ(BandHeight(262), 262);
}

}  // namespace
}  // namespace pixorra
