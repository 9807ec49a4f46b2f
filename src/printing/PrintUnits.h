// Names for the numbers that a print surface is set by.
#pragma once

#include "platform/pixels/Picture.h"

namespace pixorra {

inline constexpr int ScaleInTwips = 1;
inline constexpr int Portrait = 1;
inline constexpr int Landscape = 2;
inline constexpr int HollowFill = 1;
inline constexpr double TwipsPerInch = 1440;
inline constexpr const char* PageFont = "Arial";
inline constexpr Colour PaperColour = 0x00FFFFFF;  // white

}  // namespace pixorra
