// A photo file made into a frame that covers a screen.
#pragma once

#include <atomic>

#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"

namespace pixorra {

// As PhotoFrames describes it. A JPEG photo is decoded at the smallest reduction that has enough pixels for the screen.
// Empty where `stop` became true meanwhile. Raises BadPicture and OutOfMemory, and what reading does; OutOfMemory too
// for a photo that would take more than 1 GiB, its file's bytes included, before much of that is taken.
Bitmap DecodeFrame(File& file, PixelSize screen, const std::atomic<bool>& stop);

}  // namespace pixorra
