// A clipboard of the test's own.
#pragma once

#include "platform/services/Clipboard.h"

namespace pixorra {

class HeadlessClipboard : public Clipboard {
 public:
  bool HasBitmap() override { return !bitmap_.IsNothing(); }
  Picture GetBitmap() override { return bitmap_; }
  void Clear() override { bitmap_ = Picture(); }
  void SetBitmap(const Picture& picture) override {
    if (!picture.IsNothing()) bitmap_ = picture;
  }

 private:
  Picture bitmap_;
};

}  // namespace pixorra
