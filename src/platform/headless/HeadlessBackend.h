// The back end without windows: it keeps what windows would show, turns a virtual clock from deadline to deadline, and
// lets the scripted person react while the program waits.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/Backend.h"
#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessText.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/headless/Script.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Posting.h"

namespace pixorra {

class Toolkit;

class HeadlessBackend : public Backend, public Posting {
 public:
  // Virtual seconds of waiting in which nobody acts, after which the program is taken to wait for ever.
  static constexpr double Patience = 600;

  HeadlessBackend(HeadlessClock& clock, Script& script, Failures& failures);
  // Before anything else: the toolkit that this back end serves.
  void Attach(Toolkit& toolkit) { toolkit_ = &toolkit; }

  std::unique_ptr<Peer> MakePeer(Control& control) override;
  void ProcessEvents() override;
  void WaitForEvents(std::optional<double> seconds) override;
  void EndLoop() override { loopEnded_ = true; }
  void PostEnding() override;
  bool CloseFront() override;
  double Seconds() override { return clock_.Seconds(); }
  void WakeAt(std::optional<double> seconds) override { wakeAt_ = seconds; }
  Screen GetScreen() override { return GetScreen(0); }
  Screen LargestWindow() override;
  int ScreenCount() override { return static_cast<int>(1 + moreScreens_.size()); }
  Screen GetScreen(int number) override;
  int ScreenOfPointer() override { return pointerOn_; }
  int MenuBarHeight() override { return 20; }
  double Fineness() override { return fineness_; }
  TextDrawing& Text() override { return text_; }
  void PopupMenu(Form& form, MenuItem& menu) override;
  bool IsMenuUp() override;
  void DragChanged() override { ++dragChanges_; }
  void PointerChanged(Form&) override {}

  // What is posted runs when the program lets events run, or when time passes.
  void Post(std::function<void()> call) override;

  // Lets time pass: every timer that comes due on the way runs at its own moment.
  void Advance(double seconds);
  // Pixels.
  void SetScreen(int width, int height);
  // One more to the right of those that there are; gives its number.
  int AddScreen(int width, int height);
  void PutPointerOn(int screen) { pointerOn_ = screen; }
  void SetFineness(double fineness) { fineness_ = fineness; }
  // The window of a form that is loaded and has been shown, or null.
  HeadlessWindow* WindowOf(const Form& form) const;
  bool LoopEnded() const { return loopEnded_; }
  std::optional<double> AskedWake() const { return wakeAt_; }
  int DragChanges() const { return dragChanges_; }

  // The pop-up menu that is up, or null; a person chooses an item of it, or nothing, which closes it.
  MenuItem* PopupUp() const { return popup_; }
  void ChooseFromPopup(MenuItem* item);
  // A menu of a form's bar is open.
  void SetBarMenuUp(bool up) { barMenuUp_ = up; }
  // A box of the host that is up, for reports; empty for none.
  const std::string& BoxIsUp() const { return boxUp_; }
  void SetBoxUp(const std::string& box) { boxUp_ = box; }

  // Runs what a person or a timer sets off. An error that no handler of the program wanted goes to the error handler.
  void Dispatch(const std::function<void()>& act);
  // In place of the report that an error is by default.
  void SetErrorHandler(std::function<void(const RuntimeError&)> handler) { onError_ = std::move(handler); }
  // Somebody has acted: a wait that follows is a new one.
  void Stir() { idle_ = 0; }

 private:
  friend class HeadlessWindow;
  void Add(HeadlessWindow& window) { windows_.push_back(&window); }
  void Remove(HeadlessWindow& window) { std::erase(windows_, &window); }
  // True: the person has done what was waiting for that moment.
  bool React(Script::Moment moment);
  void Guarded(const std::function<void()>& act);
  void RunDue();
  bool RunPosted();
  void GiveUp();

  HeadlessClock& clock_;
  Script& script_;
  Failures& failures_;
  Toolkit* toolkit_ = nullptr;
  HeadlessText text_;
  Screen screen_{1280 * 15, 1024 * 15, 15, 15};
  std::vector<Screen> moreScreens_;
  int pointerOn_ = 0;
  std::vector<HeadlessWindow*> windows_;
  std::function<void(const RuntimeError&)> onError_;
  std::mutex postedMutex_;
  std::vector<std::function<void()>> posted_;
  std::optional<double> wakeAt_;
  std::string boxUp_;
  MenuItem* popup_ = nullptr;
  MenuItem* chosen_ = nullptr;
  double idle_ = 0;
  double fineness_ = 1;
  int dragChanges_ = 0;
  bool barMenuUp_ = false;
  bool loopEnded_ = false;
  bool endingPosted_ = false;
};

}  // namespace pixorra
