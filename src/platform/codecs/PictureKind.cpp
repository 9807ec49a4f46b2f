#include "platform/codecs/PictureKind.h"

#include <array>

#include "platform/codecs/ByteReader.h"
#include "platform/services/Files.h"

namespace pixorra {

PictureKind KindOf(ByteReader& in) {
  if (in.U8(0) == 'B' && in.U8(1) == 'M') return PictureKind::Bmp;
  if (in.U8(0) == 'G' && in.U8(1) == 'I' && in.U8(2) == 'F') return PictureKind::Gif;
  if (in.U8(0) == 0xFF && in.U8(1) == 0xD8) return PictureKind::Jpeg;
  return PictureKind::None;
}

bool IsJpeg(std::span<const std::uint8_t> file) {
  return file.size() >= 2 && file[0] == 0xFF && file[1] == 0xD8;
}

bool IsJpeg(File& file) {
  std::array<std::uint8_t, 2> start{};
  return file.ReadAt(0, start.data(), start.size()) == start.size() && IsJpeg(start);
}

}  // namespace pixorra
