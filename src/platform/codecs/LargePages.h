// Memory for a photo's pixels, which is written once from end to end.
#pragma once

#include <cstdint>
#include <sys/mman.h>

#include "platform/pixels/Picture.h"

namespace pixorra {

// The system hands out the bitmap's memory in pieces as large as it can: thousands of small ones take a tenth of the
// time of a decode. A wish, and nothing where it cannot be had.
inline void UseLargePages(Bitmap& bitmap) {
  constexpr std::uintptr_t Piece = std::uintptr_t{2} * 1024 * 1024;
  if (bitmap.IsEmpty()) return;
  const auto begin = reinterpret_cast<std::uintptr_t>(bitmap.Row(0));
  const std::uintptr_t end = begin + bitmap.Stride() * static_cast<std::size_t>(bitmap.Height());
  const std::uintptr_t first = (begin + Piece - 1) / Piece * Piece;
  const std::uintptr_t last = end / Piece * Piece;
  if (first < last) madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
}

}  // namespace pixorra
