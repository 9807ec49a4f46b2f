// A photo in the middle of a black screen.
#pragma once

#include "platform/pixels/Picture.h"

namespace pixorra {

// The largest size of the photo's shape that the screen has room for, but at most twice the photo's own; no side is
// below 1. Both sizes have sides of 1 or more.
PixelSize FramedSize(PixelSize photo, PixelSize screen);

// A bitmap of the screen's size, four bytes a pixel and opaque, with the pixels stretched to `framed` in its middle.
// Raises OutOfMemory, Overflow.
Bitmap FrameOf(const Bitmap& pixels, PixelSize framed, PixelSize screen);

}  // namespace pixorra
