// Dates read from text.
#include <algorithm>
#include <cstddef>

#include "platform/runtime/DateValue.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/MonthNames.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// Takes a text apart from the left; every step raises TypeMismatch where the text is not as it should be.
class DateReader {
 public:
  explicit DateReader(std::string_view text) : rest_(text) { SkipBlanks(); }

  bool AtEnd() const { return rest_.empty(); }

  // The text begins with digits, and this mark follows them.
  bool NumberEndsWith(char mark) const {
    const std::size_t end = rest_.find_first_not_of("0123456789");
    return end != 0 && end != std::string_view::npos && rest_[end] == mark;
  }

  int Number(std::size_t fewest, std::size_t most) {
    const std::size_t count = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
    Require(count >= fewest && count <= most);
    int value = 0;
    for (const char digit : rest_.substr(0, count)) value = value * 10 + (digit - '0');
    rest_.remove_prefix(count);
    return value;
  }

  void Mark(char mark) {
    Require(!rest_.empty() && rest_.front() == mark);
    rest_.remove_prefix(1);
  }

  // 1 to 12.
  int Month() {
    const std::string_view name = rest_.substr(0, 3);
    const auto* found = std::find_if(MonthNames.begin(), MonthNames.end(),
                                     [name](std::string_view each) { return EqualIgnoringCase(each, name); });
    Require(found != MonthNames.end());
    rest_.remove_prefix(name.size());
    return static_cast<int>(found - MonthNames.begin()) + 1;
  }

  bool AfterNoon() {
    const std::string_view half = rest_.substr(0, 2);
    const bool after = EqualIgnoringCase(half, "PM");
    Require(after || EqualIgnoringCase(half, "AM"));
    rest_.remove_prefix(half.size());
    return after;
  }

  void Blanks() {
    Require(!rest_.empty() && rest_.front() == ' ');
    SkipBlanks();
  }

  void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

  static void Require(bool asItShouldBe) {
    if (!asItShouldBe) throw RuntimeError(error::TypeMismatch);
  }

 private:
  std::string_view rest_;
};

// Fills in year, month and day.
void ReadDay(DateReader& reader, CalendarTime& time) {
  time.Day = reader.Number(1, 2);
  reader.Mark('-');
  time.Month = reader.Month();
  reader.Mark('-');
  time.Year = reader.Number(3, 4);
  DateReader::Require(time.Year >= 100);
  DateReader::Require(time.Day >= 1 && time.Day <= 31);
  // A day that the month does not have would count on into the next one.
  const CalendarTime counted = FromDateValue(DateSerial(time.Year, time.Month, 1) + time.Day - 1);
  DateReader::Require(counted.Month == time.Month && counted.Day == time.Day);
}

// Fills in hour, minute and second.
void ReadTime(DateReader& reader, CalendarTime& time) {
  const int hour = reader.Number(1, 2);
  reader.Mark(':');
  time.Minute = reader.Number(2, 2);
  reader.Mark(':');
  time.Second = reader.Number(2, 2);
  reader.Blanks();
  const bool afterNoon = reader.AfterNoon();
  DateReader::Require(hour >= 1 && hour <= 12 && time.Minute <= 59 && time.Second <= 59);
  time.Hour = hour % 12 + (afterNoon ? 12 : 0);
}

}  // namespace

DateValue ParseDate(std::string_view text) {
  DateReader reader(text);
  CalendarTime time;
  const bool hasDay = reader.NumberEndsWith('-');
  if (hasDay) {
    ReadDay(reader, time);
    if (!reader.AtEnd()) reader.Blanks();
  }
  if (!reader.AtEnd() || !hasDay) ReadTime(reader, time);
  reader.SkipBlanks();
  DateReader::Require(reader.AtEnd());
  return hasDay ? ToDateValue(time) : TimeSerial(time.Hour, time.Minute, time.Second);
}

}  // namespace pixorra
