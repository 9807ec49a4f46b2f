// The host's clock.
#include "platform/posix/PosixClock.h"

#include <ctime>

#include "platform/posix/LocalTimes.h"

namespace pixorra {

CalendarTime PosixClock::Now() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return LocalTimeOf(now).value_or(CalendarTime{});
}

double PosixClock::Seconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

}  // namespace pixorra
