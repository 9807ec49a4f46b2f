// Waiting for a folder that may be far away.
#pragma once

#include <optional>
#include <string>

namespace pixorra {

struct Host;

// The folder's path as the disk spells it; nothing where there is none, where it has not answered in a few seconds, and
// where the program ends. Events run meanwhile.
std::optional<std::string> FindFolder(Host& host, const std::string& path);

}  // namespace pixorra
