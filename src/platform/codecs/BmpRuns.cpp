#include "platform/codecs/BmpRuns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/codecs/SizeBound.h"

namespace pixorra {
namespace {

class Runs {
 public:
  Runs(ByteReader& in, const BmpHeader& header) : in_(in), header_(header), at_(header.pixelsAt) {}

  // Call one of the two, once.
  std::int64_t CountPixels() {
    Follow();
    return pixels_;
  }
  Bitmap Decode() {
    drawing_ = true;
    Follow();
    while (y_ < header_.height) BeginRow(y_ + 1);
    return std::move(bitmap_);
  }

 private:
  // So many codes in a row that lead nowhere are followed; in a sound file there are none.
  static constexpr int MostIdleCodes = 4096;
  static constexpr unsigned EndOfLine = 0;
  static constexpr unsigned EndOfBitmap = 1;
  static constexpr unsigned Delta = 2;

  static unsigned Nibble(unsigned byte, unsigned i) { return i % 2 == 0 ? byte >> 4 : byte & 15; }

  void Follow() {
    int idle = 0;
    while (y_ < header_.height && Left() >= 2 && idle < MostIdleCodes) {
      const int x = x_, y = y_;
      const unsigned count = in_.U8(at_++);
      const unsigned value = in_.U8(at_++);
      if (count == 0) {
        if (!Escape(value)) break;
      } else {
        Run(std::min(count, static_cast<unsigned>(header_.width - x_)), value);
      }
      idle = x_ == x && y_ == y ? idle + 1 : 0;
    }
  }

  std::size_t Left() const { return at_ < in_.Size() ? in_.Size() - at_ : 0; }

  // There is no bitmap before the first pixel.
  void Begin() {
    bitmap_ = Bitmap::Cleared(header_.width, header_.height, PixelFormat::Bgr24);
    const int y = y_;
    for (int row = 0; row <= y; ++row) BeginRow(row);
  }

  // Moves to a row, the first in the file being 0. A new bitmap is black: other colours have to be drawn.
  void BeginRow(int y) {
    y_ = y;
    if (y >= header_.height || bitmap_.IsEmpty()) return;
    row_ = bitmap_.Row(header_.topDown ? y : header_.height - 1 - y);
    if (header_.palette[0] == std::array<std::uint8_t, 4>{}) return;
    for (int x = 0; x < header_.width; ++x) std::copy_n(header_.palette[0].begin(), 3, row_ + std::ptrdiff_t{x} * 3);
  }

  void Run(unsigned count, unsigned value) {
    if (drawing_) {
      for (unsigned i = 0; i < count; ++i) Put(header_.bits == 8 ? value : Nibble(value, i));
    } else {
      pixels_ += count;
      x_ += static_cast<int>(count);
    }
  }

  void Put(unsigned index) {
    if (x_ >= header_.width) return;
    if (drawing_) {
      if (bitmap_.IsEmpty()) Begin();
      std::copy_n(header_.palette[index].begin(), 3, row_ + std::ptrdiff_t{x_} * 3);
    }
    ++pixels_;
    ++x_;
  }

  // False where the codes end.
  bool Escape(unsigned value) {
    switch (value) {
      case EndOfLine:
        x_ = 0;
        BeginRow(y_ + 1);
        return true;
      case EndOfBitmap:
        return false;
      case Delta:
        return Skip();
      default:
        return Literal(value);
    }
  }

  bool Skip() {
    if (Left() < 2) return false;
    x_ = std::min(header_.width, x_ + static_cast<int>(in_.U8(at_++)));
    for (unsigned down = in_.U8(at_++); down > 0 && y_ < header_.height; --down) BeginRow(y_ + 1);
    return true;
  }

  // `count` pixels as they are, padded to an even number of bytes; as many as are there.
  bool Literal(unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      const std::size_t byte = at_ + (header_.bits == 8 ? i : i / 2);
      if (byte >= in_.Size()) return false;
      Put(header_.bits == 8 ? in_.U8(byte) : Nibble(in_.U8(byte), i));
    }
    const std::size_t bytes = header_.bits == 8 ? count : (count + 1) / 2;
    at_ += (bytes + 1) / 2 * 2;
    return true;
  }

  ByteReader& in_;
  const BmpHeader& header_;
  std::size_t at_;
  bool drawing_ = false;
  std::int64_t pixels_ = 0;  // that codes have, within the picture
  Bitmap bitmap_;
  std::uint8_t* row_ = nullptr;
  int x_ = 0;
  int y_ = 0;
};

}  // namespace

Bitmap DecodeBmpRuns(ByteReader& in, const BmpHeader& header) {
  const auto backedBy = [&](std::int64_t pixels) {
    return IsBacked(header.width, header.height, static_cast<std::size_t>(pixels), MostTimesMissing);
  };
  if (!backedBy(0) && !backedBy(Runs(in, header).CountPixels())) return {};
  return Runs(in, header).Decode();
}

}  // namespace pixorra
