// What cameras note in a JPEG file: the Exif data, which is a TIFF structure. After the Exif standard, CIPA DC-008.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace pixorra {

class ExifData {
 public:
  // Of a JPEG file, or of its beginning. One that notes none, and one whose note is damaged, has empty data.
  explicit ExifData(std::span<const std::uint8_t> jpeg);

  // What the first directory has under a tag: a number of 16 bits by itself; else nothing.
  std::optional<unsigned> Short(unsigned tag) const;
  // The small JPEG file that comes with the picture; empty where there is none, or not all of it.
  std::span<const std::uint8_t> Thumbnail() const;

 private:
  std::size_t Number(std::size_t at, std::size_t length) const;
  // Where the tag's entry begins, 0 where there is none.
  std::size_t Entry(std::size_t directory, unsigned tag) const;

  std::span<const std::uint8_t> tiff_;
  bool littleEndian_ = false;
  std::size_t first_ = 0;   // directory; 0: none
  std::size_t second_ = 0;  // the thumbnail's
};

}  // namespace pixorra
