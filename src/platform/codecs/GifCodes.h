// The compressed pixels of a GIF image.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/codecs/ByteReader.h"

namespace pixorra {

// The blocks of up to 255 bytes that hold an image's data, as one row of bytes.
class GifBlocks {
 public:
  // The length of the first block is at this place.
  GifBlocks(ByteReader& in, std::size_t at) : in_(in), at_(at) {}

  // False where the data has ended.
  bool Next(std::uint8_t& byte) {
    if (left_ == 0 && !NextBlock()) return false;
    byte = static_cast<std::uint8_t>(in_.U8(at_++));
    --left_;
    return true;
  }
  // How many bytes are left from here on, as far as the file goes. They are counted until there are `enough`.
  std::size_t Count(std::size_t enough) const;

 private:
  bool NextBlock();

  ByteReader& in_;
  std::size_t at_;
  std::size_t left_ = 0;  // in this block
};

// Unpacks colour indexes, some thousands at a time: nothing of the picture's size is kept.
class GifUnpacker {
 public:
  // `rootBits` is the data's own first byte; outside of 1 to 8 there are no indexes.
  GifUnpacker(GifBlocks blocks, unsigned rootBits);

  // The next indexes, until the next call; none after the last. Unpacking ends at the first code that does not exist
  // yet, and where clear codes are some thousand more than indexes.
  std::span<const std::uint8_t> Next();

 private:
  static constexpr unsigned MostCodes = 4096;
  static constexpr unsigned MostBits = 12;
  static constexpr unsigned NoCode = MostCodes;
  // That many clear codes beyond one for each index; writers that never compress have one for a few.
  static constexpr std::int64_t MostIdleClears = 4096;

  unsigned Clear() const { return 1U << rootBits_; }
  unsigned End() const { return Clear() + 1; }
  bool Has(unsigned code) const { return code < Clear() || (code > End() && code < size_); }
  void Reset();
  bool NextCode(unsigned& code);
  bool Take(unsigned code);
  void Add(unsigned prefix, std::uint8_t last);
  void Write(unsigned code);

  GifBlocks blocks_;
  unsigned rootBits_;
  bool ended_ = false;
  std::uint32_t window_ = 0;  // bits that are not used up
  unsigned held_ = 0;         // how many
  unsigned before_ = NoCode;
  std::int64_t idleClears_ = 0;  // clear codes less indexes
  // Each code is short for the text of an earlier one and a last byte.
  unsigned bits_ = 0;
  unsigned size_ = 0;
  std::array<std::uint16_t, MostCodes> prefix_{};
  std::array<std::uint16_t, MostCodes> length_{};
  std::array<std::uint8_t, MostCodes> first_{};
  std::array<std::uint8_t, MostCodes> last_{};
  // No text is longer than there are codes.
  std::array<std::uint8_t, 2 * std::size_t{MostCodes}> texts_{};
  std::size_t written_ = 0;
};

}  // namespace pixorra
