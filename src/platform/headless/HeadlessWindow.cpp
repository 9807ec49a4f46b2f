#include "platform/headless/HeadlessWindow.h"

#include <algorithm>
#include <utility>

#include "platform/controls/Toolkit.h"
#include "platform/headless/HeadlessBackend.h"

namespace pixorra {

HeadlessWindow::HeadlessWindow(HeadlessBackend& backend, Form& form) : backend_(backend), form_(form) {
  backend_.Add(*this);
}

HeadlessWindow::~HeadlessWindow() {
  backend_.Remove(*this);
}

void HeadlessWindow::Update(Change change) {
  if ((change == Change::State || change == Change::Visible) && form_.Visible()) Apply(form_.WindowState());
}

void HeadlessWindow::Invalidate(const Rect& rect) {
  ++exposed_.Parts;
  const Rect& area = exposed_.Area;
  if (area.IsEmpty()) {
    exposed_.Area = rect;
    return;
  }
  const int left = std::min(area.Left, rect.Left);
  const int top = std::min(area.Top, rect.Top);
  exposed_.Area = {left, top, std::max(area.Right(), rect.Right()) - left,
                   std::max(area.Bottom(), rect.Bottom()) - top};
}

HeadlessWindow::Exposed HeadlessWindow::TakeExposed() {
  return std::exchange(exposed_, {});
}

void HeadlessWindow::UserSetState(int state) {
  Apply(state);
}

void HeadlessWindow::UserResized(double twipsWidth, double twipsHeight) {
  form_.UserResized(twipsWidth, twipsHeight, windowstate::Normal);
}

void HeadlessWindow::ScreenChanged() {
  form_.ScreenChanged();
  if (shownState_ != windowstate::Maximised || !form_.Visible()) return;
  CoverScreen();
}

// The one that the window is on.
void HeadlessWindow::CoverScreen() {
  const int number = form_.OwnToolkit().ScreenAt(form_.ShownLeft() + form_.TwipsWidth() / 2,
                                                 form_.ShownTop() + form_.TwipsHeight() / 2);
  const Screen screen = backend_.GetScreen(number);
  form_.UserPlaced(screen.Left, screen.Top);
  form_.UserResized(screen.Width, screen.Height, windowstate::Maximised);
}

// A minimised window keeps its size.
void HeadlessWindow::Apply(int state) {
  if (state == shownState_) return;
  if (shownState_ == windowstate::Normal) {
    normal_ = {form_.TwipsLeft(), form_.TwipsTop(), form_.TwipsWidth(), form_.TwipsHeight()};
  }
  shownState_ = state;
  if (state == windowstate::Maximised) {
    CoverScreen();
  } else if (state == windowstate::Minimised) {
    form_.UserResized(form_.TwipsWidth(), form_.TwipsHeight(), state);
  } else {
    form_.UserMoved(normal_.Left, normal_.Top);
    form_.UserResized(normal_.Width, normal_.Height, state);
  }
}

}  // namespace pixorra
