// Thumbnails made once more, with more pixels, while the program goes on.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/pixels/Picture.h"

namespace pixorra {

class ThumbnailTwins {
 public:
  // A picture of the size that was asked for, three bytes a pixel; nothing where there is none.
  using Handler = std::function<void(const Picture&)>;
  // A twin that is being made. When this ends before it is ready, the handler is not called.
  class Making {
   public:
    virtual ~Making() = default;
  };

  virtual ~ThumbnailTwins() = default;

  // What `thumbnail` shows of the photo, with the pixels of `size`: in the same place between the same bars, and with
  // the same shading. There is none where the photo cannot be shown, and none where it looks different by now. The
  // handler is called at most once, in the program's thread, from a later turn of its loop. Raises OutOfMemory where no
  // thread can be had.
  [[nodiscard]] virtual std::unique_ptr<Making> Make(const std::string& photo, const Picture& thumbnail, PixelSize size,
                                                     Handler handler) = 0;
};

}  // namespace pixorra
