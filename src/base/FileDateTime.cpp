#include "base/FileDateTime.h"

#include "platform/runtime/Errors.h"
#include "platform/runtime/Format.h"
#include "platform/services/Clock.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

// The month is written by name and read back, so that no order of day and month can matter.
DateValue ThroughText(const CalendarTime& time) {
  const std::string date = FormatDate(DateSerial(time.Year, time.Month, time.Day), "DD-MMM-YYYY");
  const std::string hours = FormatDate(TimeSerial(time.Hour, time.Minute, time.Second), "hh:mm:ss AMPM");
  return ParseDate(date + "  " + hours);
}

// What a file time of zero tells.
DateValue NoFileDate() {
  return ThroughText(CalendarTime{});
}

}  // namespace

DateValue GetFileDate(Files& files, const std::string& path) {
  const std::optional<CalendarTime> time = files.LastWriteTime(path);
  return time ? OrElse(NoFileDate(), [&] { return ThroughText(*time); }) : NoFileDate();
}

void SetFileDate(Files& files, Clock& clock, const std::string& path, DateValue date) {
  if (date == NoFileDate()) return;
  ErrorsIgnored([&] {
    CalendarTime time = FromDateValue(date);
    time.Milliseconds = clock.Now().Milliseconds;
    files.SetTimes(path, time);
  });
}

}  // namespace pixorra
