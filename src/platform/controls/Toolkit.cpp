#include "platform/controls/Toolkit.h"

#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"

namespace pixorra {

void Toolkit::DoEvents() {
  timers_.Stirred();
  if (!ended_) backend_.ProcessEvents();
}

bool Toolkit::WaitUntil(const std::function<bool()>& done) {
  timers_.Stirred();
  while (!done()) {
    if (ended_) return false;
    backend_.WaitForEvents(std::nullopt);
  }
  return true;
}

bool Toolkit::WaitUntil(const std::function<bool()>& done, double seconds) {
  timers_.Stirred();
  const double end = backend_.Seconds() + seconds;
  for (double left = seconds; !done(); left = end - backend_.Seconds()) {
    if (ended_ || left <= Timers::SameMoment) return false;
    backend_.WaitForEvents(left);
  }
  return true;
}

bool Toolkit::WaitFor(double seconds) {
  WaitUntil([] { return false; }, seconds);
  return !ended_;
}

void Toolkit::End() {
  ended_ = true;
  timers_.Stop();
  backend_.EndLoop();
}

void Toolkit::PushBox() {
  windows_.PushBox();
  ReleaseCapture();
}

void Toolkit::PushModal(Form& form) {
  ReleaseCapture();
  windows_.PushModal(form);
}

void Toolkit::PopupMenu(Form& form, MenuItem& menu) {
  ReleaseCapture();
  Raise(menu.On().Click, static_cast<Control&>(menu));
  backend_.PopupMenu(form, menu);
}

void Toolkit::UserFocused(Control& control) {
  if (control.Enabled() && control.IsShown()) SetFocus(&control);
}

void Toolkit::Forget(Control& control) {
  drags_.Forget(control);
  windows_.Forget(control);
}

}  // namespace pixorra
