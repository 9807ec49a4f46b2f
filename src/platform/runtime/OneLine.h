// A text that is drawn on one line.
#pragma once

#include <string>
#include <string_view>

namespace pixorra {

// The text with a blank in place of each control character and line end. A file's name, for one, may hold any of them:
// drawn as they are they make a second line, or boxes.
std::string OneLine(std::string_view text);

}  // namespace pixorra
