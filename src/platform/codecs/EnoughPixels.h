// A photo decoded no larger than somebody needs them.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"

namespace pixorra {

struct DecodedPhoto {
  PixelSize Photo;  // its own size
  Bitmap Pixels;    // as many, or fewer; empty where `stop` became true meanwhile
};

// Is told the photo's own size and gives the size that it will be painted in.
using WantedSize = std::function<PixelSize(PixelSize photo)>;

// A JPEG photo is decoded at the coarsest reduction that has the pixels for what is wanted, one of another kind whole.
// It comes upright. The file is read by portions, and not beyond the picture's end. Raises BadPicture and OutOfMemory;
// the latter too for a photo whose decode would take more than `mostMemory`, in bytes. Raises as Length and ReadAt do.
DecodedPhoto DecodeEnough(File& file, const WantedSize& wanted, std::int64_t mostMemory, const std::atomic<bool>& stop);

// The same of a JPEG photo in memory, turned upright by `orientation` where that is given, else as its own bytes note.
DecodedPhoto DecodeEnough(std::span<const std::uint8_t> jpeg, const WantedSize& wanted, std::int64_t mostMemory,
                          const std::atomic<bool>& stop, std::optional<int> orientation = std::nullopt);

}  // namespace pixorra
