// Photos made ready to cover a screen, while the program goes on: reading and decoding one may take long.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"

namespace pixorra {

struct PhotoFrame {
  Picture Shown;    // of the screen's size, four bytes a pixel, opaque; nothing where the photo cannot be shown
  FileStamp Stamp;  // of the file that it was made of
};

class PhotoFrames {
 public:
  using Handler = std::function<void(const PhotoFrame&)>;
  // A frame that is being made. When this ends before it is ready, the handler is not called.
  class Making {
   public:
    virtual ~Making() = default;
  };

  virtual ~PhotoFrames() = default;

  // The photo upright and whole in the middle of black, as large as the screen (in its own pixels) has room for, but at
  // most twice its own size. `known` is what was made of the same path before, or nothing: it serves again where the
  // file is unchanged and the size is the same; so does a frame of nothing with the stamp of a damaged file. The path
  // is one that a folder reader has given, spelled as on the disk. The handler is called at most once, in the program's
  // thread, from a later turn of its loop; it may end its own making, and begin others. Raises OutOfMemory where no
  // thread can be had.
  [[nodiscard]] virtual std::unique_ptr<Making> Make(const std::string& path, PixelSize screen, const PhotoFrame& known,
                                                     Handler handler) = 0;
};

}  // namespace pixorra
