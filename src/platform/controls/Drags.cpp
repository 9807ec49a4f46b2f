#include "platform/controls/Drags.h"

#include "platform/controls/Form.h"
#include "platform/controls/HitTest.h"
#include "platform/runtime/AtExit.h"

namespace pixorra {

void Drags::Begin(Form& form, Control& source, int x, int y) {
  const Rect at = source.FormRect();
  source_ = Watch<Control>(source);
  target_ = {};
  grabX_ = x - at.Left;
  grabY_ = y - at.Top;
  Move(form, x, y);
}

void Drags::Move(Form& form, int x, int y) {
  form_ = Watch<Form>(form);
  x_ = x;
  y_ = y;
  backend_.DragChanged();
  const bool inside = Rect{0, 0, form.ScaleWidth(), form.ScaleHeight()}.Contains(x, y);
  const Watch<Control> target = Watch<Control>::Of(inside ? ControlAt(form, x, y) : nullptr);
  const Watch<Control> before = target_;
  const auto over = [&](const Watch<Control>& control, DragState state) {
    if (!control || !source_) return;
    const MouseArgs at = MouseArgsFor(*control.Get(), x, y, 0, 0);
    Raise(control->On().DragOver, *control.Get(), DragArgs{*source_.Get(), at.X, at.Y, state});
  };
  target_ = target;
  if (before.Get() == target.Get()) {
    over(target, DragState::Over);
    return;
  }
  over(before, DragState::Leave);
  over(target, DragState::Enter);
}

Drags::Drop Drags::End(Form& form, int x, int y) {
  // It ends also where a handler raises on this last move.
  const AtExit over([this] { Cancel(); });
  Move(form, x, y);
  return {source_, target_};
}

void Drags::Cancel() {
  source_ = {};
  target_ = {};
  backend_.DragChanged();
}

Drags::Shown Drags::Look() const {
  Shown shown;
  shown.Source = source_.Get();
  if (shown.Source == nullptr) return shown;
  shown.Over = form_.Get();
  shown.X = x_;
  shown.Y = y_;
  shown.Outline = {x_ - grabX_, y_ - grabY_, shown.Source->Width(), shown.Source->Height()};
  return shown;
}

void Drags::IconChanged(const Control& control) {
  if (&control == source_.Get()) backend_.DragChanged();
}

void Drags::Forget(const Control& control) {
  if (source_.Get() != &control) return;
  source_ = {};
  backend_.DragChanged();
}

}  // namespace pixorra
