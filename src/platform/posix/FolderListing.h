// What is in a folder of the host, by the program's attributes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

#include "platform/posix/PathMapping.h"

namespace pixorra {

// `entry` is of the host path itself, `name` its last name in the host's spelling.
int AttributesOfEntry(const std::string& path, std::string_view name, const struct stat& entry);

// For Files::Names. Folders that `leaveOut` takes, by their host paths, are left out. `failure` is the host's error
// that ended the reading early, with what was read until then returned, or 0.
std::vector<std::string> ListFolder(const std::string& folder, const std::string& pattern, int attributes,
                                    const std::function<bool(const std::string&)>& leaveOut, int& failure);

// As Files::FolderPath does; raises PathNotFound.
std::string PathOfFolder(const PathMapping& mapping, const std::string& path);

struct ListedFile {
  std::string Name;
  std::optional<std::int64_t> Length;  // bytes; nothing where it cannot be looked at, or need not be
};
// As Files::Names gives them, but hidden ones and folders never, by the order of NameLess. One listing, and one look at
// each file where lengths are asked for; on a device that the desktop mounts, the desktop's own enumeration, which
// needs no look. Raises PathNotFound for a folder that cannot be read, DeviceIO where the listing breaks off.
std::vector<ListedFile> ListFiles(const PathMapping& mapping, const std::string& hostFolder, const std::string& pattern,
                                  bool lengths);

// For Files::Folders. Where a volume of the mapping is mounted another drive begins: such a folder is left out.
std::vector<std::string> ListFolders(const PathMapping& mapping, const HostPath& folder, int attributes);

}  // namespace pixorra
