// Numbers: widths, rounding, and the two ways between numbers and texts.
#include "platform/runtime/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <system_error>

#include "platform/runtime/Decimal.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

template <typename Whole>
Whole ToWidth(double value) {
  const double rounded = RoundHalfEven(value);
  // Written so that what is no number fails it too.
  if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max()))
    throw RuntimeError(error::Overflow);
  return static_cast<Whole>(rounded);
}

// Blanks, tabs and line feeds are skipped anywhere.
std::string WithoutBlanks(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
               [](char c) { return c != ' ' && c != '\t' && c != '\n'; });
  return kept;
}

// "&H" and "&O" numbers: 16 bits wide with a sign while they fit and no "&" follows, else 32 bits wide with a sign.
double PrefixedValue(std::string_view text, unsigned base) {
  std::uint64_t value = 0;
  std::size_t at = 2;
  for (; at < text.size(); ++at) {
    unsigned digit = base;
    const char c = text[at];
    if (IsDigit(c)) digit = static_cast<unsigned>(c - '0');
    if (c >= 'A' && c <= 'F') digit = static_cast<unsigned>(c - 'A') + 10;
    if (c >= 'a' && c <= 'f') digit = static_cast<unsigned>(c - 'a') + 10;
    if (digit >= base) break;
    value = value * base + digit;
    if (value > std::numeric_limits<std::uint32_t>::max()) throw RuntimeError(error::Overflow);
  }
  const bool wide = at < text.size() && text[at] == '&';
  if (!wide && value <= std::numeric_limits<std::uint16_t>::max()) return static_cast<std::int16_t>(value);
  return static_cast<std::int32_t>(value);
}

// Digits with at most one point; `end` is left behind them.
std::string TakeMantissa(std::string_view text, std::size_t& end) {
  std::string mantissa;
  bool point = false;
  for (; end < text.size(); ++end) {
    const char c = text[end];
    if (c == '.' && !point) {
      point = true;
    } else if (!IsDigit(c)) {
      break;
    }
    mantissa += c;
  }
  return mantissa;
}

// "E" or "D", a sign and digits; empty where no digit follows.
std::string TakeExponent(std::string_view text, std::size_t at) {
  if (at >= text.size()) return {};
  const char letter = text[at];
  if (letter != 'E' && letter != 'e' && letter != 'D' && letter != 'd') return {};
  std::string exponent = "e";
  ++at;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) exponent += text[at++];
  if (at >= text.size() || !IsDigit(text[at])) return {};
  for (; at < text.size() && IsDigit(text[at]); ++at) exponent += text[at];
  return exponent;
}

// Tells the two ends of the range apart, for a number that is outside of it. The mantissa is not 0.
bool IsAboveOne(const std::string& mantissa, std::string_view exponent) {
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto places = static_cast<long long>(point) - static_cast<long long>(mantissa.find_first_not_of("0."));
  if (!exponent.empty()) exponent.remove_prefix(exponent.substr(1, 1) == "+" ? 2 : 1);
  long long power = 0;
  const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  if (read.ec == std::errc::result_out_of_range) return exponent.front() != '-';
  // Compared so that nothing can leave the width.
  return power > -places;
}

}  // namespace

std::int16_t CInt(double value) {
  return ToWidth<std::int16_t>(value);
}

std::int32_t CLng(double value) {
  return ToWidth<std::int32_t>(value);
}

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  if (part < 0.5) return below;
  if (part > 0.5) return below + 1;
  // Exactly between two whole numbers, or no number at all.
  return part == 0.5 && std::fmod(below, 2) != 0 ? below + 1 : below;
}

double Val(std::string_view text) {
  const std::string kept = WithoutBlanks(text);
  if (kept.size() >= 2 && kept[0] == '&') {
    if (kept[1] == 'H' || kept[1] == 'h') return PrefixedValue(kept, 16);
    if (kept[1] == 'O' || kept[1] == 'o') return PrefixedValue(kept, 8);
  }
  std::size_t at = 0;
  const bool negative = !kept.empty() && kept[0] == '-';
  if (negative || (!kept.empty() && kept[0] == '+')) at = 1;
  const std::string mantissa = TakeMantissa(kept, at);
  if (mantissa.find_first_of("123456789") == std::string::npos) return 0;
  const std::string exponent = TakeExponent(kept, at);
  const std::string number = mantissa + exponent;
  double value = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    if (IsAboveOne(mantissa, exponent)) throw RuntimeError(error::Overflow);
    return 0;
  }
  return negative ? -value : value;
}

std::string TrimmedStr(double value) {
  if (!std::isfinite(value)) return NotFiniteText(value);
  const Decimal number = ToDecimal(value);
  if (number.Digits.empty()) return "0";
  const std::string sign = number.Negative ? "-" : "";
  const int count = static_cast<int>(number.Digits.size());
  // Plain while 15 places on either side of the point hold all digits, so 1E+15 and 3.33333333333333E-02 but .001.
  if (number.Point <= 15 && count - number.Point <= 15) return sign + PlainNotation(number, 0, 0);
  std::string text = sign + number.Digits.substr(0, 1);
  if (count > 1) text += "." + number.Digits.substr(1);
  const int exponent = number.Point - 1;
  const std::string power = std::to_string(std::abs(exponent));
  return text + (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
}

std::string Str(double value) {
  const std::string text = TrimmedStr(value);
  return text.front() == '-' ? text : " " + text;
}

}  // namespace pixorra
