// A photo file's bytes decoded no larger than somebody needs them.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "platform/pixels/Picture.h"

namespace pixorra {

struct DecodedPhoto {
  PixelSize Photo;  // its own size
  Bitmap Pixels;    // as many, or fewer; empty where `stop` became true meanwhile
};

// `wanted` is told the photo's own size and gives the size that it will be painted in: a JPEG photo is decoded at the
// coarsest reduction that has the pixels for that. It comes upright, turned by `orientation` where that is given, else
// as its own bytes note. Raises BadPicture and OutOfMemory; the latter too for a photo whose decode would take more
// than `mostMemory`, in bytes: one that is no JPEG is decoded whole.
DecodedPhoto DecodeEnough(std::span<const std::uint8_t> file, const std::function<PixelSize(PixelSize photo)>& wanted,
                          std::int64_t mostMemory, const std::atomic<bool>& stop,
                          std::optional<int> orientation = std::nullopt);

}  // namespace pixorra
