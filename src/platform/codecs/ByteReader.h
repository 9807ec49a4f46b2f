// Little-endian numbers at places in a block of bytes; what is beyond the end reads as zero.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixorra {

class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  std::size_t Size() const { return bytes_.size(); }
  std::uint32_t U8(std::size_t at) const { return at < bytes_.size() ? bytes_[at] : 0U; }
  std::uint32_t U16(std::size_t at) const { return U8(at) | U8(at + 1) << 8; }
  std::uint32_t U32(std::size_t at) const { return U16(at) | U16(at + 2) << 16; }
  std::int32_t I32(std::size_t at) const { return static_cast<std::int32_t>(U32(at)); }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace pixorra
