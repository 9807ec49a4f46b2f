// Lines such as XDG_DESKTOP_DIR="$HOME/Desktop".
#include "platform/posix/UserFolders.h"

#include <algorithm>
#include <cstddef>

#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// What stands between the double quotes, backslashes taken away.
std::optional<std::string> Quoted(std::string_view text) {
  if (!text.starts_with('"')) return std::nullopt;
  std::string value;
  for (std::size_t i = 1; i < text.size() && text[i] != '"'; ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) ++i;
    value += text[i];
  }
  return value;
}

std::optional<std::string> Absolute(std::string value, const std::string& home) {
  constexpr std::string_view homeMark = "$HOME";
  if (value == homeMark || value.starts_with("$HOME/")) value.replace(0, homeMark.size(), home == "/" ? "" : home);
  if (value.empty()) value = "/";
  if (!value.starts_with('/')) return std::nullopt;
  while (value.size() > 1 && value.ends_with('/')) value.pop_back();
  return value;
}

}  // namespace

std::optional<std::string> UserFolder(std::string_view list, std::string_view name, const std::string& home) {
  const std::string start = "XDG_" + std::string(name) + "_DIR=";
  std::optional<std::string> folder;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find('\n'), list.size());
    const std::string line = Trim(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
    if (!line.starts_with(start)) continue;
    const std::optional<std::string> value = Quoted(std::string_view(line).substr(start.size()));
    const std::optional<std::string> absolute = value ? Absolute(*value, home) : std::nullopt;
    if (absolute) folder = absolute;
  }
  return folder;
}

}  // namespace pixorra
