// A photo file's bytes made into a frame that covers a screen.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>

#include "platform/pixels/Picture.h"

namespace pixorra {

// As PhotoFrames describes it. A JPEG photo is decoded at the smallest reduction that has enough pixels for the screen.
// Empty where `stop` became true meanwhile. Raises BadPicture and OutOfMemory; the latter too for a photo whose decode
// would take more memory than a program that only shows photos should have.
Bitmap DecodeFrame(std::span<const std::uint8_t> file, PixelSize screen, const std::atomic<bool>& stop);

}  // namespace pixorra
