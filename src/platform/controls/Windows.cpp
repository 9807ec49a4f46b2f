#include "platform/controls/Windows.h"

#include <algorithm>
#include <cassert>

#include "platform/controls/Form.h"

namespace pixorra {

namespace {

// A light control shows by what its form paints that it has the focus.
void RepaintFocus(const Control* control) {
  if (control != nullptr && TraitsOf(control->GetKind()).Shown == ShownAs::Light)
    control->GetForm().InvalidateRect(control->ShownRect());
}

// The peer that puts the focus on the control: its own or, where it has none, its form's.
Peer* PeerForFocus(Control& control) {
  return control.GetPeer() != nullptr ? control.GetPeer() : control.GetForm().GetPeer();
}

}  // namespace

Form* Windows::Active() const {
  return active_.Get();
}

bool Windows::TakesInput(const Form& form) const {
  if (boxes_ > 0) return false;
  return modal_.empty() || modal_.back() == &form;
}

void Windows::Add(Form& form) {
  forms_.insert(forms_.begin(), &form);
}

void Windows::Remove(Form& form) {
  Deactivate(form);
  if (FocusWithin(form)) focus_ = {};
  std::erase(forms_, &form);
  std::erase(modal_, &form);
}

void Windows::Activate(Form& form) {
  Form* front = &form;
  Arrange(form);
  if (!modal_.empty() && modal_.back() != &form && modal_.back()->Visible()) {
    front = modal_.back();
    Arrange(*front);
  }
  active_ = Watch<Form>(*front);
}

// In front of the others, but below the forms that it owns, and below those that stay on top.
void Windows::Arrange(Form& front) {
  const auto rank = [&](const Form* form) {
    if (form->StaysOnTop() || form->FullScreen()) return 3;
    if (form == &front) return 1;
    for (const Form* owner = form->Owner(); owner != nullptr; owner = owner->Owner()) {
      if (owner == &front) return 2;
    }
    return 0;
  };
  std::stable_sort(forms_.begin(), forms_.end(), [&](const Form* a, const Form* b) { return rank(a) < rank(b); });
}

void Windows::StackChanged() {
  if (Form* active = Active()) Arrange(*active);
}

void Windows::Deactivate(Form& form) {
  if (active_.Get() != &form) return;
  active_ = {};
  for (auto it = forms_.rbegin(); it != forms_.rend(); ++it) {
    if (*it != &form && (*it)->Visible()) {
      active_ = Watch<Form>(**it);
      return;
    }
  }
}

void Windows::PopModal(Form& form) {
  std::erase(modal_, &form);
}

void Windows::PopBox() {
  assert(boxes_ > 0);
  --boxes_;
}

void Windows::SetFocus(Control* control) {
  if (control != nullptr && control->GetKind() == Kind::Form) {
    auto& form = static_cast<Form&>(*control);
    if (form.Visible()) Activate(form);
    return;
  }
  Control* before = focus_.Get();
  if (before == control) return;
  if (control != nullptr && !FocusWithin(control->GetForm())) focusBefore_ = focus_;
  focus_ = Watch<Control>::Of(control);
  const Watch<Control> now = focus_;
  for (const Control* changed : {before, control}) RepaintFocus(changed);
  if (Peer* peer = control != nullptr ? PeerForFocus(*control) : nullptr) peer->Update(Change::Focus);
  if (before != nullptr) Raise(before->On().LostFocus, *before);
  if (now && focus_.Get() == now.Get()) Raise(now->On().GotFocus, *now.Get());
}

void Windows::FocusLeaves(const Control& control) {
  for (const Control* inner = focus_.Get(); inner != nullptr; inner = inner->GetContainer()) {
    if (inner == &control) {
      SetFocus(nullptr);
      return;
    }
  }
}

Watch<Control> Windows::FocusWithin(const Form& form) const {
  return focus_ && &focus_->GetForm() == &form ? focus_ : Watch<Control>();
}

Watch<Control> Windows::FocusBefore(const Form& form) const {
  return FocusWithin(form) ? focusBefore_ : focus_;
}

void Windows::Forget(const Control& control) {
  if (focus_.Get() == &control) focus_ = {};
}

}  // namespace pixorra
