// Wildcard patterns of file names.
#include <algorithm>
#include <optional>

#include "platform/runtime/LetterCase.h"
#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

bool IsAscii(char byte) {
  return (static_cast<unsigned char>(byte) & 0x80U) == 0;
}

char32_t UpperOf(char ascii) {
  return UpperCase(static_cast<unsigned char>(ascii));
}

// Of the usual pattern, "*" and plain characters, and a name that ends in as many, all of them ASCII; nothing of any
// other.
std::optional<bool> MatchesEnd(std::string_view name, std::string_view pattern) {
  if (!pattern.starts_with('*') || name.size() < pattern.size()) return std::nullopt;
  const std::string_view wanted = pattern.substr(1);
  const std::string_view end = name.substr(name.size() - wanted.size());
  const bool plain = std::ranges::all_of(end, IsAscii) && std::ranges::all_of(wanted, IsAscii) &&
                     wanted.find_first_of("*?") == std::string_view::npos;
  if (!plain) return std::nullopt;
  return std::ranges::equal(wanted, end, {}, UpperOf, UpperOf);
}

// Returns only to the last '*' met, never to an earlier one, so the time is at most name times pattern.
bool MatchesOne(std::string_view name, std::string_view pattern) {
  if (const std::optional<bool> matches = MatchesEnd(name, pattern)) return *matches;
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
  for (;;) {
    const std::size_t end = patterns.find(';');
    const std::string_view pattern = patterns.substr(0, end);
    if (pattern == "*.*" || MatchesOne(name, pattern)) return true;
    if (end == std::string_view::npos) return false;
    patterns.remove_prefix(end + 1);
  }
}

}  // namespace pixorra
