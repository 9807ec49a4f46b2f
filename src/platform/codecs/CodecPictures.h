// Picture files of the three kinds that the program knows, and the bitmap files that it writes.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"
#include "platform/services/Pictures.h"

namespace pixorra {

class ByteReader;
class DecodeAhead;

class CodecPictures final : public Pictures {
 public:
  // What was decoded ahead, if anything, serves FromBytes where the bytes are the same, and Load where the file is.
  explicit CodecPictures(Files& files, DecodeAhead* ahead = nullptr) : files_(files), ahead_(ahead) {}

  Picture Load(const std::string& path) override;
  Picture Load(File& file) override;
  Picture LoadToPaint(File& file, const PaintedSizes& sizes) override;
  Picture FromBytes(std::span<const std::uint8_t> file) override;
  std::vector<std::uint8_t> BitmapFile(const Picture& picture) override;
  void Save(const Picture& picture, const std::string& path) override;
  Picture SaveAndLoad(const Picture& picture, const std::string& path) override;

 private:
  Files& files_;
  DecodeAhead* ahead_;
};

// The picture in a file's bytes: a bitmap ("BM"), a GIF ("GIF") or a JPEG (FF D8), recognised by its first bytes.
// JPEG pictures come upright. Raises BadPicture and OutOfMemory, as Load does.
Bitmap DecodePicture(std::span<const std::uint8_t> file);
// The same of a bitmap or a GIF alone, which are read part by part: raises OutOfMemory above so many pixels too, and
// what reading does.
Bitmap DecodeBmpOrGif(ByteReader& in, std::int64_t mostPixels);

// A bitmap file: 54 bytes of header, then the rows bottom-up at 24 bits, padded to 4 bytes with zeros. The resolution
// fields are 0, so that the same pixels always make the same file. What is transparent is drawn over white.
std::vector<std::uint8_t> EncodeBmp(const Bitmap& bitmap);

}  // namespace pixorra
