// Names of mounted shares.
#include "platform/posix/ShareMounts.h"

#include <algorithm>
#include <cstddef>

#include "platform/posix/HostNames.h"

namespace pixorra {

namespace {

constexpr std::string_view prefix = "smb-share:";
constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool StandsForItself(char c) {
  const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  const bool beyondAscii = static_cast<unsigned char>(c) >= 0x80;
  return letter || beyondAscii || std::string_view("-._~$&'()*+").find(c) != std::string_view::npos;
}

std::string Escaped(std::string_view value) {
  std::string text;
  for (const char c : value) {
    if (StandsForItself(c)) {
      text += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    text += '%';
    text += hexDigits[byte / 16U];
    text += hexDigits[byte % 16U];
  }
  return text;
}

int HexValue(char c) {
  const char capital = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
  const std::size_t digit = hexDigits.find(capital);
  return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

std::string Unescaped(std::string_view text) {
  std::string value;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? HexValue(text[i + 1]) : -1;
    const int low = high >= 0 ? HexValue(text[i + 2]) : -1;
    if (low < 0) {
      value += text[i];
      continue;
    }
    value += static_cast<char>(static_cast<unsigned char>(high * 16 + low));
    i += 2;
  }
  return value;
}

bool FitsFolder(const std::string& name) {
  return NameToHost(NameFromHost(name)).has_value();
}

}  // namespace

std::string MountOfShare(const Share& share) {
  return std::string(prefix) + "server=" + Escaped(share.Server) + ",share=" + Escaped(share.Name);
}

std::optional<Share> ShareOfMount(std::string_view mount) {
  if (!mount.starts_with(prefix)) return std::nullopt;
  mount.remove_prefix(prefix.size());
  Share share;
  while (!mount.empty()) {
    const std::size_t end = std::min(mount.find(','), mount.size());
    const std::string_view field = mount.substr(0, end);
    const std::size_t equals = std::min(field.find('='), field.size());
    const std::string_view key = field.substr(0, equals);
    const std::string_view value = field.substr(std::min(equals + 1, field.size()));
    if (key == "server") share.Server = Unescaped(value);
    if (key == "share") share.Name = Unescaped(value);
    mount.remove_prefix(std::min(end + 1, mount.size()));
  }
  if (!FitsFolder(share.Server) || !FitsFolder(share.Name)) return std::nullopt;
  return share;
}

}  // namespace pixorra
