// Spelling of single names.
#include "platform/posix/HostNames.h"

#include <algorithm>
#include <cstddef>

#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

// A character that the program's spelling has no room for becomes the private-use one this far above it.
constexpr char32_t moved = 0xF000;
constexpr std::string_view withoutRoom = "\\:\"";
constexpr char32_t byteBase = 0xF700;

bool StandsForCharacter(char32_t code) {
  return code > moved && code < moved + 0x80 && withoutRoom.find(static_cast<char>(code - moved)) != std::string::npos;
}

bool StandsForByte(char32_t code) {
  return code >= byteBase + 0x80 && code <= byteBase + 0xFF;
}

bool Reserved(char32_t code) {
  return StandsForCharacter(code) || StandsForByte(code);
}

// The same in both spellings, as most names are.
bool IsSameInBoth(std::string_view name) {
  return std::ranges::all_of(name, [](char c) {
    return static_cast<unsigned char>(c) < 0x80 && withoutRoom.find(c) == std::string_view::npos;
  });
}

bool HoldsByteCharacter(std::string_view name) {
  for (std::size_t at = 0; at < name.size();) {
    const Utf8Character character = CharacterAt(name, at);
    if (StandsForByte(character.Code)) return true;
    at += character.Bytes;
  }
  return false;
}

std::string Decoded(std::string_view name) {
  std::string host;
  host.reserve(name.size());
  for (std::size_t at = 0; at < name.size();) {
    const Utf8Character character = CharacterAt(name, at);
    if (StandsForCharacter(character.Code)) {
      host += static_cast<char>(character.Code - moved);
    } else if (StandsForByte(character.Code)) {
      host += static_cast<char>(static_cast<unsigned char>(character.Code - byteBase));
    } else {
      host += name.substr(at, character.Bytes);
    }
    at += character.Bytes;
  }
  return host;
}

}  // namespace

std::string NameFromHost(std::string_view hostName) {
  if (IsSameInBoth(hostName)) return std::string(hostName);
  std::string name;
  name.reserve(hostName.size());
  for (std::size_t at = 0; at < hostName.size();) {
    const Utf8Character character = CharacterAt(hostName, at);
    if (character.Code >= StrayByte || Reserved(character.Code)) {
      for (const char byte : hostName.substr(at, character.Bytes))
        AppendCharacter(name, byteBase + static_cast<unsigned char>(byte));
    } else if (withoutRoom.find(hostName[at]) != std::string::npos) {
      AppendCharacter(name, moved + static_cast<unsigned char>(hostName[at]));
    } else {
      name += hostName.substr(at, character.Bytes);
    }
    at += character.Bytes;
  }
  return name;
}

std::optional<std::string> NameToHost(std::string_view name) {
  std::string host = Decoded(name);
  if (host.empty() || host == "." || host == "..") return std::nullopt;
  if (host.find('/') != std::string::npos || host.find('\0') != std::string::npos) return std::nullopt;
  // One spelling only: a backslash, a colon, a double quote or a stray byte in `name` would come back as another
  // character.
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
