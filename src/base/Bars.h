// What the program does with the bars of the film strip and of the open folder.
#pragma once

#include <string>

#include "platform/controls/ScrollBar.h"

namespace pixorra {

// The least number of pixels that a bar counts in, and the least Max of a view's bar.
inline constexpr int LeastBarUnit = 2;
inline constexpr int LeastBarMax = 50;

// How a bar counts.
struct BarScale {
  int Unit = LeastBarUnit;  // pixels that a view moves for each 1 of the bar's value, an even number
  double Rest = 0;          // pixels that MoveBarBy has not moved yet, half a unit at most
};

// Pixels that lie before the view's edge.
inline double ScrolledPixels(const ScrollBar& bar, const BarScale& scale) {
  return static_cast<double>(bar.Value()) * scale.Unit;
}

// The least unit in which a range of so many pixels fits the bar's 16 bits.
int BarUnitFor(double pixels);
// Gives the bar the range for a view that scrolls by so many pixels; LeastBarMax where those are fewer. True where the
// unit has changed: the value then is that of the same place, as near as the unit allows, Change has done nothing, and
// the caller has to place the view. `least` is the bar's Min in units of LeastBarUnit; in larger ones it is 0, as one
// such unit would cut off part of the view's start.
[[nodiscard]] bool FitBar(ScrollBar& bar, BarScale& scale, double pixels, int least = 0);

// Moves the bar by so many pixels of its view, positive towards the end, to the nearest unit in its range. What is left
// is kept for the next call, so that small moves add up; at an end of the range it is dropped.
void MoveBarBy(ScrollBar& bar, BarScale& scale, double pixels);

// A bar that has been clicked keeps no focus.
inline void TakeFocusOff(ScrollBar& bar) {
  bar.SetEnabled(false);
  bar.SetEnabled(true);
}

// While one lives, the bar is being scrolled by its thumb or given another unit, and its Change must do nothing.
class ScrollInProgress {
 public:
  explicit ScrollInProgress(ScrollBar& bar) : bar_(bar), before_(bar.Tag()) { bar_.SetTag(Busy); }
  ~ScrollInProgress() { bar_.SetTag(before_); }
  ScrollInProgress(const ScrollInProgress&) = delete;
  ScrollInProgress& operator=(const ScrollInProgress&) = delete;

  static bool On(const ScrollBar& bar) { return bar.Tag() == Busy; }

 private:
  static constexpr const char* Busy = "BUSY";

  ScrollBar& bar_;
  std::string before_;
};

}  // namespace pixorra
