#include "platform/posix/EntryKind.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace pixorra {

EntryKind KindOf(mode_t mode) {
  if (S_ISREG(mode)) return EntryKind::Ordinary;
  if (S_ISDIR(mode)) return EntryKind::Folder;
  return S_ISLNK(mode) ? EntryKind::Link : EntryKind::Other;
}

// Many file systems give the kind with the name, which saves a look at each file.
EntryKind KindOf(int folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return KindOf(DTTOIF(entry.d_type));
  struct stat looked {};
  const char* name = static_cast<const char*>(entry.d_name);
  return fstatat(folder, name, &looked, AT_SYMLINK_NOFOLLOW) == 0 ? KindOf(looked.st_mode) : EntryKind::Other;
}

}  // namespace pixorra
