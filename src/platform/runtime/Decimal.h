// A double taken apart into the decimal digits that people see of it.
#pragma once

#include <string>

namespace pixorra {

// The value is 0.Digits times ten to the power of Point. Digits has neither leading nor trailing zeros; it is empty for
// 0.
struct Decimal {
  bool Negative = false;
  std::string Digits;
  int Point = 0;
};

// At most 15 significant digits: more would show the noise of binary fractions. The value must be finite.
Decimal ToDecimal(double value);
// Keeps this many digits after the point; halves are rounded away from zero.
void RoundTo(Decimal& number, int decimals);
// Plain notation, without sign: the whole part with at least `wholeDigits` digits and, where there is a fraction, a
// point and at least `decimals` digits.
std::string PlainNotation(const Decimal& number, int wholeDigits, int decimals);

// The text of a value that is no number: "1.#INF", "-1.#INF" or "1.#QNAN".
std::string NotFiniteText(double value);

}  // namespace pixorra
