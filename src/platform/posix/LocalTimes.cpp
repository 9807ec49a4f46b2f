// Local time by the host's own time zone rules.
#include "platform/posix/LocalTimes.h"

namespace pixorra {

namespace {

constexpr long nanosecondsInMillisecond = 1'000'000;
constexpr int firstYear = 1;
constexpr int lastYear = 9999;

bool InRange(int value, int lowest, int highest) {
  return value >= lowest && value <= highest;
}

bool Valid(const CalendarTime& time) {
  return InRange(time.Year, firstYear, lastYear) && InRange(time.Month, 1, 12) && InRange(time.Day, 1, 31) &&
         InRange(time.Hour, 0, 23) && InRange(time.Minute, 0, 59) && InRange(time.Second, 0, 59) &&
         InRange(time.Milliseconds, 0, 999);
}

}  // namespace

std::optional<CalendarTime> LocalTimeOf(const timespec& moment) {
  // localtime_r need not look at the zone again by itself.
  tzset();
  std::tm fields{};
  if (localtime_r(&moment.tv_sec, &fields) == nullptr) return std::nullopt;
  if (!InRange(fields.tm_year, firstYear - 1900, lastYear - 1900)) return std::nullopt;
  CalendarTime time;
  time.Year = fields.tm_year + 1900;
  time.Month = fields.tm_mon + 1;
  time.Day = fields.tm_mday;
  time.Hour = fields.tm_hour;
  time.Minute = fields.tm_min;
  // A leap second, where the host counts them, is the last of its minute once more.
  time.Second = fields.tm_sec > 59 ? 59 : fields.tm_sec;
  time.Milliseconds = static_cast<int>(moment.tv_nsec / nanosecondsInMillisecond);
  return time;
}

std::optional<timespec> MomentOf(const CalendarTime& time) {
  if (!Valid(time)) return std::nullopt;
  std::tm fields{};
  fields.tm_year = time.Year - 1900;
  fields.tm_mon = time.Month - 1;
  fields.tm_mday = time.Day;
  fields.tm_hour = time.Hour;
  fields.tm_min = time.Minute;
  fields.tm_sec = time.Second;
  fields.tm_isdst = -1;
  // -1 is also the second before 1970; only a call that worked fills in the weekday.
  fields.tm_wday = -1;
  const std::time_t seconds = mktime(&fields);
  if (seconds == -1 && fields.tm_wday == -1) return std::nullopt;
  return timespec{seconds, time.Milliseconds * nanosecondsInMillisecond};
}

}  // namespace pixorra
