// What the program does with the bars of the film strip and of the open folder.
#pragma once

#include "platform/controls/ScrollBar.h"

namespace pixorra {

// Pixels. A bar counts in them while its view fits 16 bits.
inline constexpr int LeastBarUnit = 2;

// How a bar counts.
struct BarScale {
  int Unit = LeastBarUnit;  // pixels that a view moves for each 1 of the bar's value
  double Rest = 0;          // pixels that MoveBarBy has not moved yet, half a unit at most
};

// Moves the bar by so many pixels of its view, positive towards the end, to the nearest unit in its range. What is left
// is kept for the next call, so that small moves add up; at an end of the range it is dropped.
void MoveBarBy(ScrollBar& bar, BarScale& scale, double pixels);

// A bar that has been clicked keeps no focus.
inline void TakeFocusOff(ScrollBar& bar) {
  bar.SetEnabled(false);
  bar.SetEnabled(true);
}

// While one lives, the bar is being scrolled by its thumb, and its Change must do nothing.
class ScrollInProgress {
 public:
  explicit ScrollInProgress(ScrollBar& bar) : bar_(bar) { bar_.SetTag(Busy); }
  ~ScrollInProgress() { bar_.SetTag(""); }
  ScrollInProgress(const ScrollInProgress&) = delete;
  ScrollInProgress& operator=(const ScrollInProgress&) = delete;

  static bool On(const ScrollBar& bar) { return bar.Tag() == Busy; }

 private:
  static constexpr const char* Busy = "BUSY";

  ScrollBar& bar_;
};

}  // namespace pixorra
