// Names for the numbers that a print surface is set by.
#pragma once

namespace pixorra {

inline constexpr int ScaleInTwips = 1;
inline constexpr int Portrait = 1;
inline constexpr int Landscape = 2;
inline constexpr int HollowFill = 1;
inline constexpr double TwipsPerInch = 1440;
inline constexpr const char* PageFont = "Arial";

}  // namespace pixorra
