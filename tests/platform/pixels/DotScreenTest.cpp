// The shading of photos that have been dragged.
#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

#include "platform/pixels/DotScreen.h"
#include "platform/pixels/Picture.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

// Blue, green, red of a pixel as one number, 0xRRGGBB.
int PixelOf(const Bitmap& bitmap, int x, int y) {
  const std::uint8_t* pixel = bitmap.Row(y) + x * bitmap.BytesPerPixel();
  return pixel[2] << 16 | pixel[1] << 8 | pixel[0];
}

TEST(DotScreenTest, TheDotScreenKeepsOnePixelInFourTheLastRowAndColumnIncluded) {
  for (const auto& [width, height] : std::vector<std::pair<int, int>>{{1, 1}, {2, 2}, {5, 4}, {4, 5}}) {
    Bitmap bitmap = PlainBitmap(width, height, 0x00FFFFFF);
    DotScreen(bitmap);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        EXPECT_EQ(PixelOf(bitmap, x, y), x % 2 == 1 && y % 2 == 1 ? 0xFFFFFF : 0) << x << "," << y;
      }
    }
  }
}

TEST(DotScreenTest, TheDotScreensBlackIsOpaque) {
  Bitmap bitmap(3, 3, PixelFormat::Bgra32);
  for (int y = 0; y < 3; ++y) std::fill(bitmap.Row(y), bitmap.Row(y) + 12, std::uint8_t{100});
  DotScreen(bitmap);
  EXPECT_EQ(bitmap.Row(0)[3], 255);
  EXPECT_EQ(bitmap.Row(0)[0], 0);
  EXPECT_EQ(bitmap.Row(1)[4], 100);
  EXPECT_EQ(bitmap.Row(1)[7], 100);
}

TEST(DotScreenTest, APictureIsKnownByItsDots) {
  Bitmap bitmap = PlainBitmap(80, 60, 0x00FFFFFF);
  EXPECT_FALSE(IsDotScreened(bitmap));
  DotScreen(bitmap);
  EXPECT_TRUE(IsDotScreened(bitmap));
  bitmap.Row(59)[3 * 78 + 1] = 1;
  EXPECT_FALSE(IsDotScreened(bitmap));
}

TEST(DotScreenTest, TheDotsOfAFinerPictureAreAsLargeAsThoseOfTheOther) {
  for (const int fineness : {1, 2, 3}) {
    Bitmap bitmap = PlainBitmap(6 * fineness, 4 * fineness, 0x00FFFFFF);
    DotScreenAs(bitmap, {6, 4});
    for (int y = 0; y < bitmap.Height(); ++y) {
      for (int x = 0; x < bitmap.Width(); ++x) {
        const bool dot = x / fineness % 2 == 1 && y / fineness % 2 == 1;
        EXPECT_EQ(PixelOf(bitmap, x, y), dot ? 0xFFFFFF : 0) << fineness << ": " << x << "," << y;
      }
    }
  }
}

TEST(DotScreenTest, DotsBetweenPixelsKeepTheirLight) {
  for (const auto& [width, height] : std::vector<std::pair<int, int>>{{100, 75}, {120, 90}, {140, 105}, {93, 70}}) {
    Bitmap bitmap = PlainBitmap(width, height, 0x00FFFFFF);
    DotScreenAs(bitmap, {80, 60});
    double light = 0;
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) light += PixelOf(bitmap, x, y) & 0xFF;
    }
    EXPECT_NEAR(light / 255 / width / height, 0.25, 0.003) << width;
    EXPECT_EQ(PixelOf(bitmap, 0, 0), 0);
    EXPECT_EQ(PixelOf(bitmap, width - 1, height - 1), 0xFFFFFF);
  }
}

}  // namespace
}  // namespace pixorra
