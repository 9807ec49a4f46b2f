#include "platform/posix/ShareMounts.h"

#include <algorithm>
#include <cstddef>

#include "platform/posix/GlibPointers.h"
#include "platform/posix/HostNames.h"

namespace pixorra {

namespace {

constexpr std::string_view prefix = "smb-share:";

// As the virtual file system itself escapes a value.
std::string Escaped(const std::string& value) {
  const GlibText text(g_uri_escape_string(value.c_str(), "$&'()*+", TRUE));
  return text.get();
}

// Empty where the text is not escaped well.
std::string Unescaped(std::string_view text) {
  const GlibText value(g_uri_unescape_segment(text.data(), text.data() + text.size(), nullptr));
  return value ? value.get() : std::string();
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
