// Date values: composed of whole days and whole seconds in one way only, so that equal moments are equal doubles.
#include "platform/runtime/DateValue.h"

#include <cmath>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

constexpr std::int64_t SecondsPerDay = 86400;
constexpr std::int64_t FirstDay = -657434;  // 1 January 100
constexpr std::int64_t LastDay = 2958465;   // 31 December 9999

// The calendar is counted from 1 March of year 0, so that a leap day is the last day of its year and every 400 years
// are alike.
constexpr std::int64_t CountedFrom = 693899;  // days from there to 30 December 1899
constexpr std::int64_t DaysIn400Years = 146097;

std::int64_t FloorDivide(std::int64_t number, std::int64_t by) {
  return number / by - (number % by < 0 ? 1 : 0);
}

// Days from 30 December 1899. Months and days outside their range count on into the neighbours.
std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day) {
  const std::int64_t monthsFromMarch = year * 12 + month - 3;
  const std::int64_t marchYear = FloorDivide(monthsFromMarch, 12);
  const std::int64_t monthOfYear = monthsFromMarch - marchYear * 12;
  const std::int64_t leapDays = FloorDivide(marchYear, 4) - FloorDivide(marchYear, 100) + FloorDivide(marchYear, 400);
  // Months from March on begin after 0, 31, 61, 92, ... days.
  const std::int64_t dayOfYear = (153 * monthOfYear + 2) / 5;
  return marchYear * 365 + leapDays + dayOfYear + day - 1 - CountedFrom;
}

CalendarTime CalendarOfDay(std::int64_t day) {
  const std::int64_t counted = day + CountedFrom;
  const std::int64_t era = FloorDivide(counted, DaysIn400Years);
  const std::int64_t dayOfEra = counted - era * DaysIn400Years;
  const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
  CalendarTime result;
  result.Day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5) + 1;
  result.Month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
  result.Year = static_cast<int>(era * 400 + yearOfEra) + (result.Month <= 2 ? 1 : 0);
  return result;
}

std::int64_t SecondsOf(int hour, int minute, int second) {
  return (static_cast<std::int64_t>(hour) * 60 + minute) * 60 + second;
}

DateValue Compose(std::int64_t day, std::int64_t seconds) {
  const std::int64_t carried = FloorDivide(seconds, SecondsPerDay);
  const std::int64_t rest = seconds - carried * SecondsPerDay;
  const std::int64_t date = day + carried;
  if (date < FirstDay || date > LastDay) throw RuntimeError(error::Overflow);
  const double fraction = static_cast<double>(rest) / static_cast<double>(SecondsPerDay);
  const auto whole = static_cast<double>(date);
  return date < 0 ? whole - fraction : whole + fraction;
}

}  // namespace

DateValue DateSerial(int year, int month, int day) {
  return Compose(DayNumber(year, month, day), 0);
}

DateValue TimeSerial(int hour, int minute, int second) {
  return static_cast<double>(SecondsOf(hour, minute, second)) / static_cast<double>(SecondsPerDay);
}

DateValue ToDateValue(const CalendarTime& time) {
  return Compose(DayNumber(time.Year, time.Month, time.Day), SecondsOf(time.Hour, time.Minute, time.Second));
}

CalendarTime FromDateValue(DateValue value) {
  // Written so that what is no number fails it too; it also keeps the conversions below inside their widths.
  if (!(value > static_cast<double>(FirstDay - 1) && value < static_cast<double>(LastDay + 1)))
    throw RuntimeError(error::Overflow);
  const double whole = std::trunc(value);
  auto day = static_cast<std::int64_t>(whole);
  auto seconds =
      static_cast<std::int64_t>(RoundHalfEven(std::fabs(value - whole) * static_cast<double>(SecondsPerDay)));
  if (seconds == SecondsPerDay) {
    ++day;
    seconds = 0;
  }
  if (day < FirstDay || day > LastDay) throw RuntimeError(error::Overflow);
  CalendarTime result = CalendarOfDay(day);
  result.Hour = static_cast<int>(seconds / 3600);
  result.Minute = static_cast<int>(seconds / 60 % 60);
  result.Second = static_cast<int>(seconds % 60);
  return result;
}

}  // namespace pixorra
