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

bool IsOwnFolder(int folder, const dirent& entry) {
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

int LookAt(int folder, const char* name, int flags, FolderIdentity& identity, unsigned& mode) {
  constexpr unsigned wanted = STATX_TYPE | STATX_MODE | STATX_INO | STATX_BTIME | STATX_MNT_ID;
  struct statx looked {};
  if (statx(folder, name, flags | AT_NO_AUTOMOUNT, wanted, &looked) != 0) return errno;
  constexpr std::int64_t second = 1'000'000'000;
  const auto knows = [&looked](unsigned what) { return (looked.stx_mask & what) != 0; };
  identity.Disk = makedev(looked.stx_dev_major, looked.stx_dev_minor);
  identity.Number = looked.stx_ino;
  identity.Mount = knows(STATX_MNT_ID) ? looked.stx_mnt_id : 0;
  identity.Born = knows(STATX_BTIME) ? looked.stx_btime.tv_sec * second + looked.stx_btime.tv_nsec : 0;
  mode = looked.stx_mode;
  return 0;
}

int Look(int fd, FolderIdentity& identity, unsigned& mode) {
  return LookAt(fd, "", AT_EMPTY_PATH, identity, mode);
}

// A part of a disk that is mounted elsewhere has the disk's own number: only the mount is another one.
bool SameMount(const FolderIdentity& a, const FolderIdentity& b) {
  return a.Disk == b.Disk && a.Mount == b.Mount;
}

}  // namespace

int LookAtFolder(const std::string& hostPath, FolderIdentity& identity) {
  unsigned mode = 0;
  if (const int failure = LookAt(AT_FDCWD, hostPath.c_str(), 0, identity, mode)) return failure;
  return S_ISDIR(mode) ? 0 : ENOTDIR;
}

FolderDescent::FolderDescent(const HostPath& path, std::size_t count) {
  UniqueFd folder(open(path.Text(path.RootNames).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  for (std::size_t i = path.RootNames; folder && i < count; ++i)
    folder = UniqueFd(openat(folder.Get(), path.Names[i].c_str(), asPlace));
  if (!folder) {
    failure_ = NoFolderAs(errno);
    return;
  }
  Level first{std::move(folder), {}};
  unsigned mode = 0;
  failure_ = Look(first.Fd.Get(), first.Is, mode);
  levels_.push_back(std::move(first));
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
    if (name != "." && name != "..") entries.push_back({std::string(name), IsOwnFolder(Folder(), *entry)});
  }
  return entries;
}

int FolderDescent::Enter(const std::string& name, Access access) {
  const FolderIdentity& above = levels_.back().Is;
  UniqueFd folder(openat(Folder(), name.c_str(), toRead));
  if (!folder && errno == EACCES && access == Access::Widened) folder = OpenWidened(Folder(), name, above);
  if (!folder) return NoFolderAs(errno);
  Level next{std::move(folder), {}};
  unsigned mode = 0;
  if (const int failure = Look(next.Fd.Get(), next.Is, mode)) return failure;
  if (!SameMount(next.Is, above)) return EXDEV;
  // Where this is refused, what needs the rights fails.
  if (access == Access::Widened && (mode & ownersRights) != ownersRights) static_cast<void>(Widen(next.Fd.Get(), mode));
  levels_.push_back(std::move(next));
  // Also refuses a folder that can be read only: nothing in it could be looked at.
  if (const int failure = CheckAbove(levels_.size() - 1)) {
    levels_.pop_back();
    return failure;
  }
  // The first one stays open: it was found by a path and has nothing above it to be found from.
  if (levels_.size() > mostOpen + 1) levels_[levels_.size() - mostOpen].Fd = UniqueFd();
  return 0;
}

// Between the two openings it is held as a place, so it stays the same folder.
UniqueFd FolderDescent::OpenWidened(int parent, const std::string& name, const FolderIdentity& above) {
  const UniqueFd place(openat(parent, name.c_str(), asPlace));
  FolderIdentity identity;
  unsigned mode = 0;
  if (!place || Look(place.Get(), identity, mode) != 0) return {};
  if (!SameMount(identity, above)) {
    errno = EXDEV;
    return {};
  }
  if (!Widen(place.Get(), mode)) return {};
  return UniqueFd(openat(place.Get(), ".", toRead));
}

int FolderDescent::LookAt(const std::string& name, FolderIdentity& identity) const {
  unsigned mode = 0;
  return pixorra::LookAt(Folder(), name.c_str(), AT_SYMLINK_NOFOLLOW, identity, mode);
}

// A folder that has gone still has the one above it.
int FolderDescent::CheckAbove(std::size_t level) const {
  FolderIdentity above;
  unsigned mode = 0;
  if (const int failure = pixorra::LookAt(levels_[level].Fd.Get(), "..", AT_SYMLINK_NOFOLLOW, above, mode))
    return failure;
  return above == levels_[level - 1].Is ? 0 : ESTALE;
}

int FolderDescent::CheckWay() const {
  for (std::size_t level = levels_.size() - 1; level > 0; --level) {
    if (!levels_[level].Fd) continue;
    if (const int failure = CheckAbove(level)) return failure;
  }
  return 0;
}

int FolderDescent::Leave() {
  if (const int failure = CheckAbove(levels_.size() - 1)) return failure;
  Level& above = levels_[levels_.size() - 2];
  if (!above.Fd) {
    UniqueFd folder(openat(Folder(), "..", asPlace));
    if (!folder) return errno;
    FolderIdentity found;
    unsigned mode = 0;
    if (const int failure = Look(folder.Get(), found, mode)) return failure;
    if (found != above.Is) return ESTALE;
    above.Fd = std::move(folder);
  }
  levels_.pop_back();
  return 0;
}

}  // namespace pixorra
