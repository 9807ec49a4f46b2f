#include "platform/controls/Timer.h"

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

void Timer::Restart() {
  deadline_ = GetToolkit().Seconds() + interval_ / 1000.0;
  GetToolkit().GetTimers().Changed();
}

void Timer::Tick(double now) {
  const double interval = interval_ / 1000.0;
  deadline_ += interval;
  if (deadline_ <= now + Timers::SameMoment) deadline_ = now + interval;
  // The handler may raise, and may destroy the timer.
  const AtExit done([timer = Watch<Timer>(*this)] {
    if (timer) timer->ticking_ = false;
  });
  ticking_ = true;
  Raise(On().Timer, static_cast<Control&>(*this));
}

}  // namespace pixorra
