// Encodes rows of pixels as a JPEG file in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace pixorra {

// The bytes of a finished JPEG file.
class JpegBytes {
 public:
  JpegBytes() = default;
  JpegBytes(std::uint8_t* block, std::size_t size) : block_(block), size_(size) {}
  std::span<const std::uint8_t> Bytes() const { return {block_.get(), size_}; }

 private:
  struct Free {
    void operator()(std::uint8_t* block) const { std::free(block); }
  };
  std::unique_ptr<std::uint8_t[], Free> block_;
  std::size_t size_ = 0;
};

// Rows of blue, green and red bytes, the top one at `topRow` and each next one `step` bytes further (or back). The
// colour is kept at half the size in both directions. `quality` is cut to 0 to 100. Gives a status.
int WriteJpeg(const std::uint8_t* topRow, std::ptrdiff_t step, int width, int height, int quality, JpegBytes& out);

}  // namespace pixorra
