// Wildcard patterns of file names.
#include "platform/runtime/LetterCase.h"
#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

// Goes back only to the last '*' met, never to an earlier one, so the time is at most name times pattern.
bool MatchesOne(std::string_view name, std::string_view pattern) {
  std::size_t inName = 0;
  std::size_t inPattern = 0;
  std::size_t behindStar = std::string_view::npos;
  std::size_t takenByStar = 0;
  while (inName < name.size()) {
    const Utf8Character character = CharacterAt(name, inName);
    if (inPattern < pattern.size()) {
      if (pattern[inPattern] == '*') {
        behindStar = ++inPattern;
        takenByStar = inName;
        continue;
      }
      const Utf8Character wanted = CharacterAt(pattern, inPattern);
      if (wanted.Code == '?' || UpperCase(wanted.Code) == UpperCase(character.Code)) {
        inName += character.Bytes;
        inPattern += wanted.Bytes;
        continue;
      }
    }
    if (behindStar == std::string_view::npos) return false;
    // The star takes one character more, and the rest is tried again.
    takenByStar += CharacterAt(name, takenByStar).Bytes;
    inName = takenByStar;
    inPattern = behindStar;
  }
  return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
}

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view patterns) {
  if (patterns.empty()) return true;
  for (;;) {
    const std::size_t end = patterns.find(';');
    const std::string_view pattern = patterns.substr(0, end);
    if (pattern == "*.*" || MatchesOne(name, pattern)) return true;
    if (end == std::string_view::npos) return false;
    patterns.remove_prefix(end + 1);
  }
}

}  // namespace pixorra
