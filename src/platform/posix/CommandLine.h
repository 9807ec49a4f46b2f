// Command lines as the program writes them: a program's path without quotes, a blank, and the rest.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

struct Command {
  std::string Program;
  // Parted at each single blank, so that joining them with blanks gives the text again.
  std::vector<std::string> Arguments;
};

// The program is the text in double quotes at the start; else the longest start, up to a blank or the end, that
// `isProgram` takes; else the text up to the first ".scr" or ".exe" that a blank or the end follows; else the first
// word.
Command SplitCommand(std::string_view text, const std::function<bool(const std::string&)>& isProgram);

}  // namespace pixorra
