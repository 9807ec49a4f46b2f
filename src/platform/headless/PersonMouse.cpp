// A person's mouse, and what it does on controls with a widget of their own.
#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/Toolkit.h"
#include "platform/headless/Person.h"

namespace pixorra {

namespace {

constexpr int DragSteps = 5;

// Widgets of their own take the mouse themselves; the form never hears of it.
bool IsWidget(const Control& control) {
  return TraitsOf(control.GetKind()).Shown == ShownAs::Widget;
}

bool TakesFocus(const Control& control) {
  return TraitsOf(control.GetKind()).TakesFocus;
}

bool TakesDrops(Control& control) {
  return static_cast<bool>(control.On().DragDrop);
}

}  // namespace

void Person::PressAt(Form& form, int x, int y, int button, int shift) {
  const Watch<Form> watch(form);
  mouseForm_ = watch;
  x_ = x;
  y_ = y;
  button_ = button;
  held_ = {};
  Act([&] {
    Activate(form);
    if (!watch) return;
    Control& control = *toolkit_.ControlAt(form, x, y);
    if (!IsWidget(control)) {
      toolkit_.MousePressed(form, x, y, button, shift);
    } else if (toolkit_.TakesInput(form)) {
      held_ = Watch<Control>(control);
      if (TakesFocus(control) && button == button::Left) toolkit_.UserFocused(control);
    }
  });
}

void Person::MoveTo(Form& form, int x, int y, int shift) {
  mouseForm_ = Watch<Form>(form);
  x_ = x;
  y_ = y;
  if (held_) return;
  Act([&] { toolkit_.MouseMoved(form, x, y, button_, shift); });
}

void Person::Release(int shift) {
  const int button = std::exchange(button_, 0);
  const Watch<Control> held = std::exchange(held_, {});
  const Watch<Form> form = mouseForm_;
  if (!form) return;
  Act([&] {
    if (!held) {
      toolkit_.MouseReleased(*form.Get(), x_, y_, button, shift);
    } else if (button == button::Left && toolkit_.TakesInput(*form.Get()) &&
               toolkit_.ControlAt(*form.Get(), x_, y_) == held.Get()) {
      LetGoNative(*held.Get());
    }
  });
}

// The control may be gone when its handler has run.
void Person::LetGoNative(Control& control) {
  const Kind kind = control.GetKind();
  if (kind == Kind::CommandButton) static_cast<CommandButton&>(control).UserClicked();
  if (kind == Kind::CheckBox) static_cast<CheckBox&>(control).UserClicked();
  if (kind == Kind::OptionButton) static_cast<OptionButton&>(control).UserClicked();
}

void Person::ClickAt(Form& form, int x, int y, int button, int shift) {
  PressAt(form, x, y, button, shift);
  Release(shift);
}

void Person::DoubleClickAt(Form& form, int x, int y) {
  const Watch<Form> watch(form);
  ClickAt(form, x, y);
  if (!watch || !watch->Visible()) return;
  if (IsWidget(*toolkit_.ControlAt(form, x, y))) {
    ClickAt(form, x, y);
    return;
  }
  button_ = button::Left;
  Act([&] { toolkit_.MouseDoubleClicked(form, x, y, button::Left, 0); });
  Release();
}

void Person::TurnWheelAt(Form& form, int x, int y, const WheelArgs& turn) {
  Act([&] { toolkit_.WheelTurned(form, x, y, turn); });
}

void Person::LeaveForm() {
  if (const Watch<Form> form = mouseForm_) Act([&] { toolkit_.MouseLeft(*form.Get()); });
}

// --- on controls -----------------------------------------------------------------------------------------------------

std::optional<Person::Place> Person::PointOn(Control& control) {
  Form& form = control.GetForm();
  const Rect shown = control.ShownRect();
  if (!control.IsShown() || shown.IsEmpty()) return std::nullopt;
  const auto reaches = [&](int x, int y) { return toolkit_.ControlAt(form, x, y) == &control; };
  const Place middle{shown.Left + shown.Width / 2, shown.Top + shown.Height / 2};
  if (reaches(middle.X, middle.Y)) return middle;
  for (int y = shown.Top; y < shown.Bottom(); ++y) {
    for (int x = shown.Left; x < shown.Right(); ++x) {
      if (reaches(x, y)) return Place{x, y};
    }
  }
  return std::nullopt;
}

std::string Person::WhyOutOfReach(Control& control) {
  const std::string name = control.Name() + "(" + std::to_string(control.Index()) + ")";
  const Rect shown = control.ShownRect();
  if (!control.IsShown()) return name + " is hidden";
  if (!control.Enabled()) return name + " is disabled";
  if (shown.IsEmpty()) return name + " lies outside its window";
  const Control* front =
      toolkit_.ControlAt(control.GetForm(), shown.Left + shown.Width / 2, shown.Top + shown.Height / 2);
  return name + " is covered by " + front->Name();
}

void Person::Press(Control& control, int button, int shift) {
  Form& form = control.GetForm();
  if (!MustTakeInput(form, "press " + control.Name())) return;
  if (const auto at = PointOn(control)) {
    PressAt(form, at->X, at->Y, button, shift);
  } else {
    Fail("press: " + WhyOutOfReach(control));
  }
}

void Person::MoveTo(Control& control, int shift) {
  if (const auto at = PointOn(control)) {
    MoveTo(control.GetForm(), at->X, at->Y, shift);
  } else {
    Fail("move to: " + WhyOutOfReach(control));
  }
}

void Person::TurnWheel(Control& control, const WheelArgs& turn) {
  if (!MustTakeInput(control.GetForm(), "wheel over " + control.Name())) return;
  if (const auto at = PointOn(control)) {
    TurnWheelAt(control.GetForm(), at->X, at->Y, turn);
  } else {
    Fail("wheel over: " + WhyOutOfReach(control));
  }
}

void Person::Click(Control& control, int shift) {
  Press(control, button::Left, shift);
  Release(shift);
}

void Person::RightClick(Control& control) {
  Press(control, button::Right);
  Release();
}

void Person::DoubleClick(Control& control) {
  Form& form = control.GetForm();
  if (!MustTakeInput(form, "double click on " + control.Name())) return;
  if (const auto at = PointOn(control)) {
    DoubleClickAt(form, at->X, at->Y);
  } else {
    Fail("double click: " + WhyOutOfReach(control));
  }
}

void Person::Drag(Control& source, Control& target) {
  // Onto its middle: nobody aims at a rim that something else leaves free.
  const Rect shown = target.ShownRect();
  const Place middle{shown.Left + shown.Width / 2, shown.Top + shown.Height / 2};
  if (PointOn(target) && toolkit_.ControlAt(target.GetForm(), middle.X, middle.Y) == &target) {
    DragTo(source, target.GetForm(), middle.X, middle.Y);
  } else {
    Fail("drag to: " + WhyOutOfReach(target));
  }
}

void Person::DragTo(Control& source, Form& form, int x, int y) {
  const Watch<Form> watch(form);
  Press(source);
  const int fromX = x_;
  const int fromY = y_;
  for (int step = 1; step <= DragSteps && watch && button_ != 0; ++step) {
    MoveTo(form, fromX + (x - fromX) * step / DragSteps, fromY + (y - fromY) * step / DragSteps);
  }
  if (watch && toolkit_.Drag().Source != nullptr && !TakesDrops(*toolkit_.ControlAt(form, x, y))) {
    Fail("drag: " + toolkit_.ControlAt(form, x, y)->Name() + " takes no drop");
  }
  Release();
}

std::string Person::ToolTip(Control& control) {
  const auto at = PointOn(control);
  return at ? toolkit_.ToolTipAt(control.GetForm(), at->X, at->Y) : std::string();
}

// --- controls with a widget ------------------------------------------------------------------------------------------

bool Person::CanUse(Control& control) {
  if (!MustTakeInput(control.GetForm(), "use of " + control.Name())) return false;
  if (control.Enabled() && PointOn(control)) return true;
  Fail("use: " + WhyOutOfReach(control));
  return false;
}

void Person::Focus(Control& control) {
  if (!CanUse(control)) return;
  Activate(control.GetForm());
  Act([&] { toolkit_.UserFocused(control); });
}

void Person::MoveBar(ScrollBar& bar, int value) {
  if (CanUse(bar)) Act([&] { bar.UserMovedTo(value); });
}

void Person::DragBar(ScrollBar& bar, int value) {
  if (!CanUse(bar)) return;
  const Watch<ScrollBar> watch(bar);
  const int from = bar.Value();
  for (int step = 1; step <= DragSteps && watch; ++step) {
    Act([&] { bar.UserScrolledTo(from + (value - from) * step / DragSteps); });
  }
  Act([&] {
    if (watch) bar.UserLetGo();
  });
}

void Person::Choose(ItemList& list, int index) {
  if (!CanUse(list)) return;
  const Watch<ItemList> watch(list);
  Focus(list);
  if (!watch) return;
  if (index < 0 || index >= list.ListCount()) {
    Fail("choose: " + list.Name() + " has no entry " + std::to_string(index));
    return;
  }
  Act([&] { list.UserChose(index); });
}

void Person::Choose(ItemList& list, const std::string& text) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) == text) {
      Choose(list, i);
      return;
    }
  }
  Fail("choose: " + list.Name() + " has no entry \"" + text + "\"");
}

}  // namespace pixorra
