// Names and paths as a person reads them here, for captions, tool tips, messages and titles.
#pragma once

#include <string>

namespace pixorra {

class Files;

// FolderDisplayName of the path, in the host's spelling; a root is shown whole.
std::string ShownFolderName(Files& files, const std::string& path);
// FileNameOf and BaseNameOf of the path, in the host's spelling.
std::string ShownFileName(Files& files, const std::string& path);
std::string ShownBaseName(Files& files, const std::string& path);

// The program's spelling of a file's or folder's name that a person has typed in the host's.
std::string TypedName(Files& files, const std::string& name);

}  // namespace pixorra
