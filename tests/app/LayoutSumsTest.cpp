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

// The places that the window's definition gives, as far as sums use them.
LayoutPlaces Defined() {
  LayoutPlaces places;
  places.PicPreview = {8, 0, 249, 185};
  places.SrcThumbsWindow = {272, 16, 489, 109};
  places.SrcScrollbar = {272, 124, 489, 17};
  places.SrcPicsTotal = places.SrcPicsCount = {0, 0, 73, 17};
  places.SrcFolderPath = {352, 0, 332, 16};
  places.FilmStripModeFrame = {584, 145, 177, 33};
  places.Buttons.fill({272, 145, 36, 36});
  places.DesktopImage = {8, 192, 528, 360};
  places.DestThumbsWindow = {546, 205, 198, 348};
  places.DestScrollbar = {744, 205, 17, 348};
  places.DestContentsLabel = {544, 189, 193, 17};
  places.DestCountLabel = {736, 189, 33, 17};
  return places;
}

LayoutWindow Window(double width, double height) {
  return {.Width = width,
          .WidthByY = width,
          .Height = height,
          .ScaleHeight = static_cast<int>(height) - 47,
          .CellWidth = 97};
}

TEST(PlacesIn, TheSmallestWindow) {
  const LayoutPlaces places = PlacesIn(Window(782, 606), Defined());
  EXPECT_EQ(places.PicPreview, (Rect{8, 0, 245, 184}));
  EXPECT_EQ(places.SrcBackShape, (Rect{253, 0, 529, 184}));
  EXPECT_EQ(places.SrcThumbsWindow, (Rect{272, 15, 488, 109}));
  EXPECT_EQ(places.SrcScrollbar, (Rect{272, 124, 488, 17}));
  EXPECT_EQ(places.SrcPicsTotal, (Rect{272, -1, 73, 17}));
  EXPECT_EQ(places.SrcFolderPath, (Rect{350, -1, 332, 16}));
  EXPECT_EQ(places.SrcPicsCount, (Rect{687, -1, 73, 17}));
  EXPECT_EQ(places.FilmStripModeFrame, (Rect{583, 144, 177, 33}));
  EXPECT_EQ(places.Buttons[0], (Rect{272, 145, 36, 36}));
  EXPECT_EQ(places.Buttons[6], (Rect{536, 143, 36, 36}));
  EXPECT_EQ(places.DestColumns, 2);
  EXPECT_EQ(places.DesktopImage, (Rect{8, 192, 534, 360}));
  EXPECT_EQ(places.DestThumbsWindow, (Rect{549, 205, 198, 347}));
  EXPECT_EQ(places.DestScrollbar, (Rect{747, 205, 17, 347}));
  EXPECT_EQ(places.DestContentsLabel, (Rect{549, 187, 198, 17}));
  EXPECT_EQ(places.DestCountLabel, (Rect{739, 187, 33, 17}));
  EXPECT_EQ(places.DestBackShapes,
            (std::array<Rect, 4>{{{6, 190, 538, 2}, {6, 552, 538, 2}, {6, 190, 2, 364}, {542, 190, 2, 364}}}));
}

TEST(PlacesIn, TheCompanyIsNamedInABandOf210OverTheStrip) {
  EXPECT_FALSE(PlacesIn(Window(816, 632), Defined()).CompanyNameShown);
  const LayoutPlaces places = PlacesIn(Window(817, 632), Defined());
  EXPECT_TRUE(places.CompanyNameShown);
  EXPECT_EQ(places.CompanyNameLabel, (Rect{288, 0, 529, 24}));
}

TEST(PlacesIn, ASideThatWouldBeLessThanNothingStaysAsItWas) {
  const LayoutPlaces places = PlacesIn(Window(500, 606), Defined());
  EXPECT_EQ(places.PicPreview, (Rect{8, 0, 249, 185}));
  EXPECT_EQ(places.SrcBackShape, (Rect{257, 0, 243, 185}));
  EXPECT_EQ(places.SrcFolderPath.Width, 202 - 73 - 73 - 10);
  const LayoutPlaces narrower = PlacesIn(Window(300, 606), Defined());
  EXPECT_EQ(narrower.SrcThumbsWindow.Width, 2);
  EXPECT_EQ(narrower.SrcFolderPath.Width, 332);
}

TEST(PlacesIn, TheStripCountsByTheTwipsOfTheYDirection) {
  LayoutWindow window = Window(782, 606);
  window.WidthByY = 800;
  const LayoutPlaces places = PlacesIn(window, Defined());
  EXPECT_EQ(places.SrcBackShape.Right(), 800);
  EXPECT_EQ(places.PicPreview.Width, 245);
  EXPECT_EQ(places.DesktopImage.Width, 534);
}

TEST(PlacesIn, PlacesThatAreRightStayAsTheyAre) {
  const LayoutPlaces once = PlacesIn(Window(1280, 960), Defined());
  EXPECT_TRUE(PlacesIn(Window(1280, 960), once) == once);
}

TEST(PlaceOfCaption, IsTheMiddleOfThePreviewsLowerEdge) {
  const CaptionPlace place = PlaceOfCaption({8, 0, 264, 198}, 75, 13);
  EXPECT_EQ(place.Left, 8 + 94.5);
  EXPECT_EQ(place.Top, 183);
}

}  // namespace
}  // namespace pixorra
