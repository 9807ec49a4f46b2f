// Bitmap files: 1 to 32 bits a pixel, bit fields, run lengths, either row order, old and new headers.
#pragma once

#include <cstdint>
#include <span>

#include "platform/pixels/Picture.h"

namespace pixorra {

// The picture in a bitmap file, without its alpha. A cut or damaged file gives what it has and the rest black, or in
// run lengths the first colour. Raises error 481 where not even a row is there, 7 where memory runs out.
Bitmap DecodeBmp(std::span<const std::uint8_t> file);

}  // namespace pixorra
