#include "platform/codecs/GifCodes.h"

#include <algorithm>

namespace pixorra {

bool GifBlocks::NextBlock() {
  if (at_ >= in_.Size()) return false;
  const std::size_t said = in_.U8(at_++);
  left_ = at_ < in_.Size() ? std::min(said, in_.Size() - at_) : 0;
  return left_ > 0;
}

std::size_t GifBlocks::Count(std::size_t enough) const {
  GifBlocks rest = *this;
  std::size_t count = rest.left_;
  rest.at_ += rest.left_;
  while (count < enough && rest.NextBlock()) {
    count += rest.left_;
    rest.at_ += rest.left_;
  }
  return count;
}

GifUnpacker::GifUnpacker(GifBlocks blocks, unsigned rootBits)
    : blocks_(blocks), rootBits_(rootBits), ended_(rootBits < 1 || rootBits > 8) {
  if (ended_) return;
  for (unsigned code = 0; code < Clear(); ++code) {
    last_[code] = first_[code] = static_cast<std::uint8_t>(code);
    length_[code] = 1;
  }
  Reset();
}

std::span<const std::uint8_t> GifUnpacker::Next() {
  written_ = 0;
  unsigned code = 0;
  while (!ended_ && texts_.size() - written_ >= MostCodes) ended_ = !NextCode(code) || !Take(code);
  return {texts_.data(), written_};
}

void GifUnpacker::Reset() {
  size_ = Clear() + 2;
  bits_ = rootBits_ + 1;
}

// False when the data has ended.
bool GifUnpacker::NextCode(unsigned& code) {
  while (held_ < bits_) {
    std::uint8_t byte = 0;
    if (!blocks_.Next(byte)) return false;
    window_ |= static_cast<std::uint32_t>(byte) << held_;
    held_ += 8;
  }
  code = window_ & ((1U << bits_) - 1);
  window_ >>= bits_;
  held_ -= bits_;
  return true;
}

// False where the picture ends with this code.
bool GifUnpacker::Take(unsigned code) {
  if (code == Clear()) {
    Reset();
    before_ = NoCode;
    return ++idleClears_ < MostIdleClears;
  }
  if (code == End()) return false;
  if (before_ == NoCode) {
    if (!Has(code)) return false;
  } else if (Has(code)) {
    Add(before_, first_[code]);
  } else if (code == size_) {
    Add(before_, first_[before_]);
  } else {
    return false;
  }
  Write(code);
  before_ = code;
  return true;
}

// A full dictionary stays as it is until it is cleared.
void GifUnpacker::Add(unsigned prefix, std::uint8_t last) {
  if (size_ == MostCodes) return;
  prefix_[size_] = static_cast<std::uint16_t>(prefix);
  last_[size_] = last;
  first_[size_] = first_[prefix];
  length_[size_] = static_cast<std::uint16_t>(length_[prefix] + 1);
  ++size_;
  if (size_ == 1U << bits_ && bits_ < MostBits) ++bits_;
}

void GifUnpacker::Write(unsigned code) {
  idleClears_ -= length_[code];
  std::size_t place = written_ += length_[code];
  for (unsigned left = length_[code]; left > 0; --left) {
    texts_[--place] = last_[code];
    code = prefix_[code];
  }
}

}  // namespace pixorra
