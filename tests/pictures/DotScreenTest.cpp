// The shading of photos that have been dragged.
#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

#include "pictures/DotScreen.h"
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

}  // namespace
}  // namespace pixorra
