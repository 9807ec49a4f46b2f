// The back end with windows: the event loop's sleep, the timers' alarm, the screen's figures, and peers.
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/controls/Backend.h"
#include "platform/controls/Control.h"
#include "platform/qt/ArtStore.h"
#include "platform/qt/HeldKey.h"
#include "platform/qt/Pending.h"
#include "platform/qt/PostedCall.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SharpThumbnails.h"

class QScreen;
class QWidget;

namespace pixorra {

class FormPeer;
class HostWindow;
class Toolkit;

// A QApplication must stand before it is made, and outlive it.
class QtBackend final : public Backend {
 public:
  QtBackend();
  ~QtBackend() override;

  // The toolkit is made from the back end; it must be attached before the first form is.
  void Attach(Toolkit& toolkit) { toolkit_ = &toolkit; }
  Toolkit& GetToolkit() { return *toolkit_; }
  // Handles events, asleep between them, until the program ends.
  void Run();
  // The same after a start-up. An error that it raises goes to the error handler; if it has shown no window it has
  // failed, and the program ends: it must not stay unseen.
  void Run(const std::function<void()>& startUp);

  std::unique_ptr<Peer> MakePeer(Control& control) override;
  void ProcessEvents() override;
  void WaitForEvents(std::optional<double> seconds) override;
  void EndLoop() override;
  void PostEnding() override { endingStep_.Post(); }
  bool CloseFront() override;
  double Seconds() override;
  void WakeAt(std::optional<double> seconds) override;
  Screen GetScreen() override { return GetScreen(0); }
  int ScreenCount() override;
  Screen GetScreen(int number) override;
  int ScreenOfPointer() override;
  Screen LargestWindow() override;
  int MenuBarHeight() override { return menuBarHeight_; }
  double Fineness() override;
  TextDrawing& Text() override { return text_; }
  void PopupMenu(Form& form, MenuItem& menu) override;
  bool IsMenuUp() override;
  void DragChanged() override;
  void PointerChanged(Form& form) override;

  // Runs what a person's act or a timer sets off. An error that no handler wanted goes to the error handler, so that
  // none passes through the toolkit below.
  void Dispatch(const std::function<void()>& act);
  void SetErrorHandler(std::function<void(int number, const std::string& description)> handler);

  // Repeats of a key that is held down, which wait to be handled now, are not handled any more.
  void DropWaitingRepeats();
  bool DropsRepeats() const { return dropsRepeats_; }

  // The screens may have changed: forms that cover one hear of it when the events that are waiting have been handled.
  void FollowScreens() { screensChanged_.Post(); }

  // As QtPlatform::ShowInside.
  bool ShowInside(std::uint64_t window);
  // The window that is shown inside of; null where each form is a window of its own.
  HostWindow* Host() const { return host_.get(); }
  // The screen of that number; null where there is none at all.
  static QScreen* ScreenOf(int number);
  // The window in front that a box should stand above; null where none is shown.
  QWidget* WindowForBoxes();
  PendingList& AtEndOfTurn() { return pending_; }
  ArtStore& Art() { return art_; }
  SharpThumbnails& Sharp() { return sharp_; }
  HeldKey& Held() { return held_; }

 private:
  // A pop-up menu that is up, and what has been chosen from it.
  struct Popup;

  void RunTimers();
  void LookForStir();
  void Guarded(const std::function<void()>& act);
  void EndingStep();
  void ContinueEnding();
  void FollowActiveForm();
  void TellOfScreens();

  Toolkit* toolkit_ = nullptr;
  Watch<Form> front_;  // the active form that the windows were last arranged for
  ArtStore art_;
  SharpThumbnails sharp_{*this};
  QtText text_;
  PendingList pending_;
  HeldKey held_;
  QElapsedTimer clock_;
  QTimer wake_;
  std::unique_ptr<HostWindow> host_;
  std::shared_ptr<Popup> popup_;  // null where none is up
  QEventLoop loop_;
  std::function<void(int, const std::string&)> onError_;
  int menuBarHeight_;
  // Runs when the events that are waiting have been handled.
  PostedCall repeatsWanted_{[this] { dropsRepeats_ = false; }};
  bool dropsRepeats_ = false;
  bool onlyTimersRan_ = false;  // since the loop last slept
  PostedCall screensChanged_{[this] { TellOfScreens(); }};
  PostedCall endingStep_{[this] { EndingStep(); }};
  bool waits_ = false;      // the innermost loop is that of WaitForEvents
  bool endingDue_ = false;  // once the wait has seen that what it waits for is not there yet
};

}  // namespace pixorra
