// The desktop's clipboard.
#pragma once

#include "platform/services/Clipboard.h"

namespace pixorra {

class QtClipboard final : public Clipboard {
 public:
  bool HasBitmap() override;
  Picture GetBitmap() override;
  void Clear() override;
  void SetBitmap(const Picture& picture) override;
};

}  // namespace pixorra
