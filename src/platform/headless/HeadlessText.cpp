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

TextExtent HeadlessText::Measure(const Font& font, const std::string& text) {
  std::size_t longest = 0;
  for (std::string_view line : Split(text, '\n')) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    longest = std::max(longest, CharacterCount(line));
  }
  return {static_cast<double>(longest) * CharacterWidth * Factor(font), LineHeight * Factor(font)};
}

// The low eight bits of a character, two by four blocks in its cell, on a base line that every visible character has.
void HeadlessText::Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text,
                        Colour colour) {
  const double factor = Factor(font);
  const auto pixel = [](double at) { return static_cast<int>(std::lround(at)); };
  double x = left;
  double y = top;
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = CharacterAt(text, at);
    at += character.Bytes;
    if (character.Code == U'\n') {
      x = left;
      y += LineHeight * factor;
      continue;
    }
    if (character.Code == U'\r') continue;
    for (int bit = 0; bit < 8 && character.Code != U' '; ++bit) {
      if ((character.Code >> bit & 1U) == 0) continue;
      const double blockX = x + (1 + 2 * (bit % 2)) * factor;
      const double blockY = y + (1 + 2 * (bit / 2)) * factor;
      FillBlock(target, pixel(blockX), pixel(blockY), pixel(blockX + 2 * factor), pixel(blockY + 2 * factor), colour);
    }
    if (character.Code != U' ') {
      FillBlock(target, pixel(x + factor), pixel(y + 10 * factor), pixel(x + 5 * factor), pixel(y + 11 * factor),
                colour);
    }
    x += CharacterWidth * factor;
  }
}

}  // namespace pixorra
