// The head of a bitmap file: its size, its depth, its colours, and where the pixels begin.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/codecs/ByteReader.h"

namespace pixorra {

enum class BmpCoding { Plain, RunLength8, RunLength4, BitFields };

struct BmpHeader {
  int width = 0;
  int height = 0;
  bool topDown = false;
  int bits = 0;  // a pixel: 1, 2, 4, 8, 16, 24 or 32
  BmpCoding coding = BmpCoding::Plain;
  std::array<std::uint32_t, 3> masks{};  // blue, green, red; of 16 and 32 bits
  // Blue, green, red and nothing; 256 of them where pixels are palette indexes, black where the file has none.
  std::vector<std::array<std::uint8_t, 4>> palette;
  std::size_t pixelsAt = 0;

  // Of a plain row, padded to 4 bytes.
  std::size_t RowBytes() const {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
  }
};

// Raises BadPicture for what is no bitmap, of no known kind, or larger than its bytes can back, OutOfMemory above
// so many pixels, and what reading does.
BmpHeader ReadBmpHeader(ByteReader& in, std::int64_t mostPixels);

}  // namespace pixorra
