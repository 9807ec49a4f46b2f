// Picture files: read into picture objects, and written as bitmap files.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/pixels/Picture.h"

namespace pixorra {

class File;

class Pictures {
 public:
  virtual ~Pictures() = default;
  // Reads a bitmap, GIF (its first frame) or JPEG file, recognised by its first bytes, at its own size. Raises
  // FileNotFound and PathAccess where the file cannot be read, BadPicture where it is no picture or so damaged that
  // there is nothing to show, OutOfMemory where memory runs out.
  virtual Picture Load(const std::string& path) = 0;
  // The same of an open file.
  virtual Picture Load(File& file) = 0;
  // The sizes in which a photo of that size is going to be painted whole.
  using PaintedSizes = std::function<std::vector<PixelSize>(int width, int height)>;
  // The same of a photo that is going to be painted in these sizes alone. It has the size that Load gives it, and
  // painted in one of these it looks as it would after Load, give or take what its finest lines become, but it is
  // decoded only as large as they need; without any sizes, only to know that there is something to show. Painted in
  // another size it is decoded whole then. Raises as Load does.
  virtual Picture LoadToPaint(File& file, const PaintedSizes& sizes) = 0;
  // The picture in such a file's bytes. Raises BadPicture and OutOfMemory, as Load does.
  virtual Picture FromBytes(std::span<const std::uint8_t> file) = 0;
  // A 24-bit bottom-up bitmap file: 54 bytes of header, then the rows. Raises BadPropertyValue for a
  // picture that is nothing.
  virtual std::vector<std::uint8_t> BitmapFile(const Picture& picture) = 0;
  // Writes such a file. Raises as BitmapFile does, else as Files do.
  virtual void Save(const Picture& picture, const std::string& path) = 0;
  // Writes it, and returns what Load would make of it without reading the file again. Raises as Save does.
  virtual Picture SaveAndLoad(const Picture& picture, const std::string& path) = 0;
};

// The program's own drawings, by name ("ClosedFolder"), and the desktop's icons, by the names that desktops agree on
// after "desktop:" ("desktop:user-home"); one that the desktop lacks is a plain folder's. A picture has the size asked
// for, in pixels.
class Artwork {
 public:
  virtual ~Artwork() = default;
  // Raises FileNotFound for a name that does not exist.
  virtual Picture Drawing(const std::string& name, int width, int height) = 0;
};

}  // namespace pixorra
