// The host's clock.
#pragma once

#include "platform/services/Clock.h"

namespace pixorra {

class PosixClock : public Clock {
 public:
  CalendarTime Now() override;
  double Seconds() override;
  std::int64_t CountFor(double seconds) override;
};

}  // namespace pixorra
