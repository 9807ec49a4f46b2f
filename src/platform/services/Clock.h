// The time of day.
#pragma once

#include "platform/runtime/DateValue.h"

namespace pixorra {

class Clock {
 public:
  virtual ~Clock() = default;
  // Local time, with milliseconds.
  virtual CalendarTime Now() = 0;
  // Seconds since some moment in the past; never goes back.
  virtual double Seconds() = 0;
};

}  // namespace pixorra
