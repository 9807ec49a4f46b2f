// A timer: raises Timer each time its interval has passed while it is enabled and its form is loaded. Enabling one that
// was disabled starts its interval, and so does loading its form.
#pragma once

#include <string>

#include "platform/controls/Control.h"

namespace pixorra {

class Timer : public Control {
 public:
  // Disabled. The interval is milliseconds; 0 never ticks.
  Timer(Container& container, const std::string& name, int interval);
  ~Timer() override;

  int Interval() const { return interval_; }
  void SetInterval(int milliseconds);  // starts the interval anew
  // For the toolkit: it can tick, and when, by the back end's clock.
  bool Runs() const;
  double Deadline() const { return deadline_; }
  void Tick(double now);
  void Restart();

 protected:
  void EnabledChanged() override;

 private:
  int interval_;
  double deadline_ = 0;
  bool ticking_ = false;
};

}  // namespace pixorra
