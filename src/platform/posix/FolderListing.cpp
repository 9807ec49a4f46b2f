// Listing a folder.
#include "platform/posix/FolderListing.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

#include "platform/posix/EntryKind.h"
#include "platform/posix/HostErrors.h"
#include "platform/posix/HostLookup.h"
#include "platform/posix/HostNames.h"
#include "platform/runtime/NaturalOrder.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

// What a link leads to; Other where it leads nowhere.
EntryKind KindBehind(int folder, const dirent& entry) {
  struct stat looked {};
  return fstatat(folder, static_cast<const char*>(entry.d_name), &looked, 0) == 0 ? KindOf(looked.st_mode)
                                                                                  : EntryKind::Other;
}

bool IsListed(int folder, const dirent& entry, EntryKind kind, int attributes) {
  const bool system = (attributes & attribute::System) != 0;
  if (kind == EntryKind::Link) {
    if (system) return true;
    kind = KindBehind(folder, entry);
  }
  if (kind == EntryKind::Folder) return (attributes & attribute::Directory) != 0;
  return kind == EntryKind::Ordinary || system;
}

bool IsFolder(int folder, const dirent& entry) {
  const EntryKind kind = KindOf(folder, entry);
  return kind == EntryKind::Folder || (kind == EntryKind::Link && KindBehind(folder, entry) == EntryKind::Folder);
}

[[noreturn]] void RaiseForFolder(int hostError) {
  if (hostError == ENOENT) throw RuntimeError(error::PathNotFound);
  RaiseHostError(hostError);
}

}  // namespace

int AttributesOfEntry(const std::string& path, std::string_view name, const struct stat& entry) {
  struct stat looked = entry;
  const bool leadsNowhere = S_ISLNK(entry.st_mode) && stat(path.c_str(), &looked) != 0;
  int attributes = attribute::Normal;
  if (name.starts_with('.')) attributes |= attribute::Hidden;
  if (leadsNowhere) return attributes | attribute::System;
  if ((looked.st_mode & S_IWUSR) == 0) attributes |= attribute::ReadOnly;
  if (S_ISDIR(looked.st_mode)) return attributes | attribute::Directory;
  return S_ISREG(looked.st_mode) ? attributes : attributes | attribute::System;
}

std::vector<std::string> ListFolder(const std::string& folder, const std::string& pattern, int attributes,
                                    const std::function<bool(const std::string&)>& leaveOut, int& failure) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
  failure = open ? 0 : errno;
  if (!open) return names;
  const std::string start = folder == "/" ? folder : folder + '/';
  errno = 0;
  for (; const dirent* entry = readdir(open.get()); errno = 0) {
    const std::string hostName = static_cast<const char*>(entry->d_name);
    if (hostName == "." || hostName == "..") continue;
    if (hostName[0] == '.' && (attributes & attribute::Hidden) == 0) continue;
    std::string name = NameFromHost(hostName);
    if (!MatchesPattern(name, pattern)) continue;
    const EntryKind kind = KindOf(dirfd(open.get()), *entry);
    if (!IsListed(dirfd(open.get()), *entry, kind, attributes)) continue;
    if (kind == EntryKind::Folder && leaveOut(start + hostName)) continue;
    names.push_back(std::move(name));
  }
  failure = errno;
  return names;
}

std::string PathOfFolder(const PathMapping& mapping, const std::string& path) {
  std::optional<std::string> program;
  static_cast<void>(ErrorsIgnored([&] {
    const std::string hostPath = LocateInDiskCase(mapping.ToHost(path)).Path.Text();
    struct stat entry {};
    if (stat(hostPath.c_str(), &entry) != 0 || !S_ISDIR(entry.st_mode)) return;
    if (faccessat(AT_FDCWD, hostPath.c_str(), R_OK | X_OK, AT_EACCESS) == 0) program = mapping.ToProgram(hostPath);
  }));
  if (!program) throw RuntimeError(error::PathNotFound);
  return *program;
}

std::vector<std::string> ListFolders(const PathMapping& mapping, const HostPath& folder, int attributes) {
  const Located located = Locate(folder);
  if (!located.Exists()) RaiseForFolder(located.Failure);
  const std::string path = located.Path.Text();
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(path.c_str()), closedir);
  if (!open) RaiseForFolder(errno);
  const std::string start = path == "/" ? path : path + '/';
  std::vector<std::string> names;
  errno = 0;
  while (const dirent* entry = readdir(open.get())) {
    const std::string hostName = static_cast<const char*>(entry->d_name);
    const bool wanted = hostName[0] != '.' || (hostName != "." && hostName != ".." && (attributes & attribute::Hidden));
    if (wanted && IsFolder(dirfd(open.get()), *entry) && !mapping.IsVolumeRoot(start + hostName))
      names.push_back(NameFromHost(hostName));
    errno = 0;
  }
  // A listing that breaks off is not a shorter one.
  if (errno != 0) RaiseForFolder(errno);
  std::sort(names.begin(), names.end(), NaturalLess);
  return names;
}

}  // namespace pixorra
