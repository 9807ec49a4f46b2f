// Picture files: read into picture objects, and written as bitmap files.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/pixels/Picture.h"

namespace pixorra {

class Pictures {
 public:
  virtual ~Pictures() = default;
  // Reads a bitmap, GIF (its first frame) or JPEG file, told by its first bytes, at its own size. Raises 53 and 75
  // where the file cannot be read, 481 where it is no picture or is damaged beyond showing, 7 where memory runs out.
  virtual Picture Load(const std::string& path) = 0;
  // The picture in such a file's bytes. Raises 481 and 7, as Load does.
  virtual Picture FromBytes(std::span<const std::uint8_t> file) = 0;
  // A 24-bit bottom-up bitmap file: 54 bytes of header, then the rows. Raises 380 for nothing.
  virtual std::vector<std::uint8_t> BitmapFile(const Picture& picture) = 0;
  // Writes such a file. Raises 380 for nothing, else as files do.
  virtual void Save(const Picture& picture, const std::string& path) = 0;
  // Writes it, and gives what Load would make of it: the file is not read for that.
  virtual Picture SaveAndLoad(const Picture& picture, const std::string& path) = 0;
};

// The program's own drawings, by name ("ClosedFolder"). A picture has the size asked for, in pixels.
class Artwork {
 public:
  virtual ~Artwork() = default;
  // Raises 53 for a name that does not exist.
  virtual Picture Drawing(const std::string& name, int width, int height) = 0;
};

}  // namespace pixorra
