#include "platform/codecs/BmpDecoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "platform/codecs/BmpHeader.h"
#include "platform/codecs/BmpRuns.h"
#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

using Byte = std::uint8_t;

void PutIndex(const BmpHeader& header, unsigned index, Byte*& to) {
  const std::array<Byte, 4>& colour = header.palette[index];
  to[0] = colour[0];
  to[1] = colour[1];
  to[2] = colour[2];
  to += 3;
}

template <int Bits>
void IndexRow(const BmpHeader& header, const Byte* from, Byte* to, int width) {
  constexpr unsigned PerByte = 8 / Bits;
  constexpr unsigned Mask = (1U << Bits) - 1;
  for (unsigned x = 0; x < static_cast<unsigned>(width); ++x) {
    const unsigned shift = (PerByte - 1 - x % PerByte) * Bits;
    PutIndex(header, from[x / PerByte] >> shift & Mask, to);
  }
}

// A channel of 16- and 32-bit pixels, brought to 8 bits by repeating its bits, as 0 must stay 0 and full must become
// 255.
class Channel {
 public:
  explicit Channel(std::uint32_t mask) : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)) {
    const int bits = mask == 0 ? 0 : 32 - std::countl_zero(mask) - shift_;
    drop_ = std::max(0, bits - 8);
    const int kept = std::min(bits, 8);
    for (unsigned value = 0; value < 256 && kept > 0; ++value) {
      unsigned wide = (value & ((1U << kept) - 1)) << (8 - kept);
      for (int have = kept; have < 8; have *= 2) wide |= wide >> have;
      table_[value] = static_cast<Byte>(wide);
    }
  }
  Byte Of(std::uint32_t pixel) const { return table_[((pixel & mask_) >> shift_ >> drop_) & 255]; }

 private:
  std::uint32_t mask_;
  int shift_;
  int drop_ = 0;
  std::array<Byte, 256> table_{};
};

template <int Bytes>
void MaskedRow(const std::array<Channel, 3>& channels, int width, const Byte* from, Byte* to) {
  for (int x = 0; x < width; ++x, from += Bytes, to += 3) {
    std::uint32_t pixel = from[0] | std::uint32_t{from[1]} << 8;
    if constexpr (Bytes == 4) pixel |= std::uint32_t{from[2]} << 16 | std::uint32_t{from[3]} << 24;
    for (std::size_t c = 0; c < 3; ++c) to[c] = channels[c].Of(pixel);
  }
}

class RowDecoder {
 public:
  explicit RowDecoder(const BmpHeader& header)
      : header_(header),
        channels_{Channel(header.masks[0]), Channel(header.masks[1]), Channel(header.masks[2])},
        plain32_(header.masks == std::array<std::uint32_t, 3>{0xFF, 0xFF00, 0xFF0000}) {}

  // The first `width` pixels of what is at `from`.
  void operator()(const Byte* from, Byte* to, int width) const {
    switch (header_.bits) {
      case 1:
        return IndexRow<1>(header_, from, to, width);
      case 2:
        return IndexRow<2>(header_, from, to, width);
      case 4:
        return IndexRow<4>(header_, from, to, width);
      case 8:
        return IndexRow<8>(header_, from, to, width);
      case 16:
        return MaskedRow<2>(channels_, width, from, to);
      default:
        if (!plain32_) return MaskedRow<4>(channels_, width, from, to);
        for (int x = 0; x < width; ++x, from += 4, to += 3) std::copy_n(from, 3, to);
    }
  }

 private:
  const BmpHeader& header_;
  std::array<Channel, 3> channels_;
  bool plain32_;
};

Byte* RowInFileOrder(Bitmap& bitmap, const BmpHeader& header, int row) {
  return bitmap.Row(header.topDown ? row : header.height - 1 - row);
}

// Rows are read in parts, so that no row's length matters; a part begins at a whole byte.
constexpr int PartPixels = 4096;

void DecodeRow(ByteReader& in, std::size_t at, const BmpHeader& header, const RowDecoder& decode, Byte* to) {
  if (header.bits == 24) return in.Read(at, to, static_cast<std::size_t>(header.width) * 3);
  std::array<Byte, std::size_t{PartPixels} * 4> part;
  for (int x = 0; x < header.width; x += PartPixels) {
    const int width = std::min(PartPixels, header.width - x);
    const auto bytes = (static_cast<std::size_t>(width) * static_cast<std::size_t>(header.bits) + 7) / 8;
    in.Read(at, part.data(), bytes);
    decode(part.data(), to + std::ptrdiff_t{x} * 3, width);
    at += bytes;
  }
}

Bitmap DecodePlain(const BmpHeader& header, ByteReader& in) {
  const std::size_t rowBytes = header.RowBytes();
  const std::size_t have = in.Size() - header.pixelsAt;
  // The last row's padding is often left out.
  const std::size_t needed = (static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.bits) + 7) / 8;
  if (have < needed) throw RuntimeError(error::BadPicture);
  const std::size_t whole = std::min((have - needed) / rowBytes + 1, static_cast<std::size_t>(header.height));
  Bitmap bitmap = Bitmap::Cleared(header.width, header.height, PixelFormat::Bgr24);
  const RowDecoder decode(header);
  for (std::size_t row = 0; row < whole; ++row) {
    DecodeRow(in, header.pixelsAt + row * rowBytes, header, decode,
              RowInFileOrder(bitmap, header, static_cast<int>(row)));
  }
  return bitmap;
}

}  // namespace

Bitmap DecodeBmp(ByteReader& in, std::int64_t mostPixels) {
  const BmpHeader header = ReadBmpHeader(in, mostPixels);
  if (header.coding != BmpCoding::RunLength8 && header.coding != BmpCoding::RunLength4) return DecodePlain(header, in);
  Bitmap bitmap = DecodeBmpRuns(in, header);
  if (bitmap.IsEmpty()) throw RuntimeError(error::BadPicture);
  return bitmap;
}

Bitmap DecodeBmp(std::span<const Byte> file) {
  ByteReader in(file);
  return DecodeBmp(in);
}

}  // namespace pixorra
