// What the control model asks of a back end: peers, the loop's sleep, and figures of the screen.
#pragma once

#include <memory>
#include <optional>

#include "platform/controls/Peer.h"
#include "platform/services/TextDrawing.h"

namespace pixorra {

class Control;
class Form;
class MenuItem;

// Twips.
struct Screen {
  double Width = 0;
  double Height = 0;
  double TwipsPerPixelX = 15;
  double TwipsPerPixelY = 15;
  double Fineness = 1;  // the screen's own pixels to the side of one pixel
  double Left = 0;      // its place among the screens
  double Top = 0;
};

class Backend {
 public:
  virtual ~Backend() = default;
  // Null where the back end shows nothing for it.
  virtual std::unique_ptr<Peer> MakePeer(Control& control) = 0;
  // Handles what waits to be handled, without sleeping.
  virtual void ProcessEvents() = 0;
  // Sleeps until something happens, or until that many seconds have passed, and handles it.
  virtual void WaitForEvents(std::optional<double> seconds) = 0;
  // Ends the outermost loop, if one runs, when the present turn is over.
  virtual void EndLoop() = 0;
  // Toolkit::ContinueEnding is to be called once, in a later turn of whichever loop runs then.
  virtual void PostEnding() = 0;
  // Closes the menu or box of the host that is in front, as by its frame; false where there is none.
  virtual bool CloseFront() = 0;
  // The clock of the timers, in seconds.
  virtual double Seconds() = 0;
  // Toolkit::RunDueTimers is to be called at that moment (nothing: not at all); replaces what was asked before.
  virtual void WakeAt(std::optional<double> seconds) = 0;
  virtual Screen GetScreen() = 0;
  // Screens have numbers from 0, the main one; a number that no screen has stands for that one.
  virtual int ScreenCount() { return 1; }
  virtual Screen GetScreen(int) { return GetScreen(); }
  // The number of the screen that the pointer is on.
  virtual int ScreenOfPointer() { return 0; }
  // The largest size of a window: that of all screens together.
  virtual Screen LargestWindow() { return GetScreen(); }
  virtual int MenuBarHeight() = 0;  // pixels
  // How many of the screen's own pixels make up the side of one pixel here: 1, or more on a high-density screen.
  virtual double Fineness() { return 1; }
  virtual TextDrawing& Text() = 0;
  // Shows a menu at the pointer until it is closed, and runs the chosen item. One that is up closes at that, and
  // nothing of it runs.
  virtual void PopupMenu(Form& form, MenuItem& menu) = 0;
  // A menu or a drop-down list is open, or what was chosen from it is about to run.
  virtual bool IsMenuUp() = 0;
  // The picture or outline that follows the pointer, or the pointer itself, has changed: read it from the toolkit.
  virtual void DragChanged() = 0;
  virtual void PointerChanged(Form& form) = 0;
};

}  // namespace pixorra
