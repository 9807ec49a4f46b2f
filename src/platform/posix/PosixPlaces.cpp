#include "platform/posix/PosixPlaces.h"

#include <algorithm>
#include <sys/stat.h>
#include <utility>

#include "platform/posix/GlibPointers.h"
#include "platform/posix/SmallFiles.h"

namespace pixorra {

PosixPlaces::PosixPlaces(Environment environment, std::shared_ptr<MappingSource> mapping)
    : environment_(std::move(environment)), mapping_(std::move(mapping)) {}

std::string PosixPlaces::ProgramFolder() {
  return Own(environment_.DataHome);
}

std::string PosixPlaces::WindowsFolder() {
  return Own(environment_.ConfigHome);
}

std::string PosixPlaces::TemporaryFolder() {
  return Own(environment_.CacheHome);
}

std::string PosixPlaces::SpecialFolder(int number) {
  switch (number) {
    case 0:
    case 16:
      return ListedFolder(G_USER_DIRECTORY_DESKTOP, "Desktop");
    case 2:
    case 11:
      return Program(environment_.DataHome + "/applications");
    case 3:
      return Program(environment_.Home);
    case 5:
      return ListedFolder(G_USER_DIRECTORY_DOCUMENTS, "Documents");
    case 6:
      return Program(environment_.ConfigHome + "/gtk-3.0");
    case 8:
      return Program(environment_.DataHome);
    case 39:
      return ListedFolder(G_USER_DIRECTORY_PICTURES, "Pictures");
    default:
      return {};
  }
}

std::vector<std::string> PosixPlaces::KeptFolders() {
  std::vector<std::string> kept;
  const auto keep = [&](const std::string& hostPath) {
    std::string path = Program(hostPath);
    if (!path.empty()) kept.push_back(std::move(path));
  };
  for (const char* folder :
       {"bin",     "boot",       "cdrom", "dev", "efi", "etc", "home", "lib",      "lib32",  "lib64",     "libx32",
        "libexec", "lost+found", "media", "mnt", "nix", "opt", "proc", "root",     "run",    "run/media", "run/user",
        "sbin",    "snap",       "srv",   "sys", "tmp", "usr", "var",  "var/home", "var/tmp"})
    keep(std::string("/") + folder);
  keep(environment_.Home);
  for (const std::string& folder :
       {environment_.RuntimeDir, "/media/" + environment_.User, "/run/media/" + environment_.User})
    if (folder.starts_with('/') && !folder.ends_with('/')) keep(folder);
  g_reload_user_special_dirs_cache();
  for (int directory = 0; directory < G_USER_N_DIRECTORIES; ++directory)
    if (const char* listed = g_get_user_special_dir(static_cast<GUserDirectory>(directory))) keep(listed);
  // Also those that are not in the list and have their usual names.
  for (std::string& folder : UserFolders())
    if (std::find(kept.begin(), kept.end(), folder) == kept.end()) kept.push_back(std::move(folder));
  return kept;
}

std::string PosixPlaces::Own(const std::string& base) {
  const std::string folder = base + "/pixorra";
  static_cast<void>(MakeFolders(folder));
  return Program(folder);
}

std::string PosixPlaces::ListedFolder(int directory, const char* usual) {
  const auto isFolder = [](const std::string& path) {
    struct stat entry {};
    return stat(path.c_str(), &entry) == 0 && S_ISDIR(entry.st_mode);
  };
  const std::string folder = (environment_.Home == "/" ? "" : environment_.Home) + '/' + usual;
  // The list may have changed since the last look.
  g_reload_user_special_dirs_cache();
  const char* listed = g_get_user_special_dir(static_cast<GUserDirectory>(directory));
  // Without a list GLib names the usual desktop, there or not.
  if (listed != nullptr && (listed != folder || isFolder(folder))) return Program(listed);
  return Program(isFolder(folder) ? folder : environment_.Home);
}

std::string PosixPlaces::Program(const std::string& hostPath) {
  return mapping_->Current().ToProgram(hostPath).value_or("");
}

}  // namespace pixorra
