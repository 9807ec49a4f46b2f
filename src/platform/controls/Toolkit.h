// One program's front to its controls. Back ends, and tests, deliver raw input here; what it means is settled here and
// nowhere else. The parts: Toolkit.cpp has the waits and what controls report, Mouse.cpp presses and clicks, Keys.cpp
// the keyboard; Windows.cpp forms, modal nesting and the focus, Drags.cpp a drag under way, Timers.cpp timers,
// Looks.cpp tones and pointers.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/controls/Backend.h"
#include "platform/controls/Control.h"
#include "platform/controls/Drags.h"
#include "platform/controls/Looks.h"
#include "platform/controls/Timers.h"
#include "platform/controls/Windows.h"

namespace pixorra {

// A key that is held down is pressed again and again.
enum class KeyStroke : std::uint8_t { Pressed, Repeated };

class Toolkit {
 public:
  explicit Toolkit(Backend& backend) : backend_(backend), drags_(backend), timers_(backend) {}
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;

  // --- waiting
  // Lets pending events run.
  void DoEvents();
  // Lets events run, asleep between them, until `done` holds. False: the program ended first.
  bool WaitUntil(const std::function<bool()>& done);
  // For so many seconds at most. False also where they have passed.
  bool WaitUntil(const std::function<bool()>& done, double seconds);
  // Lets events run for so many seconds. False: the program ended first.
  bool WaitFor(double seconds);
  // Every wait ends, now and from here on.
  void End();
  bool Ended() const { return ended_; }

  // --- the end that the host asks for: the session is over, or the process is told to end
  // What is in front is closed as by its frame, a box, menu or form in a turn of its own each, until no form is modal
  // any more; then `end` of SetEnder runs. To ask again changes nothing. From then on no box waits for an answer.
  void AskToEnd();
  bool EndAsked() const { return endAsked_; }
  // What closes the main window. An end that was asked for before it is set waits for it.
  void SetEnder(std::function<void()> end);
  // The next step, for the back end that was asked for it by PostEnding.
  void ContinueEnding();

  // --- forms
  const std::vector<Form*>& Forms() const { return windows_.Forms(); }  // the one in front last
  Form* ActiveForm() const { return windows_.Active(); }
  void Activate(Form& form) { windows_.Activate(form); }
  // No modal form or box is above it.
  bool TakesInput(const Form& form) const { return !ended_ && windows_.TakesInput(form); }
  // A menu or a drop-down list is open, or what was chosen from it is about to run.
  bool IsMenuUp() const { return backend_.IsMenuUp(); }
  // A box of the host is up: no form takes input until it is closed.
  void PushBox();
  void PopBox();
  Control* Focus() const { return windows_.Focus(); }
  void SetFocus(Control* control) { windows_.SetFocus(control); }

  // --- what a person does; pixels of the form's client area; results tell whether it was used
  void MousePressed(Form& form, int x, int y, int button, int shift);
  void MouseDoubleClicked(Form& form, int x, int y, int button, int shift);  // in place of the second press
  void MouseMoved(Form& form, int x, int y, int buttons, int shift);
  void MouseReleased(Form& form, int x, int y, int button, int shift);
  void MouseLeft(Form& form);
  // The place within the control is worked out here. Shift turns a wheel that moves up and down sideways. True: a
  // handler had it.
  bool WheelTurned(Form& form, int x, int y, const WheelArgs& turn);
  // A key goes to the form first if it previews keys, then to menus' shortcuts, then to the focused control's handlers;
  // what is left is the control's own to act on. A repeated stroke that comes while the form still handles one is
  // dropped: what a key that is held down does ends when the key is let go.
  bool KeyPressed(Form& form, int keyCode, int shift, KeyStroke stroke = KeyStroke::Pressed);
  // A text box of the form has the focus: every key is the text's.
  bool IsTextTyped(const Form& form) const;
  // Of the key that is being handled; Pressed where none is.
  KeyStroke Stroke() const { return stroke_; }
  // The item whose shortcut has been pressed, while the menus above it are raised; null where a person opens one.
  const MenuItem* ShortcutSought() const { return shortcutSought_; }
  // The character that a key made; code 0 after it has been refused.
  bool CharacterTyped(Form& form, int codePoint);
  // The focus has been put on a control by a person.
  void UserFocused(Control& control);
  std::string ToolTipAt(Form& form, int x, int y);
  // The control in front there, as it would get a press; the form itself where there is no other.
  Control* ControlAt(Form& form, int x, int y);

