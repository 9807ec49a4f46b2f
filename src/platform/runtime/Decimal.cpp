// Decimal digits of doubles.
#include "platform/runtime/Decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace pixorra {

namespace {

constexpr int SignificantDigits = 15;

void StripTrailingZeros(std::string& digits) {
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
}

// Adds one unit in the last digit; true where it carries out of the first.
bool AddUnit(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return false;
    }
    *digit = '0';
  }
  return true;
}

}  // namespace

Decimal ToDecimal(double value) {
  Decimal result;
  if (value == 0) return result;
  result.Negative = value < 0;
  // One digit, the point, the other digits, "e", the exponent's sign and digits.
  std::array<char, 32> text;
  const auto written = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                     std::chars_format::scientific, SignificantDigits - 1);
  const std::string_view all(text.data(), static_cast<std::size_t>(written.ptr - text.data()));
  const std::size_t mark = all.find('e');
  result.Digits = std::string(all.substr(0, 1)) + std::string(all.substr(2, mark - 2));
  StripTrailingZeros(result.Digits);
  std::string_view power = all.substr(mark + 1);
  if (power.front() == '+') power.remove_prefix(1);
  int exponent = 0;
  std::from_chars(power.data(), power.data() + power.size(), exponent);
  result.Point = exponent + 1;
  return result;
}

void RoundTo(Decimal& number, int decimals) {
  const int kept = number.Point + decimals;
  if (kept >= static_cast<int>(number.Digits.size())) return;
  if (kept < 0) {
    number = Decimal{};
    return;
  }
  const bool up = number.Digits[static_cast<std::size_t>(kept)] >= '5';
  number.Digits.resize(static_cast<std::size_t>(kept));
  if (up && AddUnit(number.Digits)) {
    number.Digits.insert(number.Digits.begin(), '1');
    ++number.Point;
  }
  StripTrailingZeros(number.Digits);
  if (number.Digits.empty()) number = Decimal{};
}

std::string PlainNotation(const Decimal& number, int wholeDigits, int decimals) {
  const int count = static_cast<int>(number.Digits.size());
  const auto digitAt = [&number, count](int index) {
    return index >= 0 && index < count ? number.Digits[static_cast<std::size_t>(index)] : '0';
  };
  std::string text;
  const int whole = std::max(number.Point, wholeDigits);
  for (int index = number.Point - whole; index < number.Point; ++index) text += digitAt(index);
  const int behind = std::max(count - number.Point, decimals);
  if (behind > 0) {
    text += '.';
    for (int index = number.Point; index < number.Point + behind; ++index) text += digitAt(index);
  }
  return text;
}

std::string NotFiniteText(double value) {
  if (std::isnan(value)) return "1.#QNAN";
  return value < 0 ? "-1.#INF" : "1.#INF";
}

}  // namespace pixorra
