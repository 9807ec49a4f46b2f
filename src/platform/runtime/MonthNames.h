// The short names of the months, in English whatever the host's language is.
#pragma once

#include <array>
#include <string_view>

namespace pixorra {

inline constexpr std::array<std::string_view, 12> MonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

}  // namespace pixorra
