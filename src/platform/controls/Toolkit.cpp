#include "platform/controls/Toolkit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"
#include "platform/runtime/AtExit.h"

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

void Toolkit::AskToEnd() {
  endAsked_ = true;
  FrontChanged();
}

void Toolkit::SetEnder(std::function<void()> end) {
  end_ = std::move(end);
  FrontChanged();
}

void Toolkit::ContinueEnding() {
  if (ended_) return;
  if (drags_.Runs()) CancelDrag();
  if (backend_.CloseFront()) {
    FrontChanged();
    return;
  }
  // The box closes when control is back in its own loop, and reports it.
  if (windows_.IsBoxUp()) return;
  if (Form* modal = windows_.Modal()) {
    modal->UserClosed();
    // What could not be closed now, as it is about to come up or to go, is tried again.
    if (windows_.Modal() == modal) FrontChanged();
    return;
  }
  // Once: closing the main window may let events run.
  const std::function<void()> end = std::exchange(end_, {});
  if (!end) return;
  // Also where it raises.
  const AtExit done([this] {
    if (!ended_) End();
  });
  end();
}

// Something else is in front now: an end that has been asked for goes on with it.
void Toolkit::FrontChanged() {
  if (endAsked_ && !ended_) backend_.PostEnding();
}

void Toolkit::PushBox() {
  windows_.PushBox();
  ReleaseCapture();
  FrontChanged();
}

void Toolkit::PopBox() {
  windows_.PopBox();
  FrontChanged();
}

void Toolkit::PushModal(Form& form) {
  ReleaseCapture();
  windows_.PushModal(form);
  FrontChanged();
}

void Toolkit::PopModal(Form& form) {
  windows_.PopModal(form);
  FrontChanged();
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

int Toolkit::ScreenAt(double twipsX, double twipsY) {
  // The right and the bottom edge are the next screen's: there it is one pixel beyond this one.
  const auto beyond = [](double at, double first, double size) {
    return std::max({first - at, at - (first + size - TwipsPerPixel), 0.0});
  };
  int nearest = 0;
  double least = std::numeric_limits<double>::infinity();
  for (int number = 0; number < ScreenCount(); ++number) {
    const Screen screen = GetScreen(number);
    const double distance =
        std::hypot(beyond(twipsX, screen.Left, screen.Width), beyond(twipsY, screen.Top, screen.Height));
    if (distance >= least) continue;
    nearest = number;
    least = distance;
  }
  return nearest;
}

}  // namespace pixorra
