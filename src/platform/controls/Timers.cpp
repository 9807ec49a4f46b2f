#include "platform/controls/Timers.h"

#include <algorithm>

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
    if (timer->Runs() && (!next || timer->Deadline() < *next)) next = timer->Deadline();
  }
  return next;
}

void Timers::RunDue() {
  const double now = backend_.Seconds() + SameMoment;
  // Also when a handler raises: without a wake-up the timers that are left would never tick again.
  const AtExit askAgain([this] { Changed(); });
  std::vector<Watch<Timer>> due;
  std::vector<Timer*> sorted = timers_;
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const Timer* a, const Timer* b) { return a->Deadline() < b->Deadline(); });
  for (Timer* timer : sorted) {
    if (timer->Runs() && timer->Deadline() <= now) due.emplace_back(*timer);
  }
  for (const Watch<Timer>& timer : due) {
    if (stopped_) break;
    if (timer && timer->Runs() && timer->Deadline() <= now) timer->Tick(now - SameMoment);
  }
}

}  // namespace pixorra
