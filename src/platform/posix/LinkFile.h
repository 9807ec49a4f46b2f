// A second name for a file, or a copy where the disk gives a file only one.
#pragma once

#include <string>

namespace pixorra {

// Host paths; `from` is an ordinary file. Raises the host's error by HostErrors.h, FileExists where anything at all has
// the new name, and leaves nothing then.
void LinkOrCopyFile(const std::string& from, const std::string& to);
// The same for disks without second names: the copy is flushed and has the permissions of the file.
void CopyFileFlushed(const std::string& from, const std::string& to);

}  // namespace pixorra
