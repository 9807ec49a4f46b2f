// Local time of the host's clock, both ways.
#pragma once

#include <ctime>
#include <optional>

#include "platform/runtime/DateValue.h"

namespace pixorra {

// Milliseconds are cut, not rounded. Nothing for a year outside 1 to 9999.
std::optional<CalendarTime> LocalTimeOf(const timespec& moment);
// A time that the clocks skip in spring becomes one that they show; of one that they show twice in autumn either is
// taken. Nothing for fields outside their ranges.
std::optional<timespec> MomentOf(const CalendarTime& time);

}  // namespace pixorra
