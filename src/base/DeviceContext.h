// Rows of pixels that are copied from and to, whoever holds them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pixorra {

class Bitmap;
class cDIBsection;

// The rows of a surface or of a picture's pixels, the top row first. It holds no pixels itself: what it was made of
// must outlive it.
struct DeviceContext {
  std::uint8_t* top = nullptr;
  std::ptrdiff_t step = 0;  // bytes from a row to the one below it
  int width = 0;
  int height = 0;
  int bytesPerPixel = 0;

  DeviceContext(Bitmap& bitmap);              // NOLINT(google-explicit-constructor): either serves where a context does
  DeviceContext(const cDIBsection& surface);  // NOLINT(google-explicit-constructor)
  // Only to copy from.
  static DeviceContext ToRead(const Bitmap& bitmap);
};

// Copies a rectangle of width by height pixels to another place, as far as both sides have it. From 4 bytes a pixel to
// 3 the fourth is left out, from 3 to 4 it becomes 255. The two must not overlap.
void CopyPixels(const DeviceContext& from, int fromLeft, int fromTop, const DeviceContext& to, int toLeft, int toTop,
                int width, int height);

}  // namespace pixorra
