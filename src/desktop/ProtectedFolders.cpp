#include "desktop/ProtectedFolders.h"

#include <algorithm>
#include <vector>

#include "base/Routines.h"
#include "desktop/Trashcan.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"
#include "platform/services/Places.h"
#include "platform/services/Volumes.h"

namespace pixorra {

namespace {

bool IsSamePath(const std::string& a, const std::string& b) {
  return EqualIgnoringCase(StripTrailingBackslash(a), StripTrailingBackslash(b));
}

bool IsRoot(Host& host, const std::string& path) {
  if (IsRootPath(path) || host.volumes.IsMountOfDesktop(path)) return true;
  const std::vector<PlaceOfVolume> volumes = host.volumes.List();
  return std::any_of(volumes.begin(), volumes.end(),
                     [&path](const PlaceOfVolume& volume) { return IsSamePath(volume.Path, path); });
}

std::vector<std::string> SystemFolders(Host& host) {
  const std::string windows = WindowsFolderPath(host.places);
  std::vector<std::string> folders{windows, windows + "System", windows + "System32"};
  // Desktop, programs, controls, documents, favourites, recent documents, start menu.
  for (const int number : {16, 2, 3, 5, 6, 8, 11}) folders.push_back(SpecialFolderPath(host.places, number));
  return folders;
}

// The program's own folders and all that the host names.
std::vector<std::string> OwnFolders(Host& host, bool trashcanToo) {
  std::vector<std::string> folders = host.places.KeptFolders();
  folders.push_back(host.places.ProgramFolder());
  folders.push_back(host.places.TemporaryFolder());
  if (trashcanToo) folders.push_back(TrashcanFolder(host.places));
  return folders;
}

// Those among them that are reached through a link, without it: the folder that holds such a one holds it no less.
std::vector<std::string> RealPaths(Files& files, const std::vector<std::string>& folders) {
  std::vector<std::string> real;
  for (const std::string& folder : folders) {
    std::string path = OrElse(folder, [&] { return files.RealPath(folder); });
    if (!IsSamePath(path, folder)) real.push_back(std::move(path));
  }
  return real;
}

// The folder is that one or holds it, by name or in fact. `path` has no final backslash.
bool Holds(Files& files, const std::string& path, std::string folder) {
  folder = StripTrailingBackslash(folder);
  while (!folder.empty() && !IsRootPath(folder)) {
    if (EqualIgnoringCase(path, folder) || files.IsSameFile(path, folder)) return true;
    folder = StripTrailingBackslash(ParentPathOf(folder));
  }
  return false;
}

}  // namespace

Protection ProtectionOf(Host& host, const std::string& path, bool trashcanToo) {
  Files& files = host.files;
  const std::string asked = StripTrailingBackslash(path);
  // What has been mounted there since the folder was chosen gives it another path.
  const std::string found = StripTrailingBackslash(OrElse(asked, [&] { return files.FolderPath(asked); }));
  if (IsRoot(host, asked) || IsRoot(host, found)) return Protection::Root;
  std::vector<std::string> folders = SystemFolders(host);
  for (std::string& folder : OwnFolders(host, trashcanToo)) folders.push_back(std::move(folder));
  for (std::string& folder : RealPaths(files, folders)) folders.push_back(std::move(folder));
  const bool kept = std::any_of(folders.begin(), folders.end(), [&](const std::string& folder) {
    return Holds(files, asked, folder) || Holds(files, found, folder);
  });
  return kept ? Protection::System : Protection::None;
}

}  // namespace pixorra
