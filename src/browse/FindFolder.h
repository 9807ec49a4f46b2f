// Waiting for folders that may be far away.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pixorra {

struct Host;

// The folder's path as the disk spells it; nothing where there is none, where it has not answered in a few seconds, and
// where the program ends. Events run meanwhile.
std::optional<std::string> FindFolder(Host& host, const std::string& path);
// The same for each of these paths, all of them in the same few seconds.
std::vector<std::optional<std::string>> FindFolders(Host& host, const std::vector<std::string>& paths);

}  // namespace pixorra
