#include "platform/runtime/OneLine.h"

#include <cstddef>

#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

bool IsControl(char32_t code) {
  constexpr char32_t LineSeparator = 0x2028;
  constexpr char32_t ParagraphSeparator = 0x2029;
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == LineSeparator || code == ParagraphSeparator;
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = CharacterAt(text, at);
    AppendCharacter(line, IsControl(character.Code) ? U' ' : character.Code);
    at += character.Bytes;
  }
  return line;
}

}  // namespace pixorra
