// The forms of one program: their order, which one is active, modal nesting, and the focus.
#pragma once

#include <vector>

#include "platform/controls/Control.h"

namespace pixorra {

class Windows {
 public:
  // The one in front last.
  const std::vector<Form*>& Forms() const { return forms_; }
  Form* Active() const;
  // No modal form or box is above it.
  bool TakesInput(const Form& form) const;

  void Add(Form& form);
  void Remove(Form& form);
  // To the front, with the forms that it owns. Nothing is put in front of the form that is modal.
  void Activate(Form& form);
  // A form stays above the others from now on, or no longer.
  void StackChanged();
  // It is no longer active: the form in front of those that are left is.
  void Deactivate(Form& form);
  void PushModal(Form& form) { modal_.push_back(&form); }
  void PopModal(Form& form);
  // The form that no other modal one is above; null where none is modal.
  Form* Modal() const { return modal_.empty() ? nullptr : modal_.back(); }
  // A box of the host is up, or closed.
  void PushBox() { ++boxes_; }
  void PopBox();
  bool IsBoxUp() const { return boxes_ > 0; }

  Control* Focus() const { return focus_.Get(); }
  // Raises LostFocus of the control that loses the focus, then GotFocus of the one that takes it. A form that is given
  // the focus becomes active and leaves the focus where it is. Null: no control has it.
  void SetFocus(Control* control);
  // A control, or what it holds, is hidden or disabled.
  void FocusLeaves(const Control& control);
  // The control that has the focus, if it is one of the form's.
  Watch<Control> FocusWithin(const Form& form) const;
  // The control of another form that has the focus, or that had it when a control of this form took it.
  Watch<Control> FocusBefore(const Form& form) const;
  // A control is about to be destroyed.
  void Forget(const Control& control);

 private:
  void Arrange(Form& front);

  std::vector<Form*> forms_;
  std::vector<Form*> modal_;
  Watch<Form> active_;
  Watch<Control> focus_;
  Watch<Control> focusBefore_;
  int boxes_ = 0;
};

}  // namespace pixorra