  // --- drags and pointers
  using DragShown = Drags::Shown;
  DragShown Drag() const { return drags_.Look(); }
  void CancelDrag();
  // The pointer to show over a form: an hourglass, an icon of a control, or the default.
  struct PointerShown {
    int Pointer = 0;
    Picture Icon;
  };
  PointerShown PointerFor(Form& form);

  // --- the program's looks
  // The table of the program's tones, which must live on.
  void SetTones(std::span<const Tone> tones) { looks_.SetTones(tones); }
  // The colour of a tone; any other is itself.
  Colour PlainColour(Colour colour, bool dark) const { return looks_.PlainColour(colour, dark); }
  // The icon of pointer::Hand.
  void SetHand(const Picture& icon) { looks_.SetHand(icon); }

  // --- timers; called by the back end
  void RunDueTimers() { timers_.RunDue(); }
  // Around all that runs but RunDueTimers, ahead of it and when it has ended, and before what runs next.
  void Stirred() { timers_.Stirred(); }
  std::optional<double> NextDeadline() const { return timers_.NextDeadline(); }

  // --- services of the back end
  Screen GetScreen() { return backend_.GetScreen(); }
  int ScreenCount() { return backend_.ScreenCount(); }
  Screen GetScreen(int number) { return backend_.GetScreen(number); }
  int ScreenOfPointer() { return backend_.ScreenOfPointer(); }
  // The number of the screen that holds a point, twips; of the nearest one where none does.
  int ScreenAt(double twipsX, double twipsY);
  Screen LargestWindow() { return backend_.LargestWindow(); }
  int MenuBarHeight() { return backend_.MenuBarHeight(); }
  double Fineness() { return backend_.Fineness(); }
  TextDrawing& Text() { return backend_.Text(); }
  double Seconds() { return backend_.Seconds(); }
  std::unique_ptr<Peer> NewPeer(Control& control) { return backend_.MakePeer(control); }

  // --- for controls: what they report
  Windows& GetWindows() { return windows_; }
  Timers& GetTimers() { return timers_; }
  void PushModal(Form& form);
  void PopModal(Form& form);
  void PopupMenu(Form& form, MenuItem& menu);
  void Forget(Control& control);  // it is about to be destroyed
  void PointerChanged(Control& control);
  void DragIconChanged(Control& control) { drags_.IconChanged(control); }

 private:
  enum class PressKind : std::uint8_t { Single, Double };
  void Press(Form& form, int x, int y, int button, int shift, PressKind kind);
  void ReleaseCapture();
  void Hover(Form& form, Control* control);
  void FrontChanged();
  bool RunShortcut(Form& form, int keyCode, int shift);

  Backend& backend_;
  Windows windows_;
  Drags drags_;
  Timers timers_;
  Looks looks_;
  KeyStroke stroke_ = KeyStroke::Pressed;
  const MenuItem* shortcutSought_ = nullptr;  // only to be compared
  std::vector<const Form*> keyForms_;         // whose keys are being handled, one within the other
  Watch<Control> pressed_;
  Watch<Control> hovered_;
  int pressedButton_ = 0;
  bool secondPress_ = false;
  bool ended_ = false;
  bool endAsked_ = false;
  std::function<void()> end_;
};

}  // namespace pixorra
