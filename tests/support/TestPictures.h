// Small picture files made on the spot, as bytes to write to a test's disk, and pixels to put in them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/pixels/Picture.h"

namespace pixorra {

// Smooth colours that differ in every place and direction: blue grows to the right, green downwards, red falls along
// both.
Bitmap SmoothBitmap(int width, int height);
Bitmap PlainBitmap(int width, int height, Colour colour);

struct JpegFile {
  int channels = 3;  // 1, 3, or 4 inks
  int quality = 90;
  bool progressive = false;
  bool fullColour = false;  // colour at every pixel, not every second one both ways
  bool exif = false;        // bytes 7 to 10 spell Exif and not JFIF
  bool noName = false;      // neither of the two
  int exifOrientation = 1;  // 1 to 8, noted only with `exif`
  std::string thumbnail =
      {};  // a small JPEG file that comes in the Exif data, of less than 60,000 bytes; only with `exif`
};

// A JPEG file of these pixels.
std::string JpegOf(const Bitmap& bitmap, const JpegFile& file = {});
// The smooth bitmap of that size as a JPEG file.
std::string JpegPhoto(int width, int height, const JpegFile& file = {});

// The file with the size in its header changed to another; its data stays.
std::string WithJpegSize(std::string jpeg, int width, int height);

// A 24-bit bottom-up bitmap file.
std::string BmpOf(const Bitmap& bitmap);
std::string BmpPhoto(int width, int height);

struct GifFile {
  int transparent = -1;  // the colour's index
  bool interlaced = false;
};

// An 89a file with a palette of 256 colours, colour i being red i, green 255 - i, blue i / 2; pixel (x, y) has colour
// `index(x, y)`.
std::string GifOf(int width, int height, const std::function<std::uint8_t(int, int)>& index, const GifFile& file = {});
std::string GifPhoto(int width, int height, const GifFile& file = {});

}  // namespace pixorra
