// What a picture file is, by its first bytes.
#pragma once

#include <cstdint>
#include <span>

namespace pixorra {

class ByteReader;
class File;

enum class PictureKind { None, Bmp, Gif, Jpeg };

// Raises what reading raises.
PictureKind KindOf(ByteReader& in);

bool IsJpeg(std::span<const std::uint8_t> file);
// Reads two bytes. Raises what reading raises.
bool IsJpeg(File& file);

}  // namespace pixorra
