#include "platform/posix/FolderDescent.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <utility>

namespace pixorra {

namespace {

constexpr int asPlace = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr int toRead = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
constexpr std::size_t mostOpen = 64;
constexpr unsigned ownersRights = S_IRWXU;

// A link, and anything else that is no folder.
int NoFolderAs(int hostError) {
  return hostError == ELOOP ? ENOTDIR : hostError;
}

bool IsFolder(int folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat looked {};
  const char* name = static_cast<const char*>(entry.d_name);
  return fstatat(folder, name, &looked, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) == 0 && S_ISDIR(looked.st_mode);
}

// Works on a descriptor that was opened as a place only, which fchmod refuses.
bool Widen(int fd, unsigned mode) {
  const std::string path = "/proc/self/fd/" + std::to_string(fd);
  return fchmodat(AT_FDCWD, path.c_str(), (mode & 07777U) | ownersRights, 0) == 0;
}

}  // namespace

FolderDescent::FolderDescent(const HostPath& path, std::size_t count) {
  UniqueFd folder(open(path.Text(path.RootNames).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  for (std::size_t i = path.RootNames; folder && i < count; ++i)
    folder = UniqueFd(openat(folder.Get(), path.Names[i].c_str(), asPlace));
  if (!folder) {
    failure_ = NoFolderAs(errno);
    return;
  }
  Level first{std::move(folder), {}};
  failure_ = Look(first.Fd.Get(), first.Is);
  levels_.push_back(std::move(first));
}

int FolderDescent::Look(int fd, Identity& identity) {
  struct statx looked {};
  if (statx(fd, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_MODE | STATX_INO | STATX_MNT_ID, &looked) != 0) return errno;
  identity.Disk = makedev(looked.stx_dev_major, looked.stx_dev_minor);
  identity.Number = looked.stx_ino;
  identity.Mount = (looked.stx_mask & STATX_MNT_ID) != 0 ? looked.stx_mnt_id : 0;
  identity.Mode = looked.stx_mode;
  return 0;
}

// A part of a disk that is mounted elsewhere has the disk's own number: only the mount tells it apart.
bool FolderDescent::SameMount(const Identity& a, const Identity& b) {
  return a.Disk == b.Disk && a.Mount == b.Mount;
}

std::vector<FolderEntry> FolderDescent::List() const {
  std::vector<FolderEntry> entries;
  UniqueFd own(openat(Folder(), ".", toRead));
  if (!own) return entries;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(fdopendir(own.Get()), closedir);
  if (!open) return entries;
  own.Release();
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") entries.push_back({std::string(name), IsFolder(Folder(), *entry)});
  }
  return entries;
}

int FolderDescent::Enter(const std::string& name, Access access) {
  const Identity& above = levels_.back().Is;
  UniqueFd folder(openat(Folder(), name.c_str(), toRead));
  if (!folder && errno == EACCES && access == Access::Widened) folder = OpenWidened(Folder(), name, above);
  if (!folder) return NoFolderAs(errno);
  Level next{std::move(folder), {}};
  if (const int failure = Look(next.Fd.Get(), next.Is)) return failure;
  if (!SameMount(next.Is, above)) return EXDEV;
  // Where this is refused, what needs the rights fails.
  if (access == Access::Widened && (next.Is.Mode & ownersRights) != ownersRights)
    static_cast<void>(Widen(next.Fd.Get(), next.Is.Mode));
  levels_.push_back(std::move(next));
  // The first one stays open: it was found by a path and has nothing above it to be found from.
  if (levels_.size() > mostOpen + 1) levels_[levels_.size() - mostOpen].Fd = UniqueFd();
  return 0;
}

// Between the two openings it is held as a place, so it stays the same folder.
UniqueFd FolderDescent::OpenWidened(int parent, const std::string& name, const Identity& above) {
  const UniqueFd place(openat(parent, name.c_str(), asPlace));
  Identity identity;
  if (!place || Look(place.Get(), identity) != 0) return {};
  if (!SameMount(identity, above)) {
    errno = EXDEV;
    return {};
  }
  if (!Widen(place.Get(), identity.Mode)) return {};
  return UniqueFd(openat(place.Get(), ".", toRead));
}

int FolderDescent::Leave() {
  Level& above = levels_[levels_.size() - 2];
  if (!above.Fd) {
    UniqueFd folder(openat(Folder(), "..", asPlace));
    if (!folder) return errno;
    Identity found;
    if (const int failure = Look(folder.Get(), found)) return failure;
    if (!SameMount(found, above.Is) || found.Number != above.Is.Number) return ESTALE;
    above.Fd = std::move(folder);
  }
  levels_.pop_back();
  return 0;
}

}  // namespace pixorra
