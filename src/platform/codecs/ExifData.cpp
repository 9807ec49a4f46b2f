#include "platform/codecs/ExifData.h"

#include <algorithm>
#include <array>

#include "platform/codecs/PictureKind.h"

namespace pixorra {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr unsigned ShortType = 3;
constexpr unsigned LongType = 4;
constexpr std::size_t EntryBytes = 12;

constexpr unsigned ThumbnailPlaceTag = 0x0201;
constexpr unsigned ThumbnailLengthTag = 0x0202;

// The TIFF structure in a JPEG file.
Bytes TiffIn(Bytes jpeg) {
  constexpr std::array<std::uint8_t, 6> Exif{'E', 'x', 'i', 'f', 0, 0};
  constexpr std::uint8_t App1 = 0xE1;
  constexpr std::uint8_t StartOfScan = 0xDA;
  if (!IsJpeg(jpeg)) return {};
  // One segment after the other; the length of each counts its own two bytes.
  for (std::size_t at = 2; at + 4 <= jpeg.size();) {
    if (jpeg[at] != 0xFF) return {};
    const std::uint8_t marker = jpeg[at + 1];
    if (marker == 0xFF) {  // a fill byte
      ++at;
      continue;
    }
    if (marker == StartOfScan) return {};
    const std::size_t length = static_cast<std::size_t>(jpeg[at + 2]) << 8U | jpeg[at + 3];
    if (length < 2 || length > jpeg.size() - at - 2) return {};
    const Bytes content = jpeg.subspan(at + 4, length - 2);
    if (marker == App1 && content.size() > Exif.size() && std::equal(Exif.begin(), Exif.end(), content.begin()))
      return content.subspan(Exif.size());
    at += 2 + length;
  }
  return {};
}

}  // namespace

ExifData::ExifData(Bytes jpeg) : tiff_(TiffIn(jpeg)) {
  if (tiff_.size() < 8) return;
  littleEndian_ = tiff_[0] == 'I' && tiff_[1] == 'I';
  if (!littleEndian_ && (tiff_[0] != 'M' || tiff_[1] != 'M')) return;
  if (Number(2, 2) != 42) return;
  first_ = Number(4, 4);
  second_ = first_ == 0 ? 0 : Number(first_ + 2 + Number(first_, 2) * EntryBytes, 4);
}

// Of either byte order; 0 beyond the end, where no number of use here is.
std::size_t ExifData::Number(std::size_t at, std::size_t length) const {
  if (at > tiff_.size() || length > tiff_.size() - at) return 0;
  std::size_t number = 0;
  for (std::size_t i = 0; i < length; ++i) number = number << 8U | tiff_[at + (littleEndian_ ? length - 1 - i : i)];
  return number;
}

std::size_t ExifData::Entry(std::size_t directory, unsigned tag) const {
  if (directory == 0) return 0;
  const std::size_t entries = Number(directory, 2);
  for (std::size_t i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + i * EntryBytes;
    if (entry + EntryBytes > tiff_.size()) break;
    if (Number(entry, 2) == tag) return entry;
  }
  return 0;
}

std::optional<unsigned> ExifData::Short(unsigned tag) const {
  const std::size_t entry = Entry(first_, tag);
  if (entry == 0 || Number(entry + 2, 2) != ShortType || Number(entry + 4, 4) != 1) return std::nullopt;
  return static_cast<unsigned>(Number(entry + 8, 2));
}

Bytes ExifData::Thumbnail() const {
  const std::size_t place = Entry(second_, ThumbnailPlaceTag);
  const std::size_t length = Entry(second_, ThumbnailLengthTag);
  if (place == 0 || length == 0) return {};
  if (Number(place + 2, 2) != LongType || Number(length + 2, 2) != LongType) return {};
  const std::size_t at = Number(place + 8, 4);
  const std::size_t bytes = Number(length + 8, 4);
  if (at > tiff_.size() || bytes > tiff_.size() - at) return {};
  return tiff_.subspan(at, bytes);
}

}  // namespace pixorra
