#include "platform/controls/Timers.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/Form.h"
#include "platform/controls/Timer.h"
#include "platform/runtime/AtExit.h"

namespace pixorra {

void Timers::Remove(Timer& timer) {
  std::erase(timers_, &timer);
  Changed();
}

void Timers::Changed() {
  backend_.WakeAt(NextDeadline());
}

void Timers::FormLoaded(const Form& form) {
  for (Timer* timer : timers_) {
    if (&timer->GetForm() == &form) timer->Restart();
  }
}

std::optional<double> Timers::NextDeadline() const {
  std::optional<double> next;
  for (const Timer* timer : timers_) {
    const std::optional<double> moment = timer->Runs() ? timer->WakeUp() : std::nullopt;
    if (moment && (!next || *moment < *next)) next = moment;
  }
  return next;
}

// In the middle of RunDue what is due at this very moment is not over yet: it is left to RunDue.
void Timers::Stirred() {
  bool woken = false;
  const double now = backend_.Seconds();
  const double over = now > ranTo_ + SameMoment ? now - SameMoment : now + SameMoment;
  for (Timer* timer : timers_) {
    if (timer->IsAsleep()) {
      timer->LeaveOut(over);
      woken = true;
    }
    timer->Wake();
  }
  if (woken) Changed();
}

void Timers::LeaveNoneOut() {
  leavesOut_ = false;
  Stirred();
}

void Timers::RunDue() {
  const double moment = backend_.Seconds();
  const double now = moment + SameMoment;
  // Also when a handler raises: without a wake-up the timers that are left would never tick again.
  const AtExit askAgain([this, moment] {
    ranTo_ = std::max(ranTo_, moment);
    Changed();
  });
  for (Timer* timer : timers_) timer->LeaveOut(moment - SameMoment);
  std::vector<Watch<Timer>> due;
  std::vector<Timer*> sorted = timers_;
  const auto beat = [](const Timer* timer) { return std::llround(timer->Deadline() / SameMoment); };
  std::stable_sort(sorted.begin(), sorted.end(), [&](const Timer* a, const Timer* b) { return beat(a) < beat(b); });
  for (Timer* timer : sorted) {
    if (timer->Runs() && timer->Deadline() <= now) due.emplace_back(*timer);
  }
  for (const Watch<Timer>& timer : due) {
    if (stopped_) break;
    if (!timer || !timer->Runs() || timer->Deadline() > now) continue;
    if (timer->IsAsleep()) {
      timer->LeaveOut(now);
    } else {
      TickOne(timer, moment);
    }
  }
}

// Also where the handler raises, and where it has destroyed the timer.
void Timers::TickOne(const Watch<Timer>& timer, double moment) {
  bool returned = false;
  const AtExit ended([&] {
    const bool idle = returned && timer && timer->EndTick();
    if (!idle || !leavesOut_) Stirred();
  });
  timer->Tick(moment);
  returned = true;
}

}  // namespace pixorra
