// The bytes of a picture file at any place in it, little-endian numbers among them; what is beyond the end reads as
// zero. Of a file on the disk only a small part is in memory at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "platform/services/Files.h"

namespace pixorra {

class ByteReader {
 public:
  // Of a file, this much is in memory, in bytes.
  static constexpr std::size_t WindowBytes = std::size_t{16} * 1024;

  // What is read must outlive the reader.
  explicit ByteReader(std::span<const std::uint8_t> bytes) : size_(bytes.size()), window_(bytes) {}
  // Raises what Length does; all below raise what reading does.
  explicit ByteReader(File& file);

  // Of a file that others cut meanwhile, less as soon as that is seen.
  std::size_t Size() const { return size_; }
  std::uint32_t U8(std::size_t at) {
    if (at - windowAt_ >= window_.size() && !Fetch(at)) return 0;
    return window_[at - windowAt_];
  }
  std::uint32_t U16(std::size_t at) { return U8(at) | U8(at + 1) << 8; }
  std::uint32_t U32(std::size_t at) { return U16(at) | U16(at + 2) << 16; }
  std::int32_t I32(std::size_t at) { return static_cast<std::int32_t>(U32(at)); }
  // Copies `count` bytes from `at` on.
  void Read(std::size_t at, std::uint8_t* to, std::size_t count);

 private:
  // Moves the window so that it begins at this byte. False beyond the end.
  bool Fetch(std::size_t at);
  std::size_t FromFile(std::size_t at, std::uint8_t* to, std::size_t count);

  std::size_t size_;
  std::span<const std::uint8_t> window_;
  std::size_t windowAt_ = 0;
  File* file_ = nullptr;
  std::unique_ptr<std::uint8_t[]> buffer_;
};

}  // namespace pixorra
