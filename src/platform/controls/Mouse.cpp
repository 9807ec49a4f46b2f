// The mouse: which control is under it, presses and clicks, and automatic drags.
#include <algorithm>

#include "platform/controls/Container.h"
#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

namespace {

// Shapes are drawn things; timers, menus and file lists have no place on a form.
bool TakesMouse(const Control& control) {
  switch (control.GetKind()) {
    case Kind::Shape:
    case Kind::Timer:
    case Kind::MenuItem:
    case Kind::FileListBox:
      return false;
    default:
      return control.Visible() && control.Enabled();
  }
}

// Coordinates are the container's own.
Control* FrontAt(Container& container, int x, int y) {
  Control* front = nullptr;
  for (Control* control : container.Controls()) {
    if (!control->Bounds().Contains(x, y) || !TakesMouse(*control)) continue;
    if (front == nullptr || control->ZOrder() > front->ZOrder()) front = control;
  }
  if (front == nullptr) return &container;
  Container* inner = AsContainer(*front);
  return inner != nullptr ? FrontAt(*inner, x - inner->Left(), y - inner->Top()) : front;
}

MouseArgs ArgsFor(const Control& control, int x, int y, int button, int shift) {
  const Rect at = control.GetContainer() != nullptr ? control.FormRect() : Rect{};
  return {button, shift, static_cast<double>(x - at.Left), static_cast<double>(y - at.Top)};
}

}  // namespace

Control* Toolkit::ControlAt(Form& form, int x, int y) {
  return FrontAt(form, x, y);
}

void Toolkit::MousePressed(Form& form, int x, int y, int button, int shift) {
  Press(form, x, y, button, shift, false);
}

void Toolkit::MouseDoubleClicked(Form& form, int x, int y, int button, int shift) {
  Press(form, x, y, button, shift, true);
}

void Toolkit::Press(Form& form, int x, int y, int button, int shift, bool second) {
  if (!TakesInput(form) || dragSource_) return;
  if (pressed_ && pressedButton_ != 0 && pressedButton_ != button) {
    // A second button while one is held goes where the first one went.
    Raise(pressed_->On().MouseDown, *pressed_.Get(), ArgsFor(*pressed_.Get(), x, y, button, shift));
    return;
  }
  const Watch<Control> control(*ControlAt(form, x, y));
  pressed_ = control;
  pressedButton_ = button;
  secondPress_ = false;
  if (control->AutomaticDrag() && button == button::Left) {
    BeginDrag(form, *control.Get(), x, y);
    return;
  }
  if (second && button == button::Left) {
    secondPress_ = true;  // the release that follows is no further click
    Raise(control->On().DblClick, *control.Get());
    return;
  }
  Raise(control->On().MouseDown, *control.Get(), ArgsFor(*control.Get(), x, y, button, shift));
}

void Toolkit::MouseMoved(Form& form, int x, int y, int buttons, int shift) {
  if (dragSource_) {
    MoveDrag(form, x, y);
    return;
  }
  if (!TakesInput(form)) return;
  // A control that was pressed keeps the mouse until it is let go.
  const Watch<Control> control(pressed_ && buttons != 0 ? *pressed_.Get() : *ControlAt(form, x, y));
  Hover(form, ControlAt(form, x, y));
  if (control) Raise(control->On().MouseMove, *control.Get(), ArgsFor(*control.Get(), x, y, buttons, shift));
  backend_.PointerChanged(form);
}

void Toolkit::MouseReleased(Form& form, int x, int y, int button, int shift) {
  if (dragSource_) {
    if (button == button::Left) EndDrag(form, x, y);
    return;
  }
  const Watch<Control> control = pressed_;
  const bool held = pressedButton_ == button;
  const bool clicks = held && button == button::Left && !secondPress_;
  if (held) ReleaseCapture();
  if (!control || !TakesInput(form)) return;
  const bool within = ControlAt(form, x, y) == control.Get();
  Raise(control->On().MouseUp, *control.Get(), ArgsFor(*control.Get(), x, y, button, shift));
  if (clicks && within && control) Raise(control->On().Click, *control.Get());
}

