// Picture files: read into picture objects, and written as bitmap files.
#pragma once

#include <string>

#include "platform/services/Picture.h"

namespace pixorra {

class Pictures {
 public:
  virtual ~Pictures() = default;
  // Reads a bitmap, GIF (its first frame) or JPEG file, told by its first bytes, at its own size. Raises 53 and 75
  // where the file cannot be read, 481 where it is no picture or is damaged beyond showing, 7 where memory runs out.
  virtual Picture Load(const std::string& path) = 0;
  // Writes a 24-bit bottom-up bitmap file: 54 bytes of header, then the rows. Raises 380 for nothing, else as files do.
  virtual void Save(const Picture& picture, const std::string& path) = 0;
};

// The program's own drawings, by name ("ClosedFolder"). A picture has the size asked for, in pixels.
class Artwork {
 public:
  virtual ~Artwork() = default;
  // Raises 53 for a name that does not exist.
  virtual Picture Drawing(const std::string& name, int width, int height) = 0;
};

}  // namespace pixorra
