// What the program does with the bars of the film strip and of the open folder.
#pragma once

#include "platform/controls/ScrollBar.h"

namespace pixorra {

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
