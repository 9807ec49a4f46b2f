#include "platform/headless/HeadlessText.h"

#include <algorithm>
#include <cmath>

#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

constexpr double CharacterWidth = 6;
constexpr double LineHeight = 13;
constexpr double StandardSize = 8.25;

double Factor(const Font& font) {
  return font.Size / StandardSize;
}

void FillBlock(Bitmap& target, int left, int top, int right, int bottom, Colour colour) {
  for (int y = std::max(0, top); y < std::min(bottom, target.Height()); ++y) {
    for (int x = std::max(0, left); x < std::min(right, target.Width()); ++x) {
      std::uint8_t* pixel = target.Row(y) + x * target.BytesPerPixel();
      pixel[0] = static_cast<std::uint8_t>(colour >> 16);
      pixel[1] = static_cast<std::uint8_t>(colour >> 8);
      pixel[2] = static_cast<std::uint8_t>(colour);
      if (target.Format() == PixelFormat::Bgra32) pixel[3] = 255;
    }
  }
}

}  // namespace

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end = text.find_first_of("\r\n"); end != std::string::npos;
       end = text.find_first_of("\r\n", start)) {
    lines.push_back(text.substr(start, end - start));
    start = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
  }
  lines.push_back(text.substr(start));
  return lines;
}

TextExtent HeadlessText::Measure(const Font& font, const std::string& text) {
  std::size_t lines = 0;
  std::size_t longest = 0;
  for (const std::string& line : LinesOf(text)) {
    ++lines;
    longest = std::max(longest, CharacterCount(line));
  }
  return {static_cast<double>(longest) * CharacterWidth * Factor(font),
          static_cast<double>(lines) * LineHeight * Factor(font)};
}

// The low eight bits of a character, two by four blocks in its cell, on a base line that every visible character has.
void HeadlessText::Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text,
                        Colour colour) {
  const double factor = Factor(font);
  const auto pixel = [](double at) { return static_cast<int>(std::lround(at)); };
  double y = top;
  for (const std::string& line : LinesOf(text)) {
    double x = left;
    for (std::size_t at = 0; at < line.size(); x += CharacterWidth * factor) {
      const Utf8Character character = CharacterAt(line, at);
      at += character.Bytes;
      if (character.Code == U' ') continue;
      for (int bit = 0; bit < 8; ++bit) {
        if ((character.Code >> bit & 1U) == 0) continue;
        const double blockX = x + (1 + 2 * (bit % 2)) * factor;
        const double blockY = y + (1 + 2 * (bit / 2)) * factor;
        FillBlock(target, pixel(blockX), pixel(blockY), pixel(blockX + 2 * factor), pixel(blockY + 2 * factor), colour);
      }
      FillBlock(target, pixel(x + factor), pixel(y + 10 * factor), pixel(x + 5 * factor), pixel(y + 11 * factor),
                colour);
    }
    y += LineHeight * factor;
  }
}

}  // namespace pixorra
