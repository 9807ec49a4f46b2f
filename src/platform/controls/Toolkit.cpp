#include "platform/controls/Toolkit.h"

#include <algorithm>

#include "platform/controls/Container.h"
#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"
#include "platform/controls/Timer.h"

namespace pixorra {

void Toolkit::DoEvents() {
  if (!ended_) backend_.ProcessEvents();
}

bool Toolkit::WaitUntil(const std::function<bool()>& done) {
  while (!done()) {
    if (ended_) return false;
    backend_.WaitForEvents(std::nullopt);
  }
  return true;
}

bool Toolkit::WaitFor(double seconds) {
  const double end = backend_.Seconds() + seconds;
  for (double left = seconds; left > SameMoment; left = end - backend_.Seconds()) {
    if (ended_) return false;
    backend_.WaitForEvents(left);
  }
  return true;
}

void Toolkit::End() {
  ended_ = true;
  backend_.EndLoop();
}

bool Toolkit::TakesInput(const Form& form) const {
  if (boxes_ > 0 || ended_) return false;
  return modal_.empty() || modal_.back() == &form;
}

Form* Toolkit::ActiveForm() const {
  return active_.Get();
}

void Toolkit::AddForm(Form& form) {
  forms_.insert(forms_.begin(), &form);
}

void Toolkit::RemoveForm(Form& form) {
  Deactivate(form);
  std::erase(forms_, &form);
  std::erase(modal_, &form);
}

// Nothing comes in front of the form that is modal.
void Toolkit::Activate(Form& form) {
  Form* front = &form;
  Arrange(form);
  if (!modal_.empty() && modal_.back() != &form && modal_.back()->Visible()) {
    front = modal_.back();
    Arrange(*front);
  }
  active_ = Watch<Form>(*front);
}

// To the front, and before it the forms that it owns, and before all those that stay on top.
void Toolkit::Arrange(Form& front) {
  const auto rank = [&](const Form* form) {
    if (form->StaysOnTop()) return 3;
    if (form == &front) return 1;
    for (const Form* owner = form->Owner(); owner != nullptr; owner = owner->Owner()) {
      if (owner == &front) return 2;
    }
    return 0;
  };
  std::stable_sort(forms_.begin(), forms_.end(), [&](const Form* a, const Form* b) { return rank(a) < rank(b); });
}

void Toolkit::Deactivate(Form& form) {
  if (active_.Get() != &form) return;
  active_ = {};
  for (auto it = forms_.rbegin(); it != forms_.rend(); ++it) {
    if (*it != &form && (*it)->Visible()) {
      active_ = Watch<Form>(**it);
      return;
    }
  }
}

// The press that brought up a window is let go over that window: what was pressed never hears of it.
void Toolkit::ReleaseCapture() {
  pressed_ = {};
  pressedButton_ = 0;
}

void Toolkit::PushBox() {
  ++boxes_;
  ReleaseCapture();
}

void Toolkit::PushModal(Form& form) {
  ReleaseCapture();
  modal_.push_back(&form);
}

void Toolkit::PopModal(Form& form) {
  std::erase(modal_, &form);
}

void Toolkit::PopupMenu(Form& form, MenuItem& menu) {
  ReleaseCapture();
  Raise(menu.On().Click, static_cast<Control&>(menu));
  backend_.PopupMenu(form, menu);
}

// A control that leaves the focus hears of it first, then the one that takes it. A form that is given the focus comes
// to the front and leaves it where it is.
void Toolkit::SetFocus(Control* control) {
  if (control != nullptr && control->GetKind() == Kind::Form) {
    auto& form = static_cast<Form&>(*control);
    if (form.Visible()) Activate(form);
    return;
  }
  Control* before = focus_.Get();
  if (before == control) return;
  focus_ = control != nullptr ? Watch<Control>(*control) : Watch<Control>();
  const Watch<Control> now = focus_;
  if (control != nullptr && control->GetPeer() != nullptr) control->GetPeer()->Update(Change::Focus);
  if (before != nullptr) Raise(before->On().LostFocus, *before);
  if (now && focus_.Get() == now.Get()) Raise(now->On().GotFocus, *now.Get());
}

void Toolkit::UserFocused(Control& control) {
  if (control.Enabled() && control.IsShown()) SetFocus(&control);
}

void Toolkit::FocusLeaves(const Control& control) {
  for (const Control* inner = focus_.Get(); inner != nullptr; inner = inner->GetContainer()) {
    if (inner == &control) {
      SetFocus(nullptr);
      return;
    }
  }
}

void Toolkit::Forget(Control& control) {
  if (dragSource_.Get() == &control) {
    dragSource_ = {};
    backend_.DragChanged();
  }
  if (focus_.Get() == &control) focus_ = {};
}

void Toolkit::AddTimer(Timer& timer) {
  timers_.push_back(&timer);
}

void Toolkit::RemoveTimer(Timer& timer) {
  std::erase(timers_, &timer);
  TimerChanged();
}

void Toolkit::TimerChanged() {
  backend_.WakeAt(NextDeadline());
}

std::optional<double> Toolkit::NextDeadline() const {
  std::optional<double> next;
  for (const Timer* timer : timers_) {
    if (timer->Runs() && (!next || timer->Deadline() < *next)) next = timer->Deadline();
  }
  return next;
}

// Each timer that is due ticks once, the one due first going first. Ticks that were missed are dropped, and a timer
// whose handler still runs (because that runs a loop) waits for its end.
void Toolkit::RunDueTimers() {
  const double now = backend_.Seconds() + SameMoment;
  // Also when a handler raises: the timers that are left must not go unheard for ever.
  struct AskAgain {
    Toolkit& toolkit;
    ~AskAgain() { toolkit.TimerChanged(); }
  } const askAgain{*this};
  std::vector<Watch<Timer>> due;
  std::vector<Timer*> sorted = timers_;
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const Timer* a, const Timer* b) { return a->Deadline() < b->Deadline(); });
  for (Timer* timer : sorted) {
    if (timer->Runs() && timer->Deadline() <= now) due.emplace_back(*timer);
  }
  for (const Watch<Timer>& timer : due) {
    if (ended_) break;
    if (timer && timer->Runs() && timer->Deadline() <= now) timer->Tick(now - SameMoment);
  }
}

Colour Toolkit::PlainColour(Colour colour, bool dark) const {
  if (!IsTone(colour)) return colour;
  if (ToneEntry(colour) >= tones_.size()) return 0;
  const Tone& tone = tones_[ToneEntry(colour)];
  return dark ? tone.Dark : tone.Light;
}

}  // namespace pixorra
