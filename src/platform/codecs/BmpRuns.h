// The run lengths of bitmap files of 4 and 8 bits a pixel.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace pixorra {

// Palette indexes, the row first in the file first, `width` a row; what the codes pass over is 0. Ends quietly where
// the codes end or leave the picture. False where they hold no pixel at all.
bool DecodeBmpRuns(std::span<const std::uint8_t> codes, int bits, int width, int height,
                   std::vector<std::uint8_t>& indexes);

}  // namespace pixorra
