// A thumbnail made of its photo once more, with more pixels.
#pragma once

#include <atomic>

#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"

namespace pixorra {

// As ThumbnailTwins describes it; `thumbnail` is not empty. The small picture that a camera leaves in its photos serves
// where it has the pixels and the photo's shape, and looks the same: little of the file is read then. Empty where there
// is no twin. Raises BadPicture, OutOfMemory, and as reading does.
Bitmap DecodeTwin(File& photo, const Bitmap& thumbnail, PixelSize size, const std::atomic<bool>& stop);

}  // namespace pixorra
