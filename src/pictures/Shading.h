// The shading of photos that have been dragged.
#pragma once

namespace pixorra {

class ImageBox;

// Shades the thumbnail's picture, if it has one.
void ShadeThumbnail(ImageBox& thumbnail);

}  // namespace pixorra
