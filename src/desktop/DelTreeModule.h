// Deleting a folder with all that is in it, and counting what that is.
#pragma once

#include <cstdint>
#include <string>

namespace pixorra {

class Files;

// True when the folder is gone. Otherwise what could be deleted may be gone, but for the cases in which
// Files::RemoveTree removes nothing.
bool DeleteTree(Files& files, const std::string& path);

// The plain files of a folder, and its sub-folders; not the file of cached thumbnails, and nothing hidden. Of a folder
// that cannot be read, 0.
std::int32_t TotalFilesRemaining(Files& files, const std::string& path);
std::int32_t TotalDirectoriesRemaining(Files& files, const std::string& path);

struct FolderContents {
  std::int32_t Files = 0;
  std::int32_t Folders = 0;
};
// The same, with what is hidden and what is neither file nor folder: all that goes with the folder.
FolderContents ContentsToLose(Files& files, const std::string& path);

}  // namespace pixorra
