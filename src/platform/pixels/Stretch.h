// Stretching of a picture's pixels into a rectangle. Every PaintPicture draws with it.
#pragma once

#include "platform/pixels/Picture.h"

namespace pixorra {

// Paints the whole of `source` into the rectangle of `target` that begins at (x, y) and is w by h pixels, as far as it
// is inside. A reduction averages exactly what each pixel covers, halves upwards; an enlargement blends neighbours. A
// source with alpha is laid over what the target holds. Nothing is painted where w or h is below 1 or either bitmap is
// empty. The two bitmaps must differ. Sides of the source up to 16,777,215 pixels.
void Stretch(const Bitmap& source, Bitmap& target, int x, int y, int w, int h);
// The same of a picture, which is not nothing. What has been made of it beforehand serves, and looks the same.
void Stretch(const Picture& picture, Bitmap& target, int x, int y, int w, int h);

}  // namespace pixorra
