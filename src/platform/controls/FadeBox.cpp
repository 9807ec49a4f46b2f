#include "platform/controls/FadeBox.h"

#include <algorithm>

namespace pixorra {

FadeBox::FadeBox(Container& container, const std::string& name)
    : Control(&container, Kind::FadeBox, std::make_shared<Identity>(Identity{name, {}}), 0) {}

void FadeBox::Show(const Picture& lower, const Picture& upper, double share) {
  share = std::clamp(share, 0.0, 1.0);
  if (lower == lower_ && upper == upper_ && share == share_) return;
  lower_ = lower;
  upper_ = upper;
  share_ = share;
  Changed(Change::Look);
}

}  // namespace pixorra
