// GIF files whose size has nothing to do with that of their data.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "tests/support/TestPictures.h"

namespace pixorra {

// The data of a GIF file of one colour, by ever longer texts of it: some hundred kilobytes for hundreds of megapixels.
inline std::string OneColourGifData(std::int64_t pixels) {
  std::string data, out;
  std::uint32_t window = 0;
  unsigned held = 0;
  const auto put = [&](unsigned code, unsigned bits) {
    window |= code << held;
    for (held += bits; held >= 8; held -= 8, window >>= 8) data += static_cast<char>(window & 255);
  };
  unsigned size = 258, bits = 9;
  std::int64_t length = 1;
  put(256, bits);
  put(7, bits);
  for (std::int64_t done = 1; done < pixels; done += length) {
    if (size < 4096) {
      put(size, bits);  // the text while it is being made: one longer than the last
      ++length;
      if (++size == 1U << bits && bits < 12) ++bits;
    } else {
      put(4095, bits);
    }
  }
  put(257, bits);
  data += static_cast<char>(window & 255);
  for (std::size_t at = 0; at < data.size(); at += 255) {
    const std::size_t part = std::min<std::size_t>(255, data.size() - at);
    out += static_cast<char>(part);
    out.append(data, at, part);
  }
  return out + '\0';
}

// A GIF file of this size and data; `transparent`: the colour's index, -1 for none.
inline std::string GifOfSize(int width, int height, int transparent, const std::string& data) {
  std::string out = GifOf(1, 1, [](int, int) { return std::uint8_t{1}; }, {.transparent = transparent});
  const std::size_t image = out.find(',', 13 + 768);
  std::string size;
  for (const int side : {width, height}) size += {static_cast<char>(side & 255), static_cast<char>(side >> 8)};
  out.replace(6, 4, size);
  out.replace(image + 5, 4, size);
  return out.substr(0, image + 11) + data;
}

}  // namespace pixorra
