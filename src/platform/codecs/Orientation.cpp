#include "platform/codecs/Orientation.h"

#include "platform/codecs/ExifData.h"

namespace pixorra {

int OrientationOf(std::span<const std::uint8_t> jpeg) {
  constexpr unsigned OrientationTag = 0x0112;
  const unsigned noted = ExifData(jpeg).Short(OrientationTag).value_or(1);
  return noted >= 1 && noted <= 8 ? static_cast<int>(noted) : 1;
}

TurnedPlaces PlacesFor(int orientation, int width, int height, std::uint8_t* topRow, std::ptrdiff_t step,
                       int bytesPerPixel) {
  const std::ptrdiff_t right = std::ptrdiff_t{width - 1} * bytesPerPixel;
  const std::ptrdiff_t bottom = std::ptrdiff_t{height - 1} * step;
  // Of the upright picture where that one is as wide as the stored one is high.
  const std::ptrdiff_t turnedRight = std::ptrdiff_t{height - 1} * bytesPerPixel;
  const std::ptrdiff_t turnedBottom = std::ptrdiff_t{width - 1} * step;
  const std::ptrdiff_t pixel = bytesPerPixel;
  switch (orientation) {
    case 2:  // mirrored
      return {topRow + right, -pixel, step};
    case 3:  // upside down
      return {topRow + bottom + right, -pixel, -step};
    case 4:  // upside down and mirrored
      return {topRow + bottom, pixel, -step};
    case 5:  // the first row is the left edge
      return {topRow, step, pixel};
    case 6:  // the first row is the right edge
      return {topRow + turnedRight, step, -pixel};
    case 7:  // the first row is the right edge, from below
      return {topRow + turnedBottom + turnedRight, -step, -pixel};
    case 8:  // the first row is the left edge, from below
      return {topRow + turnedBottom, -step, pixel};
    default:
      return {topRow, pixel, step};
  }
}

}  // namespace pixorra
