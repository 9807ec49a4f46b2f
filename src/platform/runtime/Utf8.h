// Walking through UTF-8 texts, character by character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pixorra {

struct Utf8Character {
  char32_t Code = 0;
  std::size_t Bytes = 0;  // 1 to 4
};

// Codes from here up are single bytes that are no UTF-8: the byte is the code less this.
inline constexpr char32_t StrayByte = 0x110000;

// The character that begins at `at`, which must lie inside the text. Overlong forms, surrogates and what lies above
// 0x10FFFF are no UTF-8: their first byte then is a character by itself.
Utf8Character CharacterAt(std::string_view text, std::size_t at);
// Appends what CharacterAt reads, stray bytes included.
void AppendCharacter(std::string& text, char32_t code);

}  // namespace pixorra
