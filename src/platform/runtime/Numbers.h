// Numbers as the program's texts want them: widths of 16 and 32 bits that raise on overflow, halves rounded to the even
// neighbour, and numbers read from and written as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pixorra {

// To 16 and 32 bits, halves to the even neighbour. Raise error 6 outside the width and for what is no number.
std::int16_t CInt(double value);
std::int32_t CLng(double value);

// Halves to the even neighbour, no limit of width.
double RoundHalfEven(double value);

// The leading number of a text: blanks are passed over, then digits with sign, point and exponent; 0 where there is none.
double Val(std::string_view text);

// Decimal text of a number with a leading blank in place of the sign for 0 and above; doubles carry up to 15 digits.
std::string Str(double value);
// The same without the blank.
std::string TrimmedStr(double value);

}  // namespace pixorra
