// A whole file read into memory at once, into a buffer that is not cleared first and is used again. No service itself;
// it is kept here, next to Files, because the program and the codecs read photos with it and share no other folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "platform/services/Files.h"

namespace pixorra {

class FileBytes {
 public:
  // The largest file that is read, in bytes.
  static constexpr std::int64_t Limit = 0x7FFFFFFF;

  FileBytes() = default;
  FileBytes(FileBytes&& other) noexcept { *this = std::move(other); }
  FileBytes& operator=(FileBytes&& other) noexcept {
    buffer_ = std::move(other.buffer_);
    capacity_ = std::exchange(other.capacity_, 0);
    size_ = std::exchange(other.size_, 0);
    return *this;
  }

  // Replaces what was held; nothing is held where it raises. Raises as opening and reading do, Overflow above Limit,
  // OutOfMemory where memory runs out.
  void Read(Files& files, const std::string& path);
  void Read(File& file);

  std::span<const std::uint8_t> Bytes() const { return {buffer_.get(), size_}; }
  const std::uint8_t* Data() const { return buffer_.get(); }
  std::size_t Size() const { return size_; }
  // Bytes of the block, which is kept for the next file.
  std::size_t Capacity() const { return capacity_; }

 private:
  std::unique_ptr<std::uint8_t[]> buffer_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
};

}  // namespace pixorra
