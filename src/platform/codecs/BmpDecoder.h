// Bitmap files: 1 to 32 bits a pixel, bit fields, run lengths, either row order, old and new headers.
#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/SizeBound.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

// The picture in a bitmap file, without its alpha. A cut or damaged file shows what it has and the rest black, or in
// run lengths the first colour. Beside that picture, no more than 64 KiB are taken. Raises BadPicture where not even a
// row is there or a large picture is nearly empty, OutOfMemory where memory runs out and above so many
// pixels, and what reading does.
Bitmap DecodeBmp(ByteReader& in, std::int64_t mostPixels = MostPixels);
Bitmap DecodeBmp(std::span<const std::uint8_t> file);

}  // namespace pixorra
