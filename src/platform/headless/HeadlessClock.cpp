#include "platform/headless/HeadlessClock.h"

#include <algorithm>
#include <cmath>

namespace pixorra {

CalendarTime HeadlessClock::Now() {
  constexpr std::int64_t second = 1000000;
  constexpr std::int64_t day = 86400 * second;
  const std::int64_t sinceMidnight = ((start_.Hour * 60 + start_.Minute) * 60 + start_.Second) * second +
                                     start_.Milliseconds * 1000LL + microseconds_ - startMicroseconds_;
  const DateValue date = DateSerial(start_.Year, start_.Month, start_.Day) + static_cast<double>(sinceMidnight / day);
  CalendarTime now = FromDateValue(date);
  const std::int64_t time = sinceMidnight % day;
  now.Hour = static_cast<int>(time / (3600 * second));
  now.Minute = static_cast<int>(time / (60 * second) % 60);
  now.Second = static_cast<int>(time / second % 60);
  now.Milliseconds = static_cast<int>(time / 1000 % 1000);
  return now;
}

void HeadlessClock::SetNow(const CalendarTime& time) {
  start_ = time;
  startMicroseconds_ = microseconds_;
}

std::int64_t HeadlessClock::CountFor(double seconds) {
  constexpr double passesASecond = 10000;
  AdvanceTo(Seconds() + seconds);
  return std::llround(seconds * passesASecond);
}

void HeadlessClock::AdvanceTo(double seconds) {
  microseconds_ = std::max<std::int64_t>(microseconds_, std::llround(seconds * 1e6));
}

}  // namespace pixorra
