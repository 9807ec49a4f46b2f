// Where a photo lies on a page. The same sums serve the printed page, in twips, and its preview, in pixels.
#pragma once

#include <cstdint>

namespace pixorra {

struct PageRect {
  std::int32_t X = 0;
  std::int32_t Y = 0;
  std::int32_t W = 0;
  std::int32_t H = 0;

  bool operator==(const PageRect&) const = default;
};

// In the middle of a page of that size. `zoom` scales the height of an upright photo and the width of any other: at 1
// that side is the page's. `ratio` is the photo's width over its height. Raises Overflow beyond 32 bits.
PageRect PlaceOnPage(float pageWidth, float pageHeight, float zoom, float ratio);

// The part of a photo of that size that is seen of a place that begins to the left of the page or above it, in the
// photo's own units. Takes as much off the place's width and height; its left and top stay.
PageRect CutAtPageEdges(PageRect& place, std::int32_t photoWidth, std::int32_t photoHeight);

}  // namespace pixorra
