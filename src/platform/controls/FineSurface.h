// Drawing in the screen's own pixels, of which several may make up one pixel of the program.
#pragma once

#include "platform/controls/Geometry.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

// The fine pixels that make up a rectangle, `fineness` of them to the side of a pixel. Neighbours meet without a gap.
Rect FineRect(const Rect& at, double fineness);
// Stretches a picture, which is not nothing, into a rectangle given in pixels.
void StretchFine(const Picture& picture, Bitmap& fine, const Rect& at, double fineness);

}  // namespace pixorra
