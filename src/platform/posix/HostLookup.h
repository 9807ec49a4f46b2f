// Finds what a path names on a disk where letter case counts, ignoring case as the program does.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <sys/stat.h>

#include "platform/posix/PathMapping.h"

namespace pixorra {

class KeptFolders;

// Where a path led: `Path` in the disk's own case as far as its names are there, the rest as it was given.
struct Located {
  HostPath Path;
  std::size_t Found = 0;  // so many of the names are there
  int Failure = 0;        // the host's error for the first name that is not, 0 where all are there
  struct stat Entry {};   // of the last name, a link by itself; only where all are there
  bool Exists() const { return Failure == 0; }
};

// A name spelled exactly is preferred to one that differs in case; of several of those the first by NameLess is taken.
// A path whose exact spelling is there costs one look, and no folder is read. Nor is one for the last name whose folder
// is kept.
Located Locate(HostPath path, KeptFolders* kept = nullptr);

// As Locate, but names are there only as they are spelled; no folder is read but that of the mounts.
Located LocateExactly(HostPath path);

// As Locate, but each name is in the disk's own case even where the disk itself ignores case.
Located LocateInDiskCase(HostPath path);

}  // namespace pixorra
