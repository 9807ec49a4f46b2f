// One program's forms, focus, timers, drags and waits. Back ends, and tests, deliver raw input here; what it means is
// settled here and nowhere else.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/controls/Backend.h"
#include "platform/controls/Control.h"
#include "platform/controls/Tones.h"

namespace pixorra {

class Timer;

class Toolkit {
 public:
  // What lies this close together, in seconds, is the same moment: clocks and sums of intervals differ in their last
  // digits.
  static constexpr double SameMoment = 1e-6;

  explicit Toolkit(Backend& backend) : backend_(backend) {}
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;

  // --- waiting -----------------------------------------------------------------------------------------------------
  // Lets pending events run.
  void DoEvents();
  // Lets events run, asleep between them, until `done` holds. False: the program ended first.
  bool WaitUntil(const std::function<bool()>& done);
  // Lets events run for so many seconds. False: the program ended first.
  bool WaitFor(double seconds);
  // Every wait ends, now and from here on.
  void End();
  bool Ended() const { return ended_; }

  // --- forms -------------------------------------------------------------------------------------------------------
  const std::vector<Form*>& Forms() const { return forms_; }  // the one in front last
  Form* ActiveForm() const;
  // No modal form or box stands above it.
  bool TakesInput(const Form& form) const;
  // A box of the host is up: no form takes input until it is closed.
  void PushBox();
  void PopBox() { --boxes_; }

  // --- what a person does; pixels of the form's client area; results tell whether it was used
  // -------------------------
  void MousePressed(Form& form, int x, int y, int button, int shift);
  void MouseDoubleClicked(Form& form, int x, int y, int button, int shift);  // in place of the second press
  void MouseMoved(Form& form, int x, int y, int buttons, int shift);
  void MouseReleased(Form& form, int x, int y, int button, int shift);
  void MouseLeft(Form& form);
  // A key goes to the form first if it previews keys, then to menus' shortcuts, then to the focused control's handlers;
  // what is left is the control's own to act on.
  bool KeyPressed(Form& form, int keyCode, int shift);
  // The character that a key made; code 0 after it has been refused.
  bool CharacterTyped(Form& form, int codePoint);
  // The focus has been put on a control by a person.
  void UserFocused(Control& control);
  std::string ToolTipAt(Form& form, int x, int y);
  // The control in front there, as it would get a press; the form itself where there is no other.
  Control* ControlAt(Form& form, int x, int y);

  // --- drags ---------------------------------------------------------------------------------------------------------
  struct DragShown {
    Control* Source = nullptr;  // null: no drag runs
    Form* Over = nullptr;       // the form that has the mouse
    Rect Outline;               // where the outline stands, in pixels of that form
    int X = 0;
    int Y = 0;
  };
  DragShown Drag() const;
  void CancelDrag();
  // The pointer to show over a form: an hourglass, an icon of a control, or the default.
  struct PointerShown {
    int Pointer = 0;
    Picture Icon;
  };
  PointerShown PointerFor(Form& form);

  // --- the program's looks -------------------------------------------------------------------------------------------
  // The table of the program's tones, which must live on.
  void SetTones(std::span<const Tone> tones) { tones_ = tones; }
  // The colour that a tone stands for; any other is itself.
  Colour PlainColour(Colour colour, bool dark) const;
  // The icon of pointer::Hand.
  void SetHand(const Picture& icon) { hand_ = icon; }

  // --- timers; called by the back end
  // ----------------------------------------------------------------------------------
  void RunDueTimers();
  std::optional<double> NextDeadline() const;

  // --- services of the back end
  // ---------------------------------------------------------------------------------------
  Screen GetScreen() { return backend_.GetScreen(); }
  int MenuBarHeight() { return backend_.MenuBarHeight(); }
  TextDrawing& Text() { return backend_.Text(); }
  double Seconds() { return backend_.Seconds(); }
  std::unique_ptr<Peer> NewPeer(Control& control) { return backend_.MakePeer(control); }

  // --- what controls tell --------------------------------------------------------------------------------------------
  void AddForm(Form& form);
  void RemoveForm(Form& form);
  void Activate(Form& form);
  void Deactivate(Form& form);
  void PushModal(Form& form);
  void PopModal(Form& form);
  void PopupMenu(Form& form, MenuItem& menu);
  Control* Focus() const { return focus_.Get(); }
  void SetFocus(Control* control);
  void FocusLeaves(const Control& control);  // it, or what it holds, is hidden or disabled
  void Forget(Control& control);             // it is about to go
  void PointerChanged(Control& control);
  void DragIconChanged(Control& control);
  void TimerChanged();
  void AddTimer(Timer& timer);
  void RemoveTimer(Timer& timer);

 private:
  void Press(Form& form, int x, int y, int button, int shift, bool second);
  void BeginDrag(Form& form, Control& source, int x, int y);
  void MoveDrag(Form& form, int x, int y);
  void EndDrag(Form& form, int x, int y);
  void ReleaseCapture();
  void Arrange(Form& front);
  void Hover(Form& form, Control* control);
  Watch<Control> FocusWithin(const Form& form) const;
  bool RunShortcut(Form& form, int keyCode, int shift);

  Backend& backend_;
  std::span<const Tone> tones_;
  Picture hand_;
  std::vector<Form*> forms_;
  std::vector<Form*> modal_;
  std::vector<Timer*> timers_;
  Watch<Form> active_;
  Watch<Control> focus_;
  Watch<Control> pressed_;
  Watch<Control> hovered_;
  Watch<Control> dragSource_;
  Watch<Control> dragTarget_;
  Watch<Form> dragForm_;
  int pressedButton_ = 0;
  bool secondPress_ = false;
  int dragX_ = 0;
  int dragY_ = 0;
  int grabX_ = 0;  // where on the source it was taken
  int grabY_ = 0;
  int boxes_ = 0;
  bool ended_ = false;
};

}  // namespace pixorra
