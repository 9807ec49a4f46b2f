// The mouse: presses and clicks, and what is under it.
#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/HitTest.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

Control* Toolkit::ControlAt(Form& form, int x, int y) {
  return pixorra::ControlAt(form, x, y);
}

void Toolkit::MousePressed(Form& form, int x, int y, int button, int shift) {
  Press(form, x, y, button, shift, PressKind::Single);
}

void Toolkit::MouseDoubleClicked(Form& form, int x, int y, int button, int shift) {
  Press(form, x, y, button, shift, PressKind::Double);
}

void Toolkit::Press(Form& form, int x, int y, int button, int shift, PressKind kind) {
  if (!TakesInput(form) || drags_.Runs()) return;
  if (pressed_ && pressedButton_ != 0 && pressedButton_ != button) {
    // A second button while one is held is for the control that got the first.
    Raise(pressed_->On().MouseDown, *pressed_.Get(), MouseArgsFor(*pressed_.Get(), x, y, button, shift));
    return;
  }
  // Only the keyboard puts the focus on a light control: who takes the mouse has left it.
  if (const Control* focus = Focus(); focus != nullptr && TraitsOf(focus->GetKind()).Shown == ShownAs::Light)
    SetFocus(nullptr);
  const Watch<Control> control(*ControlAt(form, x, y));
  if (control->AutomaticDrag() && button == button::Left) {
    ReleaseCapture();  // the drag has the mouse from here on
    drags_.Begin(form, *control.Get(), x, y);
    return;
  }
  pressed_ = control;
  pressedButton_ = button;
  secondPress_ = false;
  if (kind == PressKind::Double && button == button::Left) {
    secondPress_ = true;  // the release that follows is no further click
    Raise(control->On().DblClick, *control.Get());
    return;
  }
  Raise(control->On().MouseDown, *control.Get(), MouseArgsFor(*control.Get(), x, y, button, shift));
}

void Toolkit::MouseMoved(Form& form, int x, int y, int buttons, int shift) {
  if (drags_.Runs()) {
    drags_.Move(form, x, y);
    return;
  }
  if (!TakesInput(form)) return;
  // A control that was pressed keeps the mouse until it is let go.
  const Watch<Control> control(pressed_ && buttons != 0 ? *pressed_.Get() : *ControlAt(form, x, y));
  Hover(form, ControlAt(form, x, y));
  if (control) Raise(control->On().MouseMove, *control.Get(), MouseArgsFor(*control.Get(), x, y, buttons, shift));
  backend_.PointerChanged(form);
}

// A drag is over before its drop is raised: what the drop asks of a person is shown with the mouse free.
void Toolkit::MouseReleased(Form& form, int x, int y, int button, int shift) {
  if (drags_.Runs()) {
    if (button != button::Left) return;
    const Drags::Drop drop = drags_.End(form, x, y);
    if (!drop.Source || !drop.Target || !TakesInput(form)) return;
    const MouseArgs at = MouseArgsFor(*drop.Target.Get(), x, y, 0, 0);
    Raise(drop.Target->On().DragDrop, *drop.Target.Get(), DragArgs{*drop.Source.Get(), at.X, at.Y});
    return;
  }
  const Watch<Control> control = pressed_;
  const bool held = pressedButton_ == button;
  const bool clicks = held && button == button::Left && !secondPress_;
  if (held) ReleaseCapture();
  if (!control || !TakesInput(form)) return;
  const bool within = ControlAt(form, x, y) == control.Get();
  Raise(control->On().MouseUp, *control.Get(), MouseArgsFor(*control.Get(), x, y, button, shift));
  if (clicks && within && control) Raise(control->On().Click, *control.Get());
}

void Toolkit::MouseLeft(Form& form) {
  if (drags_.Runs()) {
    drags_.Move(form, -1, -1);
    return;
  }
  Hover(form, nullptr);
}

bool Toolkit::WheelTurned(Form& form, int x, int y, const WheelArgs& turn) {
  if (!TakesInput(form) || drags_.Runs()) return false;
  Control* control = ControlAt(form, x, y);
  // A widget acts on the wheel by itself unless the program has a use for it.
  const bool widget = TraitsOf(control->GetKind()).Shown == ShownAs::Widget;
  while (control != nullptr && !control->On().MouseWheel) control = widget ? nullptr : control->GetContainer();
  if (control == nullptr) return false;
  WheelArgs args = turn;
  if ((turn.Shift & shift::Shift) != 0 && turn.NotchesX == 0 && turn.PixelsX == 0) {
    std::swap(args.NotchesX, args.NotchesY);
    std::swap(args.PixelsX, args.PixelsY);
  }
  const MouseArgs at = MouseArgsFor(*control, x, y, 0, turn.Shift);
  args.X = at.X;
  args.Y = at.Y;
  Raise(control->On().MouseWheel, *control, args);
  return true;
}

void Toolkit::Hover(Form& form, Control* control) {
  if (hovered_.Get() == control) return;
  hovered_ = Watch<Control>::Of(control);
  backend_.PointerChanged(form);
}

std::string Toolkit::ToolTipAt(Form& form, int x, int y) {
  if (!TakesInput(form) || drags_.Runs()) return {};
  return ControlAt(form, x, y)->ToolTipText();
}

Toolkit::PointerShown Toolkit::PointerFor(Form& form) {
  if (form.MousePointer() != pointer::Default) return {form.MousePointer(), form.MouseIcon()};
  const Control* control = hovered_.Get();
  if (control == nullptr || control->GetContainer() == nullptr || &control->GetForm() != &form) return {};
  if (control->MousePointer() == pointer::Hand) return {pointer::Custom, looks_.Hand()};
  return {control->MousePointer(), control->MouseIcon()};
}

void Toolkit::PointerChanged(Control& control) {
  if (&control == hovered_.Get() || control.GetKind() == Kind::Form) backend_.PointerChanged(control.GetForm());
}

void Toolkit::CancelDrag() {
  ReleaseCapture();
  drags_.Cancel();
}

// The press that brought up a window is let go over that window: what was pressed never gets the release.
void Toolkit::ReleaseCapture() {
  pressed_ = {};
  pressedButton_ = 0;
}

}  // namespace pixorra
