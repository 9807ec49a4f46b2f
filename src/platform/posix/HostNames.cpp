// Spelling of single names.
#include "platform/posix/HostNames.h"

#include <cstddef>

namespace pixorra {

namespace {

constexpr std::string_view backslashCharacter = "\xEF\x81\x9C";  // U+F05C
constexpr std::string_view colonCharacter = "\xEF\x80\xBA";      // U+F03A
constexpr char32_t byteBase = 0xF700;

unsigned Byte(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// Length in bytes of the UTF-8 character at `at`, 0 where there is none. Neither long forms nor surrogates count.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
  const unsigned first = Byte(text, at);
  if (first < 0x80) return 1;
  std::size_t length = 0;
  char32_t value = 0;
  if (first >= 0xC2 && first <= 0xDF) {
    length = 2;
    value = first & 0x1FU;
  } else if (first >= 0xE0 && first <= 0xEF) {
    length = 3;
    value = first & 0x0FU;
  } else if (first >= 0xF0 && first <= 0xF4) {
    length = 4;
    value = first & 0x07U;
  }
  if (length == 0 || text.size() - at < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned next = Byte(text, at + i);
    if ((next & 0xC0U) != 0x80U) return 0;
    value = (value << 6U) | (next & 0x3FU);
  }
  if (length == 3 && (value < 0x800 || (value >= 0xD800 && value <= 0xDFFF))) return 0;
  if (length == 4 && (value < 0x10000 || value > 0x10FFFF)) return 0;
  return length;
}

void AppendByteCharacter(std::string& to, unsigned byte) {
  const char32_t value = byteBase + byte;
  to += static_cast<char>(0xE0U | (value >> 12U));
  to += static_cast<char>(0x80U | ((value >> 6U) & 0x3FU));
  to += static_cast<char>(0x80U | (value & 0x3FU));
}

// The byte that the three-byte character at `at` stands for; nothing for any other character.
std::optional<char> ByteOfCharacter(std::string_view text, std::size_t at) {
  if (text.size() - at < 3 || Byte(text, at) != 0xEF) return std::nullopt;
  const char32_t value = 0xF000U | ((Byte(text, at + 1) & 0x3FU) << 6U) | (Byte(text, at + 2) & 0x3FU);
  if (value < byteBase + 0x80 || value > byteBase + 0xFF) return std::nullopt;
  return static_cast<char>(static_cast<unsigned char>(value - byteBase));
}

bool Reserved(std::string_view text, std::size_t at) {
  const std::string_view character = text.substr(at, 3);
  return character == backslashCharacter || character == colonCharacter || ByteOfCharacter(text, at).has_value();
}

bool HoldsByteCharacter(std::string_view name) {
  for (std::size_t at = 0; at < name.size();) {
    const std::size_t length = CharacterLength(name, at);
    if (length == 3 && ByteOfCharacter(name, at)) return true;
    at += length == 0 ? 1 : length;
  }
  return false;
}

std::string Decoded(std::string_view name) {
  std::string host;
  host.reserve(name.size());
  for (std::size_t at = 0; at < name.size();) {
    const std::size_t length = CharacterLength(name, at);
    const std::string_view character = name.substr(at, length == 0 ? 1 : length);
    const std::optional<char> byte = length == 3 ? ByteOfCharacter(name, at) : std::nullopt;
    if (character == backslashCharacter) {
      host += '\\';
    } else if (character == colonCharacter) {
      host += ':';
    } else if (byte) {
      host += *byte;
    } else {
      host += character;
    }
    at += character.size();
  }
  return host;
}

}  // namespace

std::string NameFromHost(std::string_view hostName) {
  std::string name;
  name.reserve(hostName.size());
  for (std::size_t at = 0; at < hostName.size();) {
    const std::size_t length = CharacterLength(hostName, at);
    if (length == 0 || (length == 3 && Reserved(hostName, at))) {
      // Of a reserved character only the first byte is taken here; what is left of it is no character and follows.
      AppendByteCharacter(name, Byte(hostName, at));
      ++at;
    } else if (hostName[at] == '\\') {
      name += backslashCharacter;
      ++at;
    } else if (hostName[at] == ':') {
      name += colonCharacter;
      ++at;
    } else {
      name += hostName.substr(at, length);
      at += length;
    }
  }
  return name;
}

std::optional<std::string> NameToHost(std::string_view name) {
  std::string host = Decoded(name);
  if (host.empty() || host == "." || host == "..") return std::nullopt;
  if (host.find('/') != std::string::npos || host.find('\0') != std::string::npos) return std::nullopt;
  // One spelling only: a backslash, a colon or a stray byte in `name` would come back as another character.
  if (NameFromHost(host) != name) return std::nullopt;
  return host;
}

std::string NameForPeople(std::string_view name) {
  return HoldsByteCharacter(name) ? std::string(name) : Decoded(name);
}

std::string NameFromPeople(std::string_view shown) {
  if (HoldsByteCharacter(shown) && NameToHost(shown)) return std::string(shown);
  return NameFromHost(shown);
}

}  // namespace pixorra
