// The shading of photos that have been dragged.
#pragma once

namespace pixorra {

class Bitmap;
class ImageBox;

// Leaves one pixel in four, those with both coordinates odd; the others become black.
void DotScreen(Bitmap& picture);
// Shades the thumbnail's picture, if it has one.
void ShadeThumbnail(ImageBox& thumbnail);

}  // namespace pixorra
