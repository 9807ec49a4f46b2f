#include "platform/codecs/Orientation.h"

#include <algorithm>
#include <array>
#include <optional>

namespace pixorra {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr unsigned OrientationTag = 0x0112;
constexpr unsigned ShortType = 3;
constexpr std::size_t EntryBytes = 12;

// Numbers of either byte order; 0 beyond the end, where no number of use here is.
class Reader {
 public:
  Reader(Bytes bytes, bool littleEndian) : bytes_(bytes), littleEndian_(littleEndian) {}
  std::size_t Number(std::size_t at, std::size_t length) const {
    if (at > bytes_.size() || length > bytes_.size() - at) return 0;
    std::size_t number = 0;
    for (std::size_t i = 0; i < length; ++i) number = number << 8U | bytes_[at + (littleEndian_ ? length - 1 - i : i)];
    return number;
  }

 private:
  Bytes bytes_;
  bool littleEndian_;
};

// In the TIFF structure that Exif data is.
int OrientationIn(Bytes tiff) {
  if (tiff.size() < 8) return 1;
  const bool little = tiff[0] == 'I' && tiff[1] == 'I';
  if (!little && (tiff[0] != 'M' || tiff[1] != 'M')) return 1;
  const Reader read(tiff, little);
  if (read.Number(2, 2) != 42) return 1;
  const std::size_t directory = read.Number(4, 4);
  const std::size_t entries = read.Number(directory, 2);
  for (std::size_t i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + i * EntryBytes;
    if (entry + EntryBytes > tiff.size()) break;
    if (read.Number(entry, 2) != OrientationTag) continue;
    const std::size_t value = read.Number(entry + 8, 2);
    const bool sound = read.Number(entry + 2, 2) == ShortType && read.Number(entry + 4, 4) == 1;
    return sound && value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
  }
  return 1;
}

}  // namespace

int OrientationOf(Bytes jpeg) {
  constexpr std::array<std::uint8_t, 6> Exif{'E', 'x', 'i', 'f', 0, 0};
  constexpr std::uint8_t App1 = 0xE1;
  constexpr std::uint8_t StartOfScan = 0xDA;
  if (jpeg.size() < 2 || jpeg[0] != 0xFF || jpeg[1] != 0xD8) return 1;
  // One segment after the other; the length of each counts its own two bytes.
  for (std::size_t at = 2; at + 4 <= jpeg.size();) {
    if (jpeg[at] != 0xFF) return 1;
    const std::uint8_t marker = jpeg[at + 1];
    if (marker == 0xFF) {  // a fill byte
      ++at;
      continue;
    }
    if (marker == StartOfScan) return 1;
    const std::size_t length = static_cast<std::size_t>(jpeg[at + 2]) << 8U | jpeg[at + 3];
    if (length < 2 || length > jpeg.size() - at - 2) return 1;
    const Bytes content = jpeg.subspan(at + 4, length - 2);
    if (marker == App1 && content.size() > Exif.size() && std::equal(Exif.begin(), Exif.end(), content.begin()))
      return OrientationIn(content.subspan(Exif.size()));
    at += 2 + length;
  }
  return 1;
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
