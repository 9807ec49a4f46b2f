// The type of a file by its name, from the desktop's shared list of types.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

// Lines such as "50:image/jpeg:*.jpg", as "mime/globs2" of a data folder holds them. The heaviest glob wins, then the
// longest; letters match in either case unless the line says otherwise. Empty where none matches.
std::string TypeByGlobs(std::string_view globs, std::string_view name);

// By the lists in these data folders, the first that knows the name; the few types of this program are known without.
std::string TypeOfFile(const std::vector<std::string>& dataFolders, std::string_view hostName);

}  // namespace pixorra
