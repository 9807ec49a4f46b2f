// What the decoders of photos that are wanted soon share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/pixels/Picture.h"
#include "platform/services/ReadAhead.h"

namespace pixorra {

// That decode at a time.
inline constexpr std::size_t MostThreads = 4;

// Of a bitmap of three bytes a pixel, at most.
std::int64_t BytesOf(PixelSize size);
// The sizes in which a photo of that size will be painted, without those that hold no pixel; none where `sizes` is
// empty.
std::vector<PixelSize> SizesFor(const ReadAhead::PaintedSizes& sizes, int width, int height);

}  // namespace pixorra
