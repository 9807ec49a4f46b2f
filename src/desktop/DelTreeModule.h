// Deleting a folder with all that is in it, and counting what that is.
#pragma once

#include <cstdint>
#include <string>

namespace pixorra {

class Files;
struct FolderIdentity;

// True when the folder that is meant is gone. Otherwise what could be deleted may be gone, but for the cases in which
// Files::RemoveTree removes nothing.
bool DeleteTree(Files& files, const std::string& path, const FolderIdentity& meant);

// The plain files of a folder, and its sub-folders; not the file of cached thumbnails, and nothing hidden. Of a folder
// that cannot be read, 0.
std::int32_t TotalFilesRemaining(Files& files, const std::string& path);
std::int32_t TotalDirectoriesRemaining(Files& files, const std::string& path);

struct FolderContents {
  std::int32_t Files = 0;
  std::int32_t Folders = 0;
};
// The same, with what is hidden and what is neither file nor folder: all that goes with the folder. Raises as
// Files::CompleteNames does where the folder cannot be read to its end: then nobody knows what would be lost.
FolderContents ContentsToLose(Files& files, const std::string& path);

}  // namespace pixorra
