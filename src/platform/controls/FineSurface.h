// Drawing in the screen's own pixels, of which several may make up one pixel of the program.
#pragma once

#include "platform/controls/Geometry.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

// The whole pixel next to a place, the upper one where it is in the middle. Everything that is drawn in the screen's
// own pixels is rounded by this, so that a picture made for a rectangle has as many pixels as it is drawn into.
int FinePixel(double place);
// The fine pixels that make up a rectangle, `fineness` of them to the side of a pixel. Neighbours meet without a gap.
Rect FineRect(const Rect& at, double fineness);
// Stretches a picture, which is not nothing, into a rectangle given in pixels.
void StretchFine(const Picture& picture, Bitmap& fine, const Rect& at, double fineness);

}  // namespace pixorra
