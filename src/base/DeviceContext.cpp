#include "base/DeviceContext.h"

#include <algorithm>

#include "platform/pixels/Picture.h"

namespace pixorra {

namespace {

// A part of one side of a copy, and where it is put on the other; `count` pixels.
struct Overlap {
  int from = 0;
  int to = 0;
  int count = 0;
};

Overlap Clipped(int from, int fromLimit, int to, int toLimit, int count) {
  const std::int64_t skip = std::max({std::int64_t{0}, -std::int64_t{from}, -std::int64_t{to}});
  const std::int64_t end = std::min({std::int64_t{count}, std::int64_t{fromLimit} - from, std::int64_t{toLimit} - to});
  if (end <= skip) return {};
  return {static_cast<int>(from + skip), static_cast<int>(to + skip), static_cast<int>(end - skip)};
}

void CopyRow(const std::uint8_t* from, int fromBytes, std::uint8_t* to, int toBytes, int count) {
  if (fromBytes == toBytes) {
    std::copy_n(from, static_cast<std::ptrdiff_t>(count) * fromBytes, to);
    return;
  }
  for (int i = 0; i < count; ++i, from += fromBytes, to += toBytes) {
    std::copy_n(from, 3, to);
    if (toBytes == 4) to[3] = 255;
  }
}

}  // namespace

DeviceContext::DeviceContext(Bitmap& bitmap)
    : top(bitmap.IsEmpty() ? nullptr : bitmap.Row(0)),
      step(static_cast<std::ptrdiff_t>(bitmap.Stride())),
      width(bitmap.Width()),
      height(bitmap.Height()),
      bytesPerPixel(bitmap.BytesPerPixel()) {}

DeviceContext DeviceContext::ToRead(const Bitmap& bitmap) {
  return {const_cast<Bitmap&>(bitmap)};
}

void CopyPixels(const DeviceContext& from, int fromLeft, int fromTop, const DeviceContext& to, int toLeft, int toTop,
                int width, int height) {
  const Overlap across = Clipped(fromLeft, from.width, toLeft, to.width, width);
  const Overlap down = Clipped(fromTop, from.height, toTop, to.height, height);
  for (int row = 0; row < down.count && across.count > 0; ++row) {
    CopyRow(from.top + (down.from + row) * from.step + std::ptrdiff_t{across.from} * from.bytesPerPixel,
            from.bytesPerPixel, to.top + (down.to + row) * to.step + std::ptrdiff_t{across.to} * to.bytesPerPixel,
            to.bytesPerPixel, across.count);
  }
}

}  // namespace pixorra
