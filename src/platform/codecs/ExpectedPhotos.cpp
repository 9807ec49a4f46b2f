#include "platform/codecs/ExpectedPhotos.h"

namespace pixorra {

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
