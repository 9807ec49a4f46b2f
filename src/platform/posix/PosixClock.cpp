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

std::int64_t PosixClock::CountFor(double seconds) {
  constexpr timespec pause{0, 100000};
  const double end = Seconds() + seconds;
  std::int64_t count = 0;
  for (; Seconds() < end; ++count) nanosleep(&pause, nullptr);
  return count;
}

}  // namespace pixorra
