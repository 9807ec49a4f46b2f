// GIF files: the first image, on the file's own screen.
//
// Deliberate: not giflib. After a code that does not exist giflib continues and fills the rest of the picture with
// noise; here the rest stays open, and what is before the damage is shown as it is.
#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/SizeBound.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

// The first image of a GIF file at the size of its screen. With alpha where anything is transparent, outside of the
// image or missing, as in a cut file. Beside that picture, no more than 64 KiB are taken. Raises BadPicture where there
// is no image or none of its pixels, OutOfMemory where memory runs out and above so many pixels, and what reading does.
Bitmap DecodeGif(ByteReader& in, std::int64_t mostPixels = MostPixels);
Bitmap DecodeGif(std::span<const std::uint8_t> file);

}  // namespace pixorra
