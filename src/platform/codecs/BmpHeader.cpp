#include "platform/codecs/BmpHeader.h"

#include <algorithm>

#include "platform/codecs/SizeBound.h"
#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

constexpr std::size_t FileHeaderBytes = 14;
constexpr std::uint32_t CoreHeaderBytes = 12;  // the oldest: 16-bit sizes, palette entries of 3 bytes
constexpr std::uint32_t InfoHeaderBytes = 40;
constexpr std::uint32_t LongestHeaderBytes = 124;
constexpr std::size_t MasksAt =
    FileHeaderBytes + InfoHeaderBytes;  // after a header of 40 bytes, inside of a longer one

[[noreturn]] void Refuse() {
  throw RuntimeError(error::BadPicture);
}

bool HasPalette(const BmpHeader& header) {
  return header.bits <= 8;
}

void ReadSize(ByteReader& in, std::uint32_t headerBytes, BmpHeader& header) {
  std::int64_t width = 0;
  std::int64_t height = 0;
  if (headerBytes == CoreHeaderBytes) {
    width = in.U16(18);
    height = in.U16(20);
    header.bits = static_cast<int>(in.U16(24));
  } else {
    width = in.I32(18);
    height = in.I32(22);
    header.bits = static_cast<int>(in.U16(28));
  }
  header.topDown = height < 0;
  height = std::abs(height);
  if (!IsBacked(width, height, in.Size(), BmpPixelsPerByte)) Refuse();
  header.width = static_cast<int>(width);
  header.height = static_cast<int>(height);
}

BmpCoding CodingOf(std::uint32_t compression, int bits) {
  switch (compression) {
    case 0:
      if (bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32)
        return BmpCoding::Plain;
      break;
    case 1:
      if (bits == 8) return BmpCoding::RunLength8;
      break;
    case 2:
      if (bits == 4) return BmpCoding::RunLength4;
      break;
    case 3:
    case 6:
      if (bits == 16 || bits == 32) return BmpCoding::BitFields;
      break;
    default:
      break;
  }
  Refuse();
}

void ReadMasks(ByteReader& in, BmpHeader& header) {
  if (header.coding == BmpCoding::BitFields) {
    header.masks = {in.U32(MasksAt + 8), in.U32(MasksAt + 4), in.U32(MasksAt)};
  } else if (header.bits == 16) {
    header.masks = {0x1F, 0x1F << 5, 0x1F << 10};
  } else {
    header.masks = {0xFF, 0xFF << 8, 0xFF << 16};
  }
}

// `end` is where the pixels begin, if the file says so.
void ReadPalette(ByteReader& in, std::size_t at, std::size_t end, std::size_t entryBytes, std::uint32_t used,
                 BmpHeader& header) {
  std::size_t count = std::size_t{1} << header.bits;
  if (used != 0 && used < count) count = used;
  if (end > at) count = std::min(count, (end - at) / entryBytes);
  if (at >= in.Size()) Refuse();
  header.palette.assign(256, {});
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t c = 0; c < 3; ++c)
      header.palette[i][c] = static_cast<std::uint8_t>(in.U8(at + i * entryBytes + c));
  }
}

}  // namespace

BmpHeader ReadBmpHeader(ByteReader& in, std::int64_t mostPixels) {
  if (in.U8(0) != 'B' || in.U8(1) != 'M') Refuse();
  const std::uint32_t headerBytes = in.U32(14);
  if (headerBytes < CoreHeaderBytes || headerBytes > LongestHeaderBytes) Refuse();
  std::size_t at = FileHeaderBytes + headerBytes;
  if (in.Size() <= at) Refuse();

  BmpHeader header;
  ReadSize(in, headerBytes, header);
  const bool core = headerBytes == CoreHeaderBytes;
  // Headers between the two are the long one cut short; what they leave out counts as zero.
  const bool full = headerBytes >= InfoHeaderBytes;
  const std::uint32_t compression = core || headerBytes < 20 ? 0 : in.U32(30);
  header.coding = CodingOf(compression, header.bits);
  const bool plain = header.coding == BmpCoding::Plain || header.coding == BmpCoding::BitFields;
  if (plain && !IsBacked(header.width, header.height, in.Size(), 8 * MostTimesMissing / header.bits)) Refuse();
  ReadMasks(in, header);
  if (header.coding == BmpCoding::BitFields && headerBytes == InfoHeaderBytes) at += compression == 6 ? 16 : 12;

  const std::size_t entryBytes = core ? 3 : 4;
  const std::uint32_t used = full ? in.U32(46) : 0;
  const std::size_t said = in.U32(10);
  header.pixelsAt = said;
  if (HasPalette(header)) {
    ReadPalette(in, at, said, entryBytes, used, header);
    at += entryBytes * (used != 0 ? std::min<std::size_t>(used, 256) : std::size_t{1} << header.bits);
  }
  if (said < FileHeaderBytes + headerBytes) header.pixelsAt = at;  // not said, or nonsense
  if (header.pixelsAt >= in.Size()) Refuse();
  RefuseTooLarge(header.width, header.height, mostPixels);
  return header;
}

}  // namespace pixorra
