// A peer shows one control on a back end: a one-way mirror that reads the control and never answers for it.
#pragma once

#include "platform/controls/Geometry.h"

namespace pixorra {

// What of a control has changed.
enum class Change {
  Position,  // place, size, or a container's
  Visible,   // its own, or a container's
  Enabled,
  Look,      // picture, colours, border, pointer, tool tip, checked
  Text,      // caption, text, title, selection within it
  Value,     // value and its range
  Items,     // entries of a list or tree, and which is selected
  Focus,     // it has taken the focus
  State,     // a form's window state, modality or owner, staying on top
  Menu,      // something in a form's menu
  Controls,  // a form has one more control that needs a widget
  Refresh,   // show now what waits to be shown
};

class Peer {
 public:
  virtual ~Peer() = default;
  virtual void Update(Change change) = 0;
  // For forms: a part of what is painted is out of date, in pixels of the client area.
  virtual void Invalidate(const Rect&) {}
};

}  // namespace pixorra
