// Opening files of the host.
#pragma once

#include <memory>
#include <string>
#include <sys/stat.h>

#include "platform/posix/UniqueFd.h"
#include "platform/services/Files.h"

namespace pixorra {

FileStamp StampIn(const struct stat& entry);
FileStamp StampIn(const struct statx& entry);
// An open file around a descriptor.
std::unique_ptr<File> MakeHostFile(UniqueFd fd);

// Opens the ordinary file at a host path in this mode. Nothing else is ever opened, so nothing waits and no device
// starts. Raises the host's error by HostErrors.h; PathAccess for what is no ordinary file and for a link in the modes
// that write.
// `seenOrdinary`: the path itself has just been seen to be such a file, and need not be looked at again.
std::unique_ptr<File> OpenHostFile(const std::string& path, OpenMode mode, bool seenOrdinary = false);

// An existing ordinary file for reading and writing, for the sake of its times; no descriptor where it does not open.
// With `throughLinks` a link to one counts too.
UniqueFd OpenForTimes(const std::string& path, bool throughLinks);

}  // namespace pixorra
