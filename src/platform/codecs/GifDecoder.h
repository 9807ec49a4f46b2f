// GIF files: the first image, on the file's own screen.
#pragma once

#include <cstdint>
#include <span>

#include "platform/pixels/Picture.h"

namespace pixorra {

// The first image of a GIF file at the size of its screen. With alpha where anything is transparent, lies beside the
// image or is missing, as in a cut file. Raises error 481 where there is no image or none of its pixels, 7 where memory
// runs out.
Bitmap DecodeGif(std::span<const std::uint8_t> file);

}  // namespace pixorra
