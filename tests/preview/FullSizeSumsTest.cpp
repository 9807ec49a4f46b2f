// How large the window of a photo at full size is.
#include <gtest/gtest.h>

#include "preview/FullSizeSums.h"

namespace pixorra {
namespace {

constexpr Screen Usual{1280 * 15, 1024 * 15, 15, 15};

TEST(FullSizeSums, TheNaturalWindowHasAllPixelsAndAFrame) {
  EXPECT_EQ(NaturalWindow({640, 480}, Usual), (WindowSize{9660, 7570}));
  EXPECT_EQ(NaturalWindow({640, 480}, {19200, 15360, 12, 20}), (WindowSize{640 * 12 + 60, 480 * 20 + 370}));
  EXPECT_EQ(PaintedIn({9660, 7570}), (PixelSize{640, 480}));
}

TEST(FullSizeSums, APhotoUpTo80PixelsWideOr60HighIsTooSmall) {
  EXPECT_TRUE(IsTooSmallToShow({80, 400}));
  EXPECT_TRUE(IsTooSmallToShow({400, 60}));
  EXPECT_FALSE(IsTooSmallToShow({81, 61}));
  EXPECT_EQ(PaintedAtFullSize({80, 400}, Usual), PixelSize());
  EXPECT_EQ(PaintedAtFullSize({400, 60}, Usual), PixelSize());
  EXPECT_EQ(PaintedAtFullSize({81, 61}, Usual), (PixelSize{81, 61}));
}

TEST(FullSizeSums, ALargePhotoIsLimitedByTheSideThatIsLongerThanTheScreens) {
  EXPECT_EQ(LimitedWindow({3000, 2000}, Usual), (WindowSize{19080, 12720}));
  EXPECT_EQ(LimitedWindow({2000, 3000}, Usual), (WindowSize{10160, 15240}));
}

// 52,917 + 370 hundredths of a millimetre through 15,360 twips is more than 66,146 through 19,200.
TEST(FullSizeSums, TheFramesHeightDecidesBetweenSidesThatAreNearlyEqual) {
  EXPECT_EQ(LimitedWindow({2500, 2000}, Usual), (WindowSize{19050, 15240}));
  EXPECT_EQ(LimitedWindow({2530, 2000}, Usual).Width, 19080) << "a little wider, it is limited by its width";
  EXPECT_EQ(LimitedWindow({2515, 2000}, Usual).Height, 15240);
}

TEST(FullSizeSums, APhotoThatIsLargeOneWayOnlyIsLimitedByItsShape) {
  EXPECT_EQ(LimitedWindow({1300, 400}, Usual), (WindowSize{19080, 5871}));
  EXPECT_EQ(LimitedWindow({400, 1100}, Usual), (WindowSize{5542, 15240}));
}

// Its window has its shape, and the frame is taken from that.
TEST(FullSizeSums, ALimitedPhotoIsPaintedInsideTheFrame) {
  EXPECT_EQ(PaintedAtFullSize({3000, 2000}, Usual), (PixelSize{1268, 823}));
  EXPECT_EQ(PaintedAtFullSize({1276, 999}, Usual), (PixelSize{1276, 999}));
  EXPECT_EQ(PaintedAtFullSize({1277, 999}, Usual).Width, 1268);
  EXPECT_EQ(PaintedAtFullSize({30000, 100}, Usual), (PixelSize{1268, 61})) << "no window is lower";
}

}  // namespace
}  // namespace pixorra
