#include "platform/posix/ShareMounts.h"

#include <algorithm>
#include <cstddef>

#include "platform/posix/HostNames.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr std::string_view prefix = "smb-share:";

bool StandsForItself(char c) {
  const bool beyondAscii = static_cast<unsigned char>(c) >= 0x80;
  return IsAsciiLetterOrDigit(c) || beyondAscii || std::string_view("-._~$&'()*+").find(c) != std::string_view::npos;
}

bool FitsFolder(const std::string& name) {
  return NameToHost(NameFromHost(name)).has_value();
}

}  // namespace

std::string MountOfShare(const Share& share) {
  return std::string(prefix) + "server=" + PercentEncoded(share.Server, StandsForItself) +
         ",share=" + PercentEncoded(share.Name, StandsForItself);
}

std::optional<Share> ShareOfMount(std::string_view mount) {
  if (!mount.starts_with(prefix)) return std::nullopt;
  mount.remove_prefix(prefix.size());
  Share share;
  for (const std::string_view field : Split(mount, ',')) {
    const std::size_t equals = std::min(field.find('='), field.size());
    const std::string_view key = field.substr(0, equals);
    const std::string_view value = field.substr(std::min(equals + 1, field.size()));
    if (key == "server") share.Server = PercentDecoded(value);
    if (key == "share") share.Name = PercentDecoded(value);
  }
  if (!FitsFolder(share.Server) || !FitsFolder(share.Name)) return std::nullopt;
  return share;
}

}  // namespace pixorra
