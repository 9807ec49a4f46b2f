#include "platform/headless/HeadlessBackend.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/controls/Menu.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

HeadlessBackend::HeadlessBackend(HeadlessClock& clock, Script& script, Failures& failures)
    : clock_(clock), script_(script), failures_(failures) {}

// Only forms have something to keep beside what the model knows.
std::unique_ptr<Peer> HeadlessBackend::MakePeer(Control& control) {
  if (control.GetKind() != Kind::Form) return nullptr;
  return std::make_unique<HeadlessWindow>(*this, static_cast<Form&>(control));
}

void HeadlessBackend::Dispatch(const std::function<void()>& act) {
  toolkit_->Stirred();
  Guarded(act);
  toolkit_->Stirred();
}

bool HeadlessBackend::React(Script::Moment moment) {
  bool reacted = true;
  Guarded([&] { reacted = script_.RunOne(moment); });
  if (reacted) toolkit_->Stirred();
  return reacted;
}

void HeadlessBackend::Guarded(const std::function<void()>& act) {
  try {
    act();
  } catch (const RuntimeError& e) {
    if (onError_) {
      onError_(e);
    } else {
      failures_.Report("unhandled error " + std::to_string(e.Number()) + ": " + e.Description());
    }
  }
}

void HeadlessBackend::RunDue() {
  Guarded([this] { toolkit_->RunDueTimers(); });
}

void HeadlessBackend::Post(std::function<void()> call) {
  const std::lock_guard lock(postedMutex_);
  posted_.push_back(std::move(call));
}

// What these post in their turn has to wait for the next one. False where nothing had been posted.
bool HeadlessBackend::RunPosted() {
  std::vector<std::function<void()>> calls;
  {
    const std::lock_guard lock(postedMutex_);
    calls.swap(posted_);
  }
  for (const std::function<void()>& call : calls) {
    if (!toolkit_->Ended()) Dispatch(call);
  }
  return !calls.empty();
}

void HeadlessBackend::PostEnding() {
  if (std::exchange(endingPosted_, true)) return;
  Post([this] {
    endingPosted_ = false;
    toolkit_->ContinueEnding();
  });
}

// A box is closed when what runs while it is up is over.
bool HeadlessBackend::CloseFront() {
  if (popup_ == nullptr) return false;
  ChooseFromPopup(nullptr);
  return true;
}

void HeadlessBackend::ProcessEvents() {
  RunPosted();
  if (React(Script::Moment::Events)) Stir();
  if (!toolkit_->Ended()) RunDue();
}

void HeadlessBackend::WaitForEvents(std::optional<double> seconds) {
  if (RunPosted()) {
    Stir();
    return;
  }
  if (React(Script::Moment::Wait)) {
    Stir();
    return;
  }
  const double now = clock_.Seconds();
  const std::optional<double> next = toolkit_->NextDeadline();
  if (!seconds && !next) {
    GiveUp();
    return;
  }
  double until = seconds ? now + *seconds : *next;
  if (next) until = std::min(until, *next);
  idle_ += std::max(0.0, until - now);
  if (idle_ > Patience) {
    GiveUp();
    return;
  }
  clock_.AdvanceTo(until);
  RunDue();
}

void HeadlessBackend::Advance(double seconds) {
  const double target = clock_.Seconds() + seconds;
  toolkit_->Stirred();
  RunPosted();
  while (!toolkit_->Ended()) {
    const std::optional<double> next = toolkit_->NextDeadline();
    if (!next || *next > target + 1e-6) break;
    clock_.AdvanceTo(*next);
    RunDue();
    RunPosted();
  }
  clock_.AdvanceTo(target);
  if (!toolkit_->Ended()) RunDue();
}

// The program waits for something that nobody is going to do. It ends, so that the test fails and does not hang.
void HeadlessBackend::GiveUp() {
  std::string front = "no window";
  for (const Form* form : toolkit_->Forms()) {
    if (form->Visible()) front = "window " + form->Name() + " \"" + form->Caption() + "\"";
  }
  if (popup_ != nullptr) front = "pop-up menu " + popup_->Name();
  if (!boxUp_.empty()) front = boxUp_;
  failures_.Report("the program waits and nothing can happen any more; in front: " + front);
  toolkit_->End();
}

Screen HeadlessBackend::LargestWindow() {
  Screen largest = screen_;
  for (const Screen& screen : moreScreens_) largest.Width += screen.Width;
  return largest;
}

Screen HeadlessBackend::GetScreen(int number) {
  Screen screen = number > 0 && number < ScreenCount() ? moreScreens_[static_cast<std::size_t>(number - 1)] : screen_;
  screen.Fineness = fineness_;
  return screen;
}

int HeadlessBackend::AddScreen(int width, int height) {
  Screen screen{width * screen_.TwipsPerPixelX, height * screen_.TwipsPerPixelY};
  screen.Left = LargestWindow().Width;
  moreScreens_.push_back(screen);
  // The main one is as it was, and everybody hears of the change.
  SetScreen(static_cast<int>(std::lround(screen_.Width / screen_.TwipsPerPixelX)),
            static_cast<int>(std::lround(screen_.Height / screen_.TwipsPerPixelY)));
  return ScreenCount() - 1;
}

void HeadlessBackend::SetScreen(int width, int height) {
  screen_.Width = width * screen_.TwipsPerPixelX;
  screen_.Height = height * screen_.TwipsPerPixelY;
  const std::vector<HeadlessWindow*> windows = windows_;
  for (HeadlessWindow* window : windows) {
    if (std::find(windows_.begin(), windows_.end(), window) != windows_.end()) window->ScreenChanged();
  }
}

HeadlessWindow* HeadlessBackend::WindowOf(const Form& form) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const HeadlessWindow* window) { return &window->Shown() == &form; });
  return found != windows_.end() ? *found : nullptr;
}

void HeadlessBackend::ChooseFromPopup(MenuItem* item) {
  chosen_ = item;
  popup_ = nullptr;
}

bool HeadlessBackend::IsMenuUp() {
  return popup_ != nullptr || barMenuUp_;
}

// The menu is closed before the chosen item's Click runs. One that was up has closed for it.
void HeadlessBackend::PopupMenu(Form&, MenuItem& menu) {
  popup_ = &menu;
  chosen_ = nullptr;
  if (!React(Script::Moment::Popup)) failures_.Report("unexpected pop-up menu " + menu.Name());
  popup_ = nullptr;
  Stir();
  if (MenuItem* const item = std::exchange(chosen_, nullptr)) item->UserClicked();
}

}  // namespace pixorra
