// The bytes of the file that is being copied. The block is kept from one copy to the next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace pixorra {

class FileBuffer {
 public:
  // Room for so many bytes, whatever they hold. A block far larger than that is given back.
  std::uint8_t* Sized(std::size_t length) {
    if (length > room_ || length < room_ / 8) {
      bytes_.reset();
      room_ = 0;
      bytes_ = std::make_unique_for_overwrite<std::uint8_t[]>(length);
      room_ = length;
    }
    return bytes_.get();
  }

 private:
  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t room_ = 0;
};

}  // namespace pixorra