void Toolkit::MouseLeft(Form& form) {
  if (dragSource_) {
    MoveDrag(form, -1, -1);
    return;
  }
  Hover(form, nullptr);
}

void Toolkit::Hover(Form& form, Control* control) {
  if (hovered_.Get() == control) return;
  hovered_ = control != nullptr ? Watch<Control>(*control) : Watch<Control>();
  backend_.PointerChanged(form);
}

std::string Toolkit::ToolTipAt(Form& form, int x, int y) {
  if (!TakesInput(form) || dragSource_) return {};
  return ControlAt(form, x, y)->ToolTipText();
}

Toolkit::PointerShown Toolkit::PointerFor(Form& form) {
  if (form.MousePointer() != pointer::Default) return {form.MousePointer(), form.MouseIcon()};
  const Control* control = hovered_.Get();
  if (control == nullptr || control->GetContainer() == nullptr || &control->GetForm() != &form) return {};
  if (control->MousePointer() == pointer::Hand) return {pointer::Custom, hand_};
  return {control->MousePointer(), control->MouseIcon()};
}

void Toolkit::PointerChanged(Control& control) {
  if (&control == hovered_.Get() || control.GetKind() == Kind::Form) backend_.PointerChanged(control.GetForm());
}

// --- drags: the source is its own first target, at the moment of the press
// ------------------------------------------------

void Toolkit::BeginDrag(Form& form, Control& source, int x, int y) {
  const Rect at = source.FormRect();
  dragSource_ = Watch<Control>(source);
  dragTarget_ = {};
  dragForm_ = Watch<Form>(form);
  grabX_ = x - at.Left;
  grabY_ = y - at.Top;
  MoveDrag(form, x, y);
}

void Toolkit::MoveDrag(Form& form, int x, int y) {
  dragForm_ = Watch<Form>(form);
  dragX_ = x;
  dragY_ = y;
  backend_.DragChanged();
  const bool inside = Rect{0, 0, form.ScaleWidth(), form.ScaleHeight()}.Contains(x, y);
  Control* now = inside ? ControlAt(form, x, y) : nullptr;
  const Watch<Control> target = now != nullptr ? Watch<Control>(*now) : Watch<Control>();
  const Watch<Control> before = dragTarget_;
  const auto over = [&](const Watch<Control>& control, int state) {
    if (!control || !dragSource_) return;
    const MouseArgs at = ArgsFor(*control.Get(), x, y, 0, 0);
    Raise(control->On().DragOver, *control.Get(), *dragSource_.Get(), at.X, at.Y, state);
  };
  dragTarget_ = target;
  if (before.Get() == target.Get()) {
    over(target, drag::Over);
    return;
  }
  over(before, drag::Leave);
  over(target, drag::Enter);
}

// The drag is over before its drop is told: what the drop asks of the user comes up with the mouse free.
void Toolkit::EndDrag(Form& form, int x, int y) {
  Watch<Control> source;
  Watch<Control> target;
  {
    // It ends also where a handler raises on this last move.
    struct Over {
      Toolkit& toolkit;
      ~Over() { toolkit.CancelDrag(); }
    } const over{*this};
    MoveDrag(form, x, y);
    source = dragSource_;
    target = dragTarget_;
  }
  if (!source || !target || !TakesInput(form)) return;
  const MouseArgs at = ArgsFor(*target.Get(), x, y, 0, 0);
  Raise(target->On().DragDrop, *target.Get(), *source.Get(), at.X, at.Y);
}

void Toolkit::CancelDrag() {
  dragSource_ = {};
  dragTarget_ = {};
  ReleaseCapture();
  backend_.DragChanged();
}

Toolkit::DragShown Toolkit::Drag() const {
  DragShown shown;
  shown.Source = dragSource_.Get();
  if (shown.Source == nullptr) return shown;
  shown.Over = dragForm_.Get();
  shown.X = dragX_;
  shown.Y = dragY_;
  shown.Outline = {dragX_ - grabX_, dragY_ - grabY_, shown.Source->Width(), shown.Source->Height()};
  return shown;
}

void Toolkit::DragIconChanged(Control& control) {
  if (&control == dragSource_.Get()) backend_.DragChanged();
}

}  // namespace pixorra
