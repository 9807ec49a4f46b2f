// How a camera was held: the orientation that it notes in a JPEG file's Exif data, tag 0x0112, and where a pixel lies
// once the picture is upright.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixorra {

// 1 to 8; 1, upright already, for a file that notes none, a damaged note, and what is no JPEG file.
int OrientationOf(std::span<const std::uint8_t> jpeg);

// The picture lies on its side: width and height change places when it is turned upright.
inline bool LiesOnItsSide(int orientation) {
  return orientation >= 5;
}

// Where the pixels of the stored rows lie in the upright picture's memory.
struct TurnedPlaces {
  std::uint8_t* first = nullptr;  // the stored picture's pixel at 0, 0
  std::ptrdiff_t across = 0;      // bytes from a pixel of a stored row to the next one
  std::ptrdiff_t down = 0;        // bytes from a stored row to the next one
};

// For a stored picture of `width` by `height` pixels, into upright rows of which the top one is at `topRow` and each
// next one `step` bytes further (or back).
TurnedPlaces PlacesFor(int orientation, int width, int height, std::uint8_t* topRow, std::ptrdiff_t step,
                       int bytesPerPixel);

}  // namespace pixorra
