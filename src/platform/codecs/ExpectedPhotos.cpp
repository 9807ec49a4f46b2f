#include "platform/codecs/ExpectedPhotos.h"

#include <array>

#include "platform/services/Files.h"

namespace pixorra {

bool IsJpeg(File& file) {
  std::array<std::uint8_t, 2> start{};
  return file.ReadAt(0, start.data(), start.size()) == start.size() && start[0] == 0xFF && start[1] == 0xD8;
}

std::int64_t BytesOf(PixelSize size) {
  return (std::int64_t{size.Width} * 3 + 3) * size.Height;
}

std::vector<PixelSize> SizesFor(const ReadAhead::PaintedSizes& sizes, int width, int height) {
  std::vector<PixelSize> wanted;
  if (sizes) wanted = sizes(width, height);
  std::erase_if(wanted, [](PixelSize size) { return size.Width < 1 || size.Height < 1; });
  return wanted;
}

}  // namespace pixorra
