#include "platform/runtime/NaturalOrder.h"

#include <algorithm>
#include <cstddef>

#include "platform/runtime/LetterCase.h"
#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

// Takes the run of digits at the start off the text; the result has no leading zeros.
std::string_view TakeNumber(std::string_view& text) {
  const auto end = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
  std::string_view number = text.substr(0, end);
  text.remove_prefix(end);
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

int CompareNumbers(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

char32_t TakeCharacter(std::string_view& text) {
  const Utf8Character character = CharacterAt(text, 0);
  text.remove_prefix(character.Bytes);
  return UpperCase(character.Code);
}

}  // namespace

bool NaturalLess(std::string_view a, std::string_view b) {
  std::string_view restA = a;
  std::string_view restB = b;
  while (!restA.empty() && !restB.empty()) {
    if (IsDigit(restA[0]) && IsDigit(restB[0])) {
      const std::string_view numberA = TakeNumber(restA);
      const int order = CompareNumbers(numberA, TakeNumber(restB));
      if (order != 0) return order < 0;
      continue;
    }
    const char32_t inA = TakeCharacter(restA);
    const char32_t inB = TakeCharacter(restB);
    if (inA != inB) return inA < inB;
  }
  if (restA.empty() != restB.empty()) return restA.empty();
  return NameLess(a, b);
}

}  // namespace pixorra
