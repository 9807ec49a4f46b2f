#include "platform/codecs/GifCodes.h"

#include <algorithm>
#include <array>

namespace pixorra {
namespace {

constexpr unsigned MostCodes = 4096;
constexpr unsigned MostBits = 12;
constexpr unsigned NoCode = MostCodes;

class CodeReader {
 public:
  explicit CodeReader(std::span<const std::uint8_t> codes) : codes_(codes) {}

  // False when the data has ended.
  bool Next(unsigned bits, unsigned& code) {
    while (held_ < bits) {
      if (at_ == codes_.size()) return false;
      window_ |= static_cast<std::uint32_t>(codes_[at_++]) << held_;
      held_ += 8;
    }
    code = window_ & ((1U << bits) - 1);
    window_ >>= bits;
    held_ -= bits;
    return true;
  }

 private:
  std::span<const std::uint8_t> codes_;
  std::size_t at_ = 0;
  std::uint32_t window_ = 0;
  unsigned held_ = 0;
};

// Each code is short for the text of an earlier one and a last byte.
class Dictionary {
 public:
  explicit Dictionary(unsigned rootBits) : rootBits_(rootBits) {
    for (unsigned code = 0; code < Clear(); ++code) {
      last_[code] = first_[code] = static_cast<std::uint8_t>(code);
      length_[code] = 1;
    }
    Reset();
  }

  unsigned Clear() const { return 1U << rootBits_; }
  unsigned End() const { return Clear() + 1; }
  unsigned Bits() const { return bits_; }
  unsigned Size() const { return size_; }
  bool Has(unsigned code) const { return code < Clear() || (code > End() && code < size_); }
  std::uint8_t First(unsigned code) const { return first_[code]; }

  void Reset() {
    size_ = Clear() + 2;
    bits_ = rootBits_ + 1;
  }

  // A full dictionary stays as it is until it is cleared.
  void Add(unsigned prefix, std::uint8_t last) {
    if (size_ == MostCodes) return;
    prefix_[size_] = static_cast<std::uint16_t>(prefix);
    last_[size_] = last;
    first_[size_] = first_[prefix];
    length_[size_] = static_cast<std::uint16_t>(length_[prefix] + 1);
    ++size_;
    if (size_ == 1U << bits_ && bits_ < MostBits) ++bits_;
  }

  // Writes the code's text to `out` from `at` on, as far as it fits, and returns the place after it.
  std::size_t Write(unsigned code, std::span<std::uint8_t> out, std::size_t at) const {
    const std::size_t end = at + length_[code];
    std::size_t place = end;
    for (; place > out.size(); --place) code = prefix_[code];
    while (place > at) {
      out[--place] = last_[code];
      code = prefix_[code];
    }
    return std::min(end, out.size());
  }

 private:
  unsigned rootBits_;
  unsigned bits_ = 0;
  unsigned size_ = 0;
  std::array<std::uint16_t, MostCodes> prefix_{};
  std::array<std::uint16_t, MostCodes> length_{};
  std::array<std::uint8_t, MostCodes> first_{};
  std::array<std::uint8_t, MostCodes> last_{};
};

}  // namespace

std::size_t UnpackGifCodes(std::span<const std::uint8_t> codes, unsigned rootBits, std::span<std::uint8_t> out) {
  if (rootBits < 1 || rootBits > 8) return 0;
  CodeReader reader(codes);
  Dictionary dictionary(rootBits);
  std::size_t at = 0;
  unsigned code = 0;
  unsigned before = NoCode;
  while (at < out.size() && reader.Next(dictionary.Bits(), code)) {
    if (code == dictionary.Clear()) {
      dictionary.Reset();
      before = NoCode;
      continue;
    }
    if (code == dictionary.End()) break;
    if (before == NoCode) {
      if (!dictionary.Has(code)) break;
    } else if (dictionary.Has(code)) {
      dictionary.Add(before, dictionary.First(code));
    } else if (code == dictionary.Size()) {
      dictionary.Add(before, dictionary.First(before));
    } else {
      break;
    }
    at = dictionary.Write(code, out, at);
    before = code;
  }
  return at;
}

}  // namespace pixorra
