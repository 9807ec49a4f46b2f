// The order in which a person counts names.
#pragma once

#include <string_view>

namespace pixorra {

// Runs of digits are compared as numbers of any length, everything else character by character with case ignored: DSC9
// before dsc10. Names that are equal by this are ordered by NameLess, so that no two different names are equal.
bool NaturalLess(std::string_view a, std::string_view b);

}  // namespace pixorra
