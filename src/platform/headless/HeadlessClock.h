// The virtual clock: it stands still until it is turned. Kept in whole microseconds, so that sums of steps are exact.
#pragma once

#include <cstdint>

#include "platform/services/Clock.h"

namespace pixorra {

class HeadlessClock : public Clock {
 public:
  CalendarTime Now() override;
  double Seconds() override { return static_cast<double>(microseconds_) / 1e6; }
  // Ten thousand to the second, as on a machine that has nothing else to do.
  std::int64_t CountFor(double seconds) override;

  // The local time that it shows at this moment; it goes on from there as Seconds does.
  void SetNow(const CalendarTime& time);
  // Turns it forward to that many seconds; never back.
  void AdvanceTo(double seconds);

 private:
  std::int64_t microseconds_ = 0;
  std::int64_t startMicroseconds_ = 0;  // Seconds when the start date was set
  CalendarTime start_{2004, 6, 15, 12, 0, 0, 0};
};

}  // namespace pixorra
