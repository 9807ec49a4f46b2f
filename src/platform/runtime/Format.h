// The formats in use: numbers by "0" and "@" pictures, dates by "d", "mmm", "yyyy", "hh", "mm", "ss" and "ampm".
#pragma once

#include <string>
#include <string_view>

#include "platform/runtime/DateValue.h"

namespace pixorra {

// "00000" pads with zeros to at least that many digits; "0.0" keeps one decimal, halves away from zero. Nothing but
// zeros and one point is read of the picture.
std::string FormatNumber(double value, std::string_view picture);
// "@@@" pads the text with blanks on the left to as many characters; a longer text stays whole.
std::string FormatText(std::string_view text, std::string_view picture);
// "DD-MMM-YYYY", "d/mmm/yyyy", "hh:mmampm", "hh:mm:ss AMPM": in letters of either case; "mm" after "hh" is minutes;
// AM and PM in capitals for "AMPM", in small letters for "ampm"; hours are 01 to 12 where either is used. Raises
// Overflow for a value outside the years 100 to 9999.
std::string FormatDate(DateValue value, std::string_view picture);

}  // namespace pixorra
