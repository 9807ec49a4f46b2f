// Where photos of several shapes lie on a canvas, in numbers.
#include <gtest/gtest.h>

#include "platform/pixels/Fit.h"

namespace pixorra {
namespace {

void ExpectRect(const FittedRect& rect, double x, double y, double width, double height) {
  EXPECT_FALSE(rect.Fills);
  EXPECT_DOUBLE_EQ(rect.X, x);
  EXPECT_DOUBLE_EQ(rect.Y, y);
  EXPECT_DOUBLE_EQ(rect.Width, width);
  EXPECT_DOUBLE_EQ(rect.Height, height);
}

void ExpectWhole(const FittedRect& rect, double width, double height) {
  EXPECT_TRUE(rect.Fills);
  EXPECT_DOUBLE_EQ(rect.X, 0);
  EXPECT_DOUBLE_EQ(rect.Y, 0);
  EXPECT_DOUBLE_EQ(rect.Width, width);
  EXPECT_DOUBLE_EQ(rect.Height, height);
}

TEST(Fit, APhotoOfTheCanvasesShapeFillsIt) {
  ExpectWhole(Fit(800, 600, 1600, 1200), 800, 600);
}

TEST(Fit, AThreeToTwoPhotoIsSqueezedIntoFourToThree) {
  ExpectWhole(Fit(800, 600, 1536, 1024), 800, 600);
}

TEST(Fit, AWidePhotoHasBarsAboveAndBelow) {
  ExpectRect(Fit(800, 600, 1920, 1080), 0, 75, 800, 450);
}

TEST(Fit, APortraitPhotoHasBarsLeftAndRight) {
  ExpectRect(Fit(800, 600, 1200, 1600), 175, 0, 450, 600);
}

TEST(Fit, ADifferenceOfExactlyOneFifthGetsBarsOnEitherSide) {
  EXPECT_FALSE(Fit(800, 600, 2300, 1500).Fills);
  EXPECT_FALSE(Fit(800, 600, 1700, 1500).Fills);
  EXPECT_FALSE(Fit(100, 100, 120, 100).Fills);
  EXPECT_FALSE(Fit(100, 100, 80, 100).Fills);
}

TEST(Fit, ADifferenceJustBelowOneFifthFills) {
  EXPECT_TRUE(Fit(800, 600, 2299, 1500).Fills);
  EXPECT_TRUE(Fit(800, 600, 1701, 1500).Fills);
  EXPECT_FALSE(Fit(800, 600, 2301, 1500).Fills);
  EXPECT_FALSE(Fit(800, 600, 1699, 1500).Fills);
}

TEST(Fit, TheLargestPhotosDoNotOverflow) {
  ExpectRect(Fit(800, 600, 16777215, 1), 0, (600 - 800.0 / 16777215) / 2, 800, 800.0 / 16777215);
  EXPECT_TRUE(Fit(32767, 32767, 65535, 65535).Fills);
}

TEST(Fit, ACanvasWithoutHeightIsADivisionByZero) {
  try {
    Fit(80, 0, 4, 3);
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.Number(), 11);
  }
}

}  // namespace
}  // namespace pixorra
