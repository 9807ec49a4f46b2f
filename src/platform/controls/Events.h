// The events of controls, and what comes with each.
#pragma once

#include <cstdint>
#include <functional>
#include <source_location>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace pixorra {

class Control;

namespace button {
inline constexpr int Left = 1;
inline constexpr int Right = 2;
inline constexpr int Middle = 4;
}  // namespace button

namespace shift {
inline constexpr int None = 0;
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
}  // namespace shift

namespace key {
inline constexpr int Back = 8;
inline constexpr int Tab = 9;
inline constexpr int Return = 13;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Insert = 45;
inline constexpr int Delete = 46;
inline constexpr int F1 = 112;  // to F12, 123; letters and digits are their capitals' codes
// Every key without a code of its own, Shift and the like included: see Form::TakesEveryKey.
inline constexpr int Other = 255;
}  // namespace key

// What a mouse event carries: the button, or for a move the sum of those held; keys held; pixels within the control.
struct MouseArgs {
  int Button = 0;
  int Shift = 0;
  double X = 0;
  double Y = 0;
};

// What a turn of the mouse wheel, or a stroke on a touch pad, carries: how far towards the right and the bottom, in
// notches of a wheel (parts of one where the wheel is finer) or, from a device that is precise to the pixel, in pixels,
// the notches then being 0; keys held; pixels within the control.
struct WheelArgs {
  double NotchesX = 0;
  double NotchesY = 0;
  double PixelsX = 0;
  double PixelsY = 0;
  int Shift = 0;
  double X = 0;
  double Y = 0;
};

enum class DragState : std::uint8_t { Enter, Leave, Over };

// What a drag over a control, or a drop on it, carries: the control that is dragged; pixels within the target; a drop's
// state is Over.
struct DragArgs {
  Control& Source;
  double X = 0;
  double Y = 0;
  DragState State = DragState::Over;
};

// Files and folders of another program that a person lets go over a control: as the host spells them; pixels within the
// control.
struct FilesArgs {
  const std::vector<std::string>& Paths;
  double X = 0;
  double Y = 0;
};

// The place of a photo, or the like, among its own kind: from 1, of so many. Chosen: it is what the keys act on.
struct PlaceAmong {
  int Place = 0;
  int Count = 0;
  bool Chosen = false;
};

// What can be done with a control, by a name that says it; Keys: what does the same by keyboard, empty for none.
struct NamedAction {
  std::string Name;
  std::string Keys;
  std::function<void()> Run;
};

// One set of handlers serves a control, or all elements of a control array; the element's Index says which.
struct Events {
  std::function<void(Control&)> Click;
  std::function<void(Control&)> DblClick;
  std::function<void(Control&)> Change;  // Value, Text, or a list's selection
  std::function<void(Control&)> Scroll;  // a bar's thumb is being dragged
  std::function<void(Control&)> Timer;
  std::function<void(Control&)> PathChange;  // a file list's folder
  std::function<void(Control&)> GotFocus;
  std::function<void(Control&)> LostFocus;
  std::function<void(Control&)> Load;         // forms
  std::function<void(Control&)> Resize;       // forms
  std::function<void(Control&)> QueryUnload;  // forms, before Unload
  std::function<void(Control&)> Unload;       // forms
  std::function<void(Control&, const MouseArgs&)> MouseDown;
  std::function<void(Control&, const MouseArgs&)> MouseMove;
  std::function<void(Control&, const MouseArgs&)> MouseUp;
  // To the control under the pointer or, where that has no handler, to the nearest container of it that has one.
  std::function<void(Control&, const WheelArgs&)> MouseWheel;
  std::function<void(Control&, const DragArgs&)> DragOver;  // to the target, as DragDrop
  std::function<void(Control&, const DragArgs&)> DragDrop;
  // To the control under the pointer or, where that has no handler, to the nearest container of it that has one.
  std::function<void(Control&, const FilesArgs&)> FilesDropped;
  // A handler that sets the code to 0 has used the key. KeyPress takes the character's code point.
  std::function<void(Control&, int&, int)> KeyDown;
  std::function<void(Control&, int&)> KeyPress;
  // What a screen reader says of an element, in place of its AccessibleName and its ToolTipText: asked for when it is
  // wanted, so that thousands of them cost nothing.
  std::function<std::string(const Control&)> SpokenName;
  std::function<std::string(const Control&)> SpokenDescription;
  // An entry of a list, to a screen reader, and where in it.
  std::function<PlaceAmong(const Control&)> SpokenPlace;
  // What a screen reader offers to do with it beside a press, such as what a drag does by hand.
  std::function<std::vector<NamedAction>(const Control&)> SpokenActions;
  // Forms: the control that the keys act on where the focus is on another; null for none. A screen reader follows it.
  std::function<Control*(const Control&)> SpokenChoice;
};

// Gives an event its handler. An event has one: raises std::logic_error, which names the place, where it has one
// already.
template <typename Signature, typename Handler>
void Connect(std::function<Signature>& slot, Handler&& handler,
             const std::source_location& where = std::source_location::current()) {
  if (slot) {
    throw std::logic_error(std::string(where.file_name()) + ":" + std::to_string(where.line()) +
                           ": this event has a handler already");
  }
  slot = std::forward<Handler>(handler);
}

// Runs a copy of a handler, so that the handler may be replaced, or the control destroyed, while it runs.
template <typename Signature, typename... Args>
void Raise(const std::function<Signature>& handler, Args&&... args) {
  if (!handler) return;
  const std::function<Signature> copy = handler;
  copy(std::forward<Args>(args)...);
}

}  // namespace pixorra
