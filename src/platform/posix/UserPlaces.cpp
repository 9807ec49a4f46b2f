// The places that a person goes to: the folders of the desktop's list, and the file manager's bookmarks.
#include <algorithm>
#include <array>
#include <string_view>
#include <sys/stat.h>

#include "platform/posix/GlibPointers.h"
#include "platform/posix/HostNames.h"
#include "platform/posix/PosixPlaces.h"
#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// A link counts, wherever it leads: that may be far away.
bool MayBeFolder(const std::string& hostPath) {
  struct stat entry {};
  return lstat(hostPath.c_str(), &entry) == 0 && (S_ISDIR(entry.st_mode) || S_ISLNK(entry.st_mode));
}

}  // namespace

std::vector<std::string> PosixPlaces::UserFolders() {
  // With the names that they usually have, for a user whose desktop keeps no list.
  struct Wanted {
    GUserDirectory Directory;
    const char* Usual;
  };
  constexpr std::array<Wanted, 4> wanted = {{{G_USER_DIRECTORY_DESKTOP, "Desktop"},
                                             {G_USER_DIRECTORY_DOCUMENTS, "Documents"},
                                             {G_USER_DIRECTORY_PICTURES, "Pictures"},
                                             {G_USER_DIRECTORY_DOWNLOAD, "Downloads"}}};
  g_reload_user_special_dirs_cache();
  std::vector<std::string> folders;
  for (const auto& [directory, usual] : wanted) {
    const char* listed = g_get_user_special_dir(directory);
    const std::string folder = listed != nullptr ? listed : environment_.Home + '/' + usual;
    if (!MayBeFolder(folder)) continue;
    std::string path = Program(folder);
    if (path.empty() || path == HomeFolder()) continue;
    if (std::find(folders.begin(), folders.end(), path) == folders.end()) folders.push_back(std::move(path));
  }
  return folders;
}

std::vector<Places::Bookmark> PosixPlaces::Bookmarks() {
  std::vector<Bookmark> bookmarks;
  const std::string text = ReadSmallFile(environment_.ConfigHome + "/gtk-3.0/bookmarks").value_or("");
  for (const std::string_view line : Lines(text)) {
    const std::size_t blank = std::min(line.find(' '), line.size());
    const std::string address(line.substr(0, blank));
    constexpr std::string_view file = "file://";
    std::string path;
    if (address.starts_with(file)) {
      path = Program(PercentDecoded(std::string_view(address).substr(file.size())));
    } else if (address.starts_with("smb://")) {
      path = mapping_->Current().ProgramPath(PercentDecoded(address));
    }
    const bool known = path.starts_with("\\\\") || (path.size() > 2 && path[1] == ':');
    if (known) bookmarks.push_back({path, Trim(NameForPeople(NameFromHost(line.substr(blank))))});
  }
  return bookmarks;
}

}  // namespace pixorra
