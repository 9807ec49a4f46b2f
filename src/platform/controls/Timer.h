// A timer: raises Timer each time its interval has passed while it is enabled and its form is loaded. Enabling one that
// was disabled starts its interval, and so does loading its form.
//
// A program of which nothing is wanted is to sleep. So a handler may say that its next ticks would change nothing: they
// are left out. Whatever runs (an act of a person, what another thread posts, another timer's tick that was not idle)
// ends that, and ticks are raised again at the moments at which they would have been raised all along.
#pragma once

#include <limits>
#include <optional>
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

  // For the handler, in its tick: the tick was idle, it has changed nothing that any other handler asks for. Once
  // `round` ticks have been idle with nothing run in between, the next `ticks` would be idle too, for as long as
  // nothing runs.
  void WasIdle(int ticks, int round = 1);
  static constexpr int UntilSomethingRuns = std::numeric_limits<int>::max();
  // For the handler, in its tick: how many have been left out since the tick before.
  int LeftOut() const { return leftOut_; }

  // For the toolkit: it can tick, and when, by the back end's clock; that tick may be left out.
  bool Runs() const;
  double Deadline() const { return deadline_; }
  bool IsAsleep() const { return asleep_ > 0; }
  // When it has to be looked at: that of the first tick which is not left out.
  std::optional<double> WakeUp() const;
  // Leaves out the ticks up to that moment that are to be left out.
  void LeaveOut(double until);
  void Wake();
  void Tick(double now);
  // True: it was idle.
  bool EndTick();
  void Restart();

 protected:
  void EnabledChanged() override;

 private:
  int interval_;
  double deadline_ = 0;
  bool ticking_ = false;
  // Of the tick that is handled now.
  bool idle_ = false;
  int leaveOut_ = 0;
  int round_ = 1;
  int leftOut_ = 0;
  int idleTicks_ = 0;   // on end, with nothing run in between
  int asleep_ = 0;      // how many ticks, from the deadline's on, are to be left out
  int leavingOut_ = 0;  // how many have been since the last tick
};

}  // namespace pixorra
