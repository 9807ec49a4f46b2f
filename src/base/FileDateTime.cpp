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

DateValue DateOf(const std::optional<CalendarTime>& time) {
  return time ? OrElse(NoFileDate(), [&] { return ThroughText(*time); }) : NoFileDate();
}

}  // namespace

// A file time of zero.
DateValue NoFileDate() {
  return ThroughText(CalendarTime{});
}

DateValue GetFileDate(Files& files, const std::string& path) {
  return DateOf(files.LastWriteTime(path));
}

DateValue GetFileDateToRead(Files& files, const std::string& path) {
  return DateOf(files.LastWriteTimeToRead(path));
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
