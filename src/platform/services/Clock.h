// The time of day.
#pragma once

#include <cstdint>

#include "platform/runtime/DateValue.h"

namespace pixorra {

class Clock {
 public:
  virtual ~Clock() = default;
  // Local time, with milliseconds.
  virtual CalendarTime Now() = 0;
  // Seconds since some moment in the past; never goes back.
  virtual double Seconds() = 0;
  // Lets that many seconds pass, 0 or more, and counts how often it looked at the clock meanwhile. It sleeps a tenth of
  // a millisecond between looks, so a slow or busy machine counts less; no events run.
  virtual std::int64_t CountFor(double seconds) = 0;
};

}  // namespace pixorra
