// The system clipboard, in bitmap format.
#pragma once

#include "platform/pixels/Picture.h"

namespace pixorra {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual bool HasBitmap() = 0;
  virtual Picture GetBitmap() = 0;  // nothing where HasBitmap is false
  virtual void Clear() = 0;
  // An empty picture leaves the clipboard as it is.
  virtual void SetBitmap(const Picture& picture) = 0;
};

}  // namespace pixorra
