// Text on bitmaps.
#include <gtest/gtest.h>

#include "platform/qt/QtText.h"

namespace pixorra {
namespace {

int Inked(const Bitmap& bitmap) {
  int count = 0;
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) count += bitmap.Row(y)[x * bitmap.BytesPerPixel()] != 0xFF ? 1 : 0;
  }
  return count;
}

TEST(TextDrawingTest, ExtentGrowsWithTextSizeAndLines) {
  QtText text;
  const Font small{"", 8, false};
  const TextExtent one = text.Measure(small, "Photo");
  EXPECT_GT(text.Measure(small, "Photo album").Width, one.Width);
  EXPECT_GT(text.Measure({"", 16, false}, "Photo").Width, one.Width * 1.5);
  EXPECT_DOUBLE_EQ(text.Measure(small, "Photo\r\nPhoto").Height, one.Height * 2);
  EXPECT_DOUBLE_EQ(text.Measure(small, "Photo\r\nPh").Width, one.Width);
  EXPECT_DOUBLE_EQ(text.Measure(small, "").Width, 0);
}

TEST(TextDrawingTest, TwelvePointsAreSixteenPixels) {
  QtText text;
  const double height = text.Measure({"", 12, false}, "X").Height;
  EXPECT_GE(height, 16);
  EXPECT_LE(height, 24);
}

TEST(TextDrawingTest, TextIsDrawnInsideItsBox) {
  QtText text;
  for (const PixelFormat format : {PixelFormat::Bgr24, PixelFormat::Bgra32}) {
    Bitmap bitmap(200, 60, format);
    bitmap.Fill(0xFFFFFF);
    const Font font{"", 12, true};
    const TextExtent extent = text.Measure(font, "Hg");
    text.Draw(bitmap, font, 50, 20, "Hg", 0x000000);
    EXPECT_GT(Inked(bitmap), 20);
    for (int y = 0; y < bitmap.Height(); ++y) {
      for (int x = 0; x < bitmap.Width(); ++x) {
        const bool inside = x >= 49 && x <= 51 + extent.Width && y >= 19 && y <= 21 + extent.Height;
        if (inside) continue;
        ASSERT_EQ(bitmap.Row(y)[x * bitmap.BytesPerPixel()], 0xFF) << x << " " << y;
      }
    }
  }
}

}  // namespace
}  // namespace pixorra
