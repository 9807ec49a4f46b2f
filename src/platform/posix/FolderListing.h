// What stands in a folder of the host, by the program's attributes.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

#include "platform/posix/PathMapping.h"

namespace pixorra {

// `entry` is what stands at the host path itself, `name` its last name in the host's spelling.
int AttributesOfEntry(const std::string& path, std::string_view name, const struct stat& entry);

// As Files::Names tells. Folders that `leaveOut` takes, by their host paths, do not come.
std::vector<std::string> ListFolder(const std::string& folder, const std::string& pattern, int attributes,
                                    const std::function<bool(const std::string&)>& leaveOut);

// As Files::Folders tells. Where a volume of the mapping is mounted another drive begins: such a folder does not come.
std::vector<std::string> ListFolders(const PathMapping& mapping, const HostPath& folder, int attributes);

}  // namespace pixorra
