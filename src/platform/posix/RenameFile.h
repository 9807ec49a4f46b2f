// Renaming that never replaces anything.
#pragma once

#include <string>

namespace pixorra {

// Host paths. 0, or the host's error: EEXIST where anything at all has the new name. The same entry under a spelling
// that differs in case only, on a disk that ignores case, is renamed.
int RenameKeeping(const std::string& from, const std::string& to);
// The same for disks that cannot do it in one step. A file is linked and unlinked, so a name that somebody takes
// meanwhile is still not replaced; on disks without links the name is claimed by an empty file first. For folders a
// look beforehand has to do.
int RenameKeepingInSteps(const std::string& from, const std::string& to);

}  // namespace pixorra
