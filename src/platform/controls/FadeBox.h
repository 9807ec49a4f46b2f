// Two pictures, the one over the other: while more and more is seen of the upper one, the lower one fades into it. It
// takes no mouse.
#pragma once

#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

class FadeBox : public Control {
 public:
  FadeBox(Container& container, const std::string& name);

  const Picture& Lower() const { return lower_; }
  const Picture& Upper() const { return upper_; }
  double Share() const { return share_; }
  // Pictures of four bytes a pixel, opaque, each as large as the box in the screen's own pixels, or stretched to it;
  // nothing is black. The upper one is seen to that share: 0 not at all, 1 alone.
  void Show(const Picture& lower, const Picture& upper, double share);

 private:
  Picture lower_;
  Picture upper_;
  double share_ = 1;
};

}  // namespace pixorra
