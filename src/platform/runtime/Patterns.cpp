// Wildcard patterns of file names.
#include <algorithm>

#include "platform/runtime/LetterCase.h"
#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

// Returns only to the last '*' met, never to an earlier one, so the time is at most name times pattern.
bool MatchesOne(std::string_view name, std::string_view pattern) {
  std::size_t inName = 0;
  std::size_t inPattern = 0;
  std::size_t afterStar = std::string_view::npos;
  std::size_t takenByStar = 0;
  while (inName < name.size()) {
    const Utf8Character character = CharacterAt(name, inName);
    if (inPattern < pattern.size()) {
      if (pattern[inPattern] == '*') {
        afterStar = ++inPattern;
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
    if (afterStar == std::string_view::npos) return false;
    // The star takes one character more, and the rest is tried again.
    takenByStar += CharacterAt(name, takenByStar).Bytes;
    inName = takenByStar;
    inPattern = afterStar;
  }
  return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
}

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view patterns) {
  if (patterns.empty()) return true;
  const std::vector<std::string_view> each = Split(patterns, ';');
  return std::any_of(each.begin(), each.end(),
                     [name](std::string_view pattern) { return pattern == "*.*" || MatchesOne(name, pattern); });
}

}  // namespace pixorra
