// The shading of photos that have been dragged.
#pragma once

#include "platform/pixels/Picture.h"

namespace pixorra {

// Leaves one pixel in four, those with both coordinates odd; the others become black.
void DotScreen(Bitmap& picture);
// All that DotScreen makes black is black.
bool IsDotScreened(const Bitmap& picture);
// The same dots in a picture that has more pixels than the one of that size, which is not empty. A pixel that a dot
// covers in part keeps that part of its light.
void DotScreenAs(Bitmap& picture, PixelSize shaded);

}  // namespace pixorra
