#include "platform/controls/HitTest.h"

#include "platform/controls/Form.h"

namespace pixorra {

namespace {

bool TakesMouse(const Control& control) {
  return TraitsOf(control.GetKind()).TakesMouse && control.Visible() && control.Enabled();
}

// Coordinates are the container's own.
Control* FrontAt(Container& container, int x, int y) {
  Control* front = nullptr;
  const std::vector<Rect>& places = container.Places();
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (!places[i].Contains(x, y)) continue;
    Control* control = container.Controls()[i];
    if (!TakesMouse(*control)) continue;
    if (front == nullptr || control->ZOrder() > front->ZOrder()) front = control;
  }
  if (front == nullptr) return &container;
  Container* inner = AsContainer(*front);
  return inner != nullptr ? FrontAt(*inner, x - inner->Left(), y - inner->Top()) : front;
}

}  // namespace

Control* ControlAt(Form& form, int x, int y) {
  return FrontAt(form, x, y);
}

MouseArgs MouseArgsFor(const Control& control, int x, int y, int button, int shift) {
  const Rect at = control.GetContainer() != nullptr ? control.FormRect() : Rect{};
  return {button, shift, static_cast<double>(x - at.Left), static_cast<double>(y - at.Top)};
}

}  // namespace pixorra
