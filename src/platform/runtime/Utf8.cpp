// UTF-8 decoding and encoding.
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

// Bytes of the character that a first byte announces, 0 for one that begins none.
std::size_t AnnouncedBytes(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

bool IsWellChosen(char32_t code, std::size_t bytes) {
  if (bytes == 3) return code >= 0x800 && (code < 0xD800 || code > 0xDFFF);
  if (bytes == 4) return code >= 0x10000 && code <= 0x10FFFF;
  return true;
}

}  // namespace

Utf8Character CharacterAt(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  const Utf8Character stray{StrayByte + first, 1};
  const std::size_t bytes = AnnouncedBytes(first);
  if (bytes == 1) return {first, 1};
  if (bytes == 0 || text.size() - at < bytes) return stray;
  char32_t code = first & (0x7FU >> bytes);
  for (std::size_t next = at + 1; next < at + bytes; ++next) {
    const auto byte = static_cast<unsigned char>(text[next]);
    if ((byte & 0xC0U) != 0x80U) return stray;
    code = (code << 6U) | (byte & 0x3FU);
  }
  return IsWellChosen(code, bytes) ? Utf8Character{code, bytes} : stray;
}

void AppendCharacter(std::string& text, char32_t code) {
  const auto continuation = [code](unsigned shift) { return static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
  if (code >= StrayByte) {
    text += static_cast<char>(code - StrayByte);
  } else if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0U | (code >> 6U));
    text += continuation(0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0U | (code >> 12U));
    text += continuation(6);
    text += continuation(0);
  } else {
    text += static_cast<char>(0xF0U | (code >> 18U));
    text += continuation(12);
    text += continuation(6);
    text += continuation(0);
  }
}

}  // namespace pixorra
