// Removing a folder with all that is in it, and nothing else.
#pragma once

#include <functional>
#include <string>

#include "platform/posix/PathMapping.h"
#include "platform/services/Files.h"

namespace pixorra {

// Is called when a folder of the tree has been listed and nothing of it has been removed yet, with the folder's path
// from the tree's own name on. What happens to the tree in it is what others may do to it meanwhile.
using FolderListed = std::function<void(const std::string& path)>;

// 0 when the folder is gone, or the host's error. ENOTDIR where the folder or one on the way to it is a link, EXDEV
// where another file system is mounted on it or in it, and ESTALE where it is not the one that is meant: then nothing
// has been removed. ESTALE also where a folder of the tree has been moved meanwhile: nothing is removed at its new
// place once that is seen. Any other error ends the removal at the first folder that cannot be removed; its files have
// been tried one and all.
int RemoveHostTree(const HostPath& path, const FolderIdentity& meant, const FolderListed& listed = {});

}  // namespace pixorra
