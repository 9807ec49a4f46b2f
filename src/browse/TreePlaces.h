// Where the folder tree begins, as entries of a tree: the user's places, and what is mounted.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/TreeNode.h"
#include "platform/services/Volumes.h"

namespace pixorra {

struct Host;

// The key of a node says in which place it lies and what its path is: the same folder may be reached by several ways.
std::string KeyOf(const std::string& place, const std::string& path);
// Empty for a node that is no folder.
std::string PathOfKey(const std::string& key);

inline constexpr const char* ComputerKey = "computer|";
inline constexpr const char* NetworkKey = "network|";

// Home, the folders that the desktop sets aside for the user, the bookmarks whose volume is there, the computer and the
// network. Looks at no bookmark and no volume.
std::vector<TreeEntry> TopEntries(Host& host, const std::vector<PlaceOfVolume>& volumes);
// The volumes below the computer, and the shares below the network.
std::vector<TreeEntry> VolumeEntries(Host& host, const std::vector<PlaceOfVolume>& volumes);
std::vector<TreeEntry> ShareEntries(Host& host, const std::vector<PlaceOfVolume>& volumes);
// A folder in a node's folder.
TreeEntry FolderEntry(Host& host, const std::string& parentKey, const std::string& name);
// The name of a file or folder in this folder, in the host's spelling. Costs little for a name that is the same in
// both.
std::string ShownNameIn(Host& host, const std::string& folder, const std::string& name);

}  // namespace pixorra
