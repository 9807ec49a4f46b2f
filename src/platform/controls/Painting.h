// What a form paints itself: its light controls that lie in an exposed part, in the order in which they are painted.
#pragma once

#include <vector>

#include "platform/controls/Control.h"

namespace pixorra {

struct PaintItem {
  const Control* Source = nullptr;
  Rect At;    // pixels of the form's client area
  Rect Clip;  // what its containers and the exposed part leave of it
};

// A container comes before what it holds.
std::vector<PaintItem> ItemsToPaint(const Form& form, const Rect& exposed);

}  // namespace pixorra
