// The units that a printed page is measured in.
#pragma once

namespace pixorra {

inline constexpr int PageTwipsPerInch = 1440;
inline constexpr double PageTwipsPerPoint = 20;

}  // namespace pixorra
