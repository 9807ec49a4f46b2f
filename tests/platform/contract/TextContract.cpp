// How large texts are: the same rules on every back end, whatever its fonts.
#include <algorithm>
#include <gtest/gtest.h>

#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

class TextContract : public ContractTest {
 protected:
  TextDrawing& text = platform->GetText();
};

TEST_F(TextContract, LineIsFromItsFontsSizeToOneAndAHalfOfItHigh) {
  for (const double size : {6.0, 8.25, 9.0, 10.0, 12.0, 14.0, 24.0, 36.0}) {
    for (const bool bold : {false, true}) {
      SCOPED_TRACE(size);
      const double pixels = size * 96 / 72;
      const double height = text.Measure(Font{"", size, bold}, "Photo").Height;
      EXPECT_GE(height, pixels);
      EXPECT_LE(height, pixels * 1.5);
    }
  }
}

TEST_F(TextContract, HeightOfALineIsTheSameForAllTexts) {
  const Font font;
  const double height = text.Measure(font, "Photo").Height;
  for (const char* line : {"", ".", "ÄÖÜ", "gjpqy", "WWWWWWWWWW"}) EXPECT_EQ(text.Measure(font, line).Height, height);
}

TEST_F(TextContract, EachLineEndIsOneMoreLine) {
  const Font font;
  const double line = text.Measure(font, "Photo").Height;
  for (const char* two : {"Photo\r\nPh", "Photo\nPh", "Photo\rPh", "Photo\r\n", "\n"}) {
    EXPECT_DOUBLE_EQ(text.Measure(font, two).Height, 2 * line);
  }
  EXPECT_DOUBLE_EQ(text.Measure(font, "a\r\n\r\nb").Height, 3 * line);
  EXPECT_DOUBLE_EQ(text.Measure(font, "Ph\r\nPhoto").Width, text.Measure(font, "Photo").Width);
}

TEST_F(TextContract, EachHalfPointOfASmallFontMeasuresMore) {
  const std::string line = "A line that is long enough";
  const double whole = text.Measure(Font{"", 24, false}, line).Width;
  for (double size = 2; size < 6; size += 0.5) {
    SCOPED_TRACE(size);
    const double width = text.Measure(Font{"", size, false}, line).Width;
    EXPECT_NEAR(width / whole, size / 24, 0.01);
    EXPECT_GT(text.Measure(Font{"", size + 0.5, false}, line).Width, width);
    EXPECT_GT(text.Measure(Font{"", size + 0.5, false}, line).Height, text.Measure(Font{"", size, false}, line).Height);
  }
}

TEST_F(TextContract, SmallLettersAreAsLargeAsTheyMeasure) {
  for (const double size : {2.5, 3.5, 4.0}) {
    SCOPED_TRACE(size);
    const Font font{"", size, false};
    const TextExtent extent = text.Measure(font, "HHHHHHHHHH");
    Bitmap target(100, 30, PixelFormat::Bgr24);
    target.Fill(0x00FFFFFF);
    text.Draw(target, font, 10, 10, "HHHHHHHHHH", 0);
    int last = 0;
    int lowest = 0;
    for (int y = 0; y < target.Height(); ++y) {
      for (int x = 0; x < target.Width(); ++x) {
        if (target.Row(y)[3 * x] > 220) continue;
        last = std::max(last, x);
        lowest = std::max(lowest, y);
        EXPECT_GE(x, 9);
        EXPECT_GE(y, 9);
      }
    }
    EXPECT_NEAR(last, 10 + extent.Width, size);
    EXPECT_LE(lowest, 11 + extent.Height);
    EXPECT_GE(lowest, 9 + extent.Height / 2);
  }
}

TEST_F(TextContract, SecondLineIsDrawnBelowTheFirst) {
  const Font font{"", 12, false};
  const double line = text.Measure(font, "H").Height;
  Bitmap target(60, 80, PixelFormat::Bgr24);
  target.Fill(0x00FFFFFF);
  text.Draw(target, font, 5, 5, "\r\nHHH", 0);
  const auto inked = [&](int top, int bottom) {
    int count = 0;
    for (int y = top; y < bottom; ++y) {
      for (int x = 0; x < target.Width(); ++x) count += target.Row(y)[3 * x] < 128 ? 1 : 0;
    }
    return count;
  };
  const int second = static_cast<int>(5 + line);
  EXPECT_EQ(inked(0, second), 0);
  EXPECT_GT(inked(second, static_cast<int>(second + line)), 10);
}

}  // namespace
}  // namespace pixorra
