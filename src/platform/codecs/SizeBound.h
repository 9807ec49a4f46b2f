// The bound on what a picture file may claim to hold, asked before any memory is taken for it.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/runtime/Errors.h"

namespace pixorra {

// No side of a picture is longer.
inline constexpr int LongestSide = 65535;
// No bitmap or GIF picture is larger, whatever backs it.
inline constexpr std::int64_t MostPixels = 300'000'000;

// How many pixels a byte of a file can encode at most. A JPEG scan spends at least a bit on each block of 64 pixels;
// a run of GIF codes reaches 4096 pixels in 12 bits; run lengths of a bitmap reach 255 pixels in 2 bytes.
inline constexpr std::int64_t JpegPixelsPerByte = 512;
inline constexpr std::int64_t GifPixelsPerByte = 4096;
inline constexpr std::int64_t BmpPixelsPerByte = 512;
// So many times more of a bitmap may be missing than is there: of plain rows in a cut file, or of the pixels in runs.
inline constexpr std::int64_t MostTimesMissing = 64;

// False for sizes that `bytes` bytes of data cannot back. A picture of up to 16 megapixels is let through in any case,
// so that a damaged or cut file still shows what it has; that much memory hurts nobody.
inline bool IsBacked(std::int64_t width, std::int64_t height, std::size_t bytes, std::int64_t pixelsPerByte) {
  constexpr std::int64_t Harmless = std::int64_t{16} * 1024 * 1024;
  if (width < 1 || height < 1 || width > LongestSide || height > LongestSide) return false;
  const std::int64_t pixels = width * height;
  return pixels <= Harmless || pixels / pixelsPerByte <= static_cast<std::int64_t>(bytes);
}

// A picture that its data backs and that is too large all the same is a lack of memory: raises OutOfMemory.
inline void RefuseTooLarge(std::int64_t width, std::int64_t height, std::int64_t mostPixels) {
  if (width * height > mostPixels) throw RuntimeError(error::OutOfMemory);
}

}  // namespace pixorra
