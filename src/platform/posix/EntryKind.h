// What kind of thing an entry of a folder is, a link by itself.
#pragma once

#include <sys/types.h>

struct dirent;

namespace pixorra {

enum class EntryKind { Ordinary, Folder, Link, Other };

EntryKind KindOf(mode_t mode);
// Of an entry that has been read from this open folder. Other for one that has gone since.
EntryKind KindOf(int folder, const dirent& entry);

}  // namespace pixorra
