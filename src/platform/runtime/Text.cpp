// Texts: case, comparison, cutting.
#include "platform/runtime/Text.h"

#include "platform/runtime/LetterCase.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

std::string Mapped(std::string_view text, char32_t (*map)(char32_t)) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = CharacterAt(text, at);
    AppendCharacter(result, map(character.Code));
    at += character.Bytes;
  }
  return result;
}

// Below 0, 0 or above 0, by the characters' upper case.
int CompareIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t atA = 0;
  std::size_t atB = 0;
  while (atA < a.size() && atB < b.size()) {
    const Utf8Character inA = CharacterAt(a, atA);
    const Utf8Character inB = CharacterAt(b, atB);
    if (inA.Code != inB.Code) {
      const char32_t upperA = UpperCase(inA.Code);
      const char32_t upperB = UpperCase(inB.Code);
      if (upperA != upperB) return upperA < upperB ? -1 : 1;
    }
    atA += inA.Bytes;
    atB += inB.Bytes;
  }
  return static_cast<int>(atA < a.size()) - static_cast<int>(atB < b.size());
}

}  // namespace

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string UCase(std::string_view text) {
  return Mapped(text, UpperCase);
}

std::string LCase(std::string_view text) {
  return Mapped(text, LowerCase);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return CompareIgnoringCase(a, b) == 0;
}

bool NameLess(std::string_view a, std::string_view b) {
  const int order = CompareIgnoringCase(a, b);
  return order != 0 ? order < 0 : a < b;
}

std::string_view CutToBytes(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  // A character is at most 4 bytes long: one that the cut would split begins in the 3 bytes ahead of it.
  for (std::size_t back = 1; back <= 3 && back <= bytes; ++back) {
    if (CharacterAt(text, bytes - back).Bytes > back) return text.substr(0, bytes - back);
  }
  return text.substr(0, bytes);
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterAt(text, at).Bytes) ++count;
  return count;
}

bool IsValidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = CharacterAt(text, at);
    if (character.Code >= StrayByte) return false;
    at += character.Bytes;
  }
  return true;
}

}  // namespace pixorra
