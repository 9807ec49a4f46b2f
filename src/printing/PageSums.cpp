#include "printing/PageSums.h"

#include <cmath>

#include "platform/runtime/Numbers.h"

namespace pixorra {

PageRect PlaceOnPage(float pageWidth, float pageHeight, float zoom, float ratio) {
  const bool upright = ratio < 1;
  const float width = upright ? pageHeight * zoom * ratio : pageWidth * zoom;
  const float height = upright ? pageHeight * zoom : pageWidth * zoom / ratio;
  return {CLng((pageWidth - width) / 2), CLng((pageHeight - height) / 2), CLng(width), CLng(height)};
}

PageRect CutAtPageEdges(PageRect& place, std::int32_t photoWidth, std::int32_t photoHeight) {
  PageRect part{0, 0, photoWidth, photoHeight};
  // What is beyond one edge, as a share of the place, of so many units; there is as much beyond the edge across.
  const auto beyond = [](std::int32_t edge, std::int32_t size, std::int32_t units) {
    return CLng(std::floor(std::abs(static_cast<double>(edge)) / size * units));
  };
  if (place.X < 0) {
    part.X = beyond(place.X, place.W, part.W);
    part.W -= 2 * part.X;
    place.W += 2 * place.X;
  }
  if (place.Y < 0) {
    // Deliberate: what is taken off the height goes by the width that is left.
    part.Y = beyond(place.Y, place.H, part.W);
    part.H -= 2 * part.Y;
    place.H += 2 * place.Y;
  }
  return part;
}

}  // namespace pixorra
