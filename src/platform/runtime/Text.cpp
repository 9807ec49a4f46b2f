// Texts: case, comparison, cutting, encoding.
#include "platform/runtime/Text.h"

#include <algorithm>

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

// The length of the start that two texts have in common, up to its last ASCII character: a character of several bytes
// may differ in the last of them.
std::size_t CommonStart(std::string_view a, std::string_view b) {
  auto at = static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
  while (at > 0 && (static_cast<unsigned char>(a[at - 1]) & 0x80U) != 0) --at;
  return at;
}

// Below 0, 0 or above 0, by the characters' upper case.
int CompareIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t atA = CommonStart(a, b);
  std::size_t atB = atA;
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

constexpr std::string_view HexDigits = "0123456789ABCDEF";
constexpr int NoDigit = -1;

int HexValue(char c) {
  const char capital = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
  const std::size_t digit = HexDigits.find(capital);
  return digit == std::string_view::npos ? NoDigit : static_cast<int>(digit);
}

}  // namespace

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines = Split(text, '\n');
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsAsciiLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c);
}

std::string PercentEncoded(std::string_view text, bool (*isPlain)(char byte)) {
  std::string encoded;
  for (const char c : text) {
    if (isPlain(c)) {
      encoded += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    encoded += '%';
    encoded += HexDigits[byte / 16U];
    encoded += HexDigits[byte % 16U];
  }
  return encoded;
}

std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? HexValue(text[i + 1]) : NoDigit;
    const int low = high != NoDigit ? HexValue(text[i + 2]) : NoDigit;
    if (low == NoDigit) {
      decoded += text[i];
      continue;
    }
    decoded += static_cast<char>(static_cast<unsigned char>(high * 16 + low));
    i += 2;
  }
  return decoded;
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
