// Which control lies under the mouse.
#pragma once

#include "platform/controls/Control.h"

namespace pixorra {

// The control in front at a point in pixels of the form's client area, as it would get a press there; the form itself
// where there is no other.
Control* ControlAt(Form& form, int x, int y);

// A mouse event's parts, from a point of the form's client area to one within the control.
MouseArgs MouseArgsFor(const Control& control, int x, int y, int button, int shift);

}  // namespace pixorra
