// Dates: calendar fields in local time, and the date value that stores them as one number.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace pixorra {

// A moment of local time by the calendar (proleptic Gregorian).
struct CalendarTime {
  int Year = 1601;
  int Month = 1;   // 1 to 12
  int Day = 1;     // 1 to 31
  int Hour = 0;    // 0 to 23
  int Minute = 0;  // 0 to 59
  int Second = 0;  // 0 to 59
  int Milliseconds = 0;

  bool operator==(const CalendarTime&) const = default;
};

// Days since 30 December 1899 as a double, the time of day as fraction. Before that day the fraction still counts
// upward from midnight in magnitude: -1.25 is six in the morning of 29 December 1899.
using DateValue = double;

// Months, days, hours, minutes and seconds outside their range count on into the next or the previous ones.
// Milliseconds are left out. The same moment is the same double however it is computed, ParseDate included. Raise
// Overflow for a moment outside the years 100 to 9999.
DateValue DateSerial(int year, int month, int day);
DateValue TimeSerial(int hour, int minute, int second);
DateValue ToDateValue(const CalendarTime& time);
// To the nearest second. Raises Overflow outside the years 100 to 9999 and for what is no number.
CalendarTime FromDateValue(DateValue value);

// Reads "DD-MMM-YYYY" and "hh:mm:ss AMPM", apart or joined by blanks, months by their English short names.
// Raises TypeMismatch for any other text. A time alone is the fraction of a day.
DateValue ParseDate(std::string_view text);

}  // namespace pixorra
