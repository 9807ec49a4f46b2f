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

// The leading number of a text: sign, digits, point, and an exponent behind E or D; 0 where there is none. Blanks, tabs
// and line feeds are passed over wherever they stand. "&H" and "&O" lead hexadecimal and octal digits (16 bits with a
// sign while they fit, else 32). Raises error 6 for a number beyond a double, or beyond 32 bits behind such a prefix.
double Val(std::string_view text);

// Decimal text of a number with a leading blank in place of the sign for 0 and above, and no zero ahead of the point.
// Up to 15 significant digits; from 1E+15 up, and where more than 15 places behind the point were needed, with an
// exponent.
std::string Str(double value);
// The same without the blank.
std::string TrimmedStr(double value);

}  // namespace pixorra
