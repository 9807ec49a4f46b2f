// The system clipboard, in bitmap format.
#pragma once

#include "platform/pixels/Picture.h"

namespace pixorra {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual bool HasBitmap() = 0;
  // What a program has put there, with what is transparent in it; nothing where HasBitmap is false, and where the
  // picture cannot be had: it is damaged, or its program does not answer. Raises OutOfMemory or Overflow for one that
  // is too large.
  virtual Picture GetBitmap() = 0;
  virtual void Clear() = 0;
  // In the place of all that is there; on white where it is transparent. An empty picture leaves the clipboard as it
  // is. What was put there outlives the program where the desktop keeps it. Raises OutOfMemory.
  virtual void SetBitmap(const Picture& picture) = 0;
};

}  // namespace pixorra
