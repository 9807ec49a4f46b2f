// Folders that no command deletes or renames, whoever asks.
#pragma once

#include <string>

#include "base/Host.h"

namespace pixorra {

enum class Protection {
  None,
  Root,    // of a drive, a volume, a camera or a network share
  System,  // the system's, the user's or the program's own, or one that such a folder is in
};

// Of the folder at the path, by its names, their case ignored, and by the folder itself under whatever other name. With
// `trashcanToo` the Trashcan's folder is one of the program's own.
Protection ProtectionOf(Host& host, const std::string& path, bool trashcanToo = true);

}  // namespace pixorra
