#include "platform/controls/Timer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"

namespace pixorra {

Timer::Timer(Container& container, const std::string& name, int interval)
    : Control(&container, Kind::Timer, std::make_shared<Identity>(Identity{name, {}}), 0), interval_(interval) {
  SetEnabled(false);
  GetToolkit().GetTimers().Add(*this);
}

Timer::~Timer() {
  if (GetContainer() != nullptr) GetToolkit().GetTimers().Remove(*this);
}

void Timer::SetInterval(int milliseconds) {
  interval_ = milliseconds;
  Restart();
}

bool Timer::Runs() const {
  return Enabled() && interval_ > 0 && !ticking_ && GetForm().IsLoaded();
}

void Timer::EnabledChanged() {
  Restart();
}

void Timer::WasIdle(int ticks, int round) {
  idle_ = true;
  leaveOut_ = ticks;
  round_ = round;
}

std::optional<double> Timer::WakeUp() const {
  if (asleep_ == UntilSomethingRuns) return std::nullopt;
  return deadline_ + asleep_ * (interval_ / 1000.0);
}

void Timer::LeaveOut(double until) {
  if (asleep_ == 0 || deadline_ > until) return;
  const double interval = interval_ / 1000.0;
  const double passed = std::floor((until - deadline_) / interval) + 1;
  const int ticks = static_cast<int>(std::min<double>(passed, asleep_));
  deadline_ += ticks * interval;
  if (asleep_ != UntilSomethingRuns) asleep_ -= ticks;
  leavingOut_ += std::min(ticks, UntilSomethingRuns - leavingOut_);
}

void Timer::Wake() {
  asleep_ = 0;
  idleTicks_ = 0;
}

// The tick of this very moment, where it is still to come, is given up with the restart and was not left out.
void Timer::Restart() {
  LeaveOut(GetToolkit().Seconds() - Timers::SameMoment);
  // A handler that disables its timer for the length of its tick has not begun anew.
  if (!ticking_) Wake();
  deadline_ = GetToolkit().Seconds() + interval_ / 1000.0;
  GetToolkit().GetTimers().Changed();
}

void Timer::Tick(double now) {
  const double interval = interval_ / 1000.0;
  deadline_ += interval;
  if (deadline_ <= now + Timers::SameMoment) deadline_ = now + interval;
  leftOut_ = std::exchange(leavingOut_, 0);
  idle_ = false;
  // The handler may raise, and may destroy the timer.
  const AtExit done([timer = Watch<Timer>(*this)] {
    if (timer) timer->ticking_ = false;
  });
  ticking_ = true;
  Raise(On().Timer, static_cast<Control&>(*this));
}

bool Timer::EndTick() {
  if (idle_ && ++idleTicks_ >= round_) asleep_ = leaveOut_;
  return idle_;
}

}  // namespace pixorra
