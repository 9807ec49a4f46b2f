// The compressed pixels of a GIF image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixorra {

// Unpacks colour indexes into `out` and returns their number, at most as many as fit. `rootBits` is the data's own
// first byte; outside of 1 to 8 there are none. Unpacking ends at the first code that does not exist yet.
std::size_t UnpackGifCodes(std::span<const std::uint8_t> codes, unsigned rootBits, std::span<std::uint8_t> out);

}  // namespace pixorra
