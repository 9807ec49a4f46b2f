// Finding the program in a command line.
#include "platform/posix/CommandLine.h"

#include <algorithm>
#include <cstddef>

#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

std::vector<std::string> PartsAtBlanks(std::string_view text) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t blank = text.find(' ');
    parts.emplace_back(text.substr(0, blank));
    if (blank == std::string_view::npos) return parts;
    text.remove_prefix(blank + 1);
  }
}

// Every place where the program's path may end, the last first.
std::vector<std::size_t> Ends(std::string_view text) {
  std::vector<std::size_t> ends;
  for (std::size_t i = text.size(); i > 0; --i)
    if (i == text.size() || text[i] == ' ') ends.push_back(i);
  return ends;
}

std::size_t ProgramLength(std::string_view text, const std::function<bool(const std::string&)>& isProgram) {
  const std::vector<std::size_t> ends = Ends(text);
  for (const std::size_t end : ends)
    if (isProgram(std::string(text.substr(0, end)))) return end;
  constexpr std::size_t suffixLength = 4;
  for (auto end = ends.rbegin(); end != ends.rend(); ++end) {
    if (*end < suffixLength) continue;
    const std::string_view suffix = text.substr(*end - suffixLength, suffixLength);
    if (EqualIgnoringCase(suffix, ".scr") || EqualIgnoringCase(suffix, ".exe")) return *end;
  }
  return std::min(text.find(' '), text.size());
}

}  // namespace

Command SplitCommand(std::string_view text, const std::function<bool(const std::string&)>& isProgram) {
  Command command;
  if (text.starts_with('"')) {
    text.remove_prefix(1);
    const std::size_t end = std::min(text.find('"'), text.size());
    command.Program = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
  } else {
    const std::size_t end = ProgramLength(text, isProgram);
    command.Program = text.substr(0, end);
    text.remove_prefix(end);
  }
  if (text.starts_with(' ')) command.Arguments = PartsAtBlanks(text.substr(1));
  return command;
}

}  // namespace pixorra
