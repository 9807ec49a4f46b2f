#include "platform/codecs/BmpRuns.h"

#include <algorithm>

namespace pixorra {
namespace {

class Runs {
 public:
  Runs(std::span<const std::uint8_t> codes, int bits, int width, int height, std::vector<std::uint8_t>& indexes)
      : codes_(codes), bits_(bits), width_(width), height_(height), indexes_(indexes) {}

  bool Decode() {
    while (y_ < height_ && codes_.size() - at_ >= 2) {
      const unsigned count = codes_[at_++];
      const unsigned value = codes_[at_++];
      if (count == 0) {
        if (!Escape(value)) break;
      } else {
        for (unsigned i = 0; i < count; ++i) Put(bits_ == 8 ? value : Nibble(value, i));
      }
    }
    return any_;
  }

 private:
  static constexpr unsigned EndOfLine = 0;
  static constexpr unsigned EndOfBitmap = 1;
  static constexpr unsigned Delta = 2;

  static unsigned Nibble(unsigned byte, unsigned i) { return i % 2 == 0 ? byte >> 4 : byte & 15; }

  void Put(unsigned index) {
    if (x_ >= width_) return;
    indexes_[static_cast<std::size_t>(y_) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x_++)] =
        static_cast<std::uint8_t>(index);
    any_ = true;
  }

  // False where the codes end.
  bool Escape(unsigned value) {
    switch (value) {
      case EndOfLine:
        x_ = 0;
        ++y_;
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
    if (codes_.size() - at_ < 2) return false;
    x_ = std::min(width_, x_ + codes_[at_]);
    y_ += codes_[at_ + 1];
    at_ += 2;
    return true;
  }

  // `count` pixels as they are, padded to an even number of bytes; as many as are there.
  bool Literal(unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      const std::size_t byte = at_ + (bits_ == 8 ? i : i / 2);
      if (byte >= codes_.size()) return false;
      Put(bits_ == 8 ? codes_[byte] : Nibble(codes_[byte], i));
    }
    const std::size_t bytes = bits_ == 8 ? count : (count + 1) / 2;
    at_ = std::min(codes_.size(), at_ + (bytes + 1) / 2 * 2);
    return true;
  }

  std::span<const std::uint8_t> codes_;
  int bits_;
  int width_;
  int height_;
  std::vector<std::uint8_t>& indexes_;
  std::size_t at_ = 0;
  int x_ = 0;
  int y_ = 0;
  bool any_ = false;
};

}  // namespace

bool DecodeBmpRuns(std::span<const std::uint8_t> codes, int bits, int width, int height,
                   std::vector<std::uint8_t>& indexes) {
  indexes.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
  return Runs(codes, bits, width, height, indexes).Decode();
}

}  // namespace pixorra
