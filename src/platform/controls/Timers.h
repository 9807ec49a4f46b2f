// The timers of one program, and when the next of them is due.
#pragma once

#include <optional>
#include <vector>

#include "platform/controls/Backend.h"

namespace pixorra {

class Timer;
template <typename T>
class Watch;

class Timers {
 public:
  // What lies this close together, in seconds, is the same moment: clocks and sums of intervals differ in their last
  // digits.
  static constexpr double SameMoment = 1e-6;

  explicit Timers(Backend& backend) : backend_(backend) {}
  void Add(Timer& timer) { timers_.push_back(&timer); }
  void Remove(Timer& timer);
  // One of them has another deadline, or runs no longer.
  void Changed();
  // A form has been loaded: its timers begin their intervals.
  void FormLoaded(const Form& form);
  // Each timer that is due ticks once, the one due first going first. Ticks that were missed are dropped, and a timer
  // whose handler still runs (because that runs a loop) waits for its end.
  void RunDue();
  // By the back end's clock; nothing: none runs, or all are asleep until something runs.
  std::optional<double> NextDeadline() const;
  // Something runs, or has run: timers that are asleep tick on. Called by the back end around all that is not a
  // timer's.
  void Stirred();
  // From here on every tick is raised, the idle ones too.
  void LeaveNoneOut();
  // None ticks from here on.
  void Stop() { stopped_ = true; }

 private:
  void TickOne(const Watch<Timer>& timer, double moment);

  Backend& backend_;
  std::vector<Timer*> timers_;
  double ranTo_ = -1;  // what was due up to that moment has ticked, or has been left out
  bool leavesOut_ = true;
  bool stopped_ = false;
};

}  // namespace pixorra
