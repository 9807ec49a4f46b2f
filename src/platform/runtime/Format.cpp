// Numbers, texts and dates by pictures.
#include "platform/runtime/Format.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/runtime/Decimal.h"
#include "platform/runtime/MonthNames.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

char LowerLetter(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::string Padded(int number, std::size_t places) {
  std::string digits = std::to_string(number);
  if (digits.size() < places) digits.insert(0, places - digits.size(), '0');
  return digits;
}

// One date picture, walked from the left.
class DatePicture {
 public:
  DatePicture(const CalendarTime& time, std::string_view picture)
      : time_(time), picture_(picture), twelveHours_(LCase(picture).find(HalfOfDay) != std::string::npos) {}

  std::string Text() {
    while (!picture_.empty()) {
      if (EqualIgnoringCase(picture_.substr(0, HalfOfDay.size()), HalfOfDay)) {
        TakeHalfOfDay();
      } else {
        TakeRun();
      }
    }
    return text_;
  }

 private:
  static constexpr std::string_view HalfOfDay = "ampm";

  void TakeHalfOfDay() {
    const bool capitals = picture_.front() == 'A';
    if (time_.Hour >= 12) {
      text_ += capitals ? "PM" : "pm";
    } else {
      text_ += capitals ? "AM" : "am";
    }
    picture_.remove_prefix(HalfOfDay.size());
  }

  // A run of one letter is one element; anything that is no element is copied.
  void TakeRun() {
    const char letter = LowerLetter(picture_.front());
    std::size_t length = 1;
    while (length < picture_.size() && LowerLetter(picture_[length]) == letter) ++length;
    const std::string_view run = picture_.substr(0, length);
    picture_.remove_prefix(length);
    const std::size_t places = std::min<std::size_t>(length, 2);
    switch (letter) {
      case 'd':
        text_ += Padded(time_.Day, places);
        break;
      case 'm':
        TakeMonthOrMinute(length);
        break;
      case 'y':
        text_ += length > 2 ? Padded(time_.Year, 4) : Padded(time_.Year % 100, 2);
        break;
      case 'h':
        text_ += Padded(twelveHours_ ? (time_.Hour + 11) % 12 + 1 : time_.Hour, places);
        break;
      case 's':
        text_ += Padded(time_.Second, places);
        break;
      default:
        text_ += run;
        return;
    }
    afterHour_ = letter == 'h';
  }

  void TakeMonthOrMinute(std::size_t length) {
    if (length > 2) {
      text_ += MonthNames[static_cast<std::size_t>(time_.Month - 1)];
    } else {
      text_ += Padded(afterHour_ ? time_.Minute : time_.Month, length);
    }
  }

  CalendarTime time_;
  std::string_view picture_;
  bool twelveHours_;
  bool afterHour_ = false;
  std::string text_;
};

}  // namespace

std::string FormatNumber(double value, std::string_view picture) {
  if (!std::isfinite(value)) return NotFiniteText(value);
  const std::size_t point = std::min(picture.find('.'), picture.size());
  const auto zeros = [](std::string_view part) { return static_cast<int>(std::count(part.begin(), part.end(), '0')); };
  const int decimals = zeros(picture.substr(point));
  // Rounded by the digits that are seen, not by the binary fraction behind them: 1.15 is 1.2 with one decimal.
  Decimal number = ToDecimal(value);
  RoundTo(number, decimals);
  return (number.Negative ? "-" : "") + PlainNotation(number, zeros(picture.substr(0, point)), decimals);
}

std::string FormatText(std::string_view text, std::string_view picture) {
  const auto places = static_cast<std::size_t>(std::count(picture.begin(), picture.end(), '@'));
  const std::size_t count = CharacterCount(text);
  return std::string(count < places ? places - count : 0, ' ').append(text);
}

std::string FormatDate(DateValue value, std::string_view picture) {
  return DatePicture(FromDateValue(value), picture).Text();
}

}  // namespace pixorra
