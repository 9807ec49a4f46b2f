// Numbers as the program's texts want them: widths of 16 and 32 bits that raise on overflow, halves rounded to the even
// neighbour, and numbers read from and written as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pixorra {

// To 16 and 32 bits, halves to the even neighbour. Raise Overflow outside the width and for what is no number.
std::int16_t CInt(double value);
std::int32_t CLng(double value);

// Halves to the even neighbour, no limit of width.
double RoundHalfEven(double value);

// The leading number of a text: sign, digits, point, and an exponent after E or D; 0 where there is none. Blanks, tabs
// and line feeds are skipped anywhere. "&H" and "&O" are followed by hexadecimal and octal digits (16 bits with a sign
// while they fit, else 32). Raises Overflow for a number beyond a double, or beyond 32 bits after such a prefix.
double Val(std::string_view text);

// Decimal text of a number with a leading blank in place of the sign for 0 and above, and no zero ahead of the point.
// Up to 15 significant digits; from 1E+15 up, and where more than 15 places after the point are needed, with an
// exponent.
std::string Str(double value);
// The same without the blank.
std::string TrimmedStr(double value);

}  // namespace pixorra
