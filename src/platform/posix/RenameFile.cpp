// Renaming without replacing.
#include "platform/posix/RenameFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/HostNames.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

bool SameEntry(const std::string& from, const std::string& to) {
  if (from == to || !EqualIgnoringCase(NameFromHost(from), NameFromHost(to))) return false;
  struct stat one {};
  struct stat other {};
  if (lstat(from.c_str(), &one) != 0 || lstat(to.c_str(), &other) != 0) return false;
  // Two hard links are two entries, even if they lead to one file.
  const bool oneEntry = S_ISDIR(one.st_mode) || one.st_nlink == 1;
  return oneEntry && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

int PlainRename(const std::string& from, const std::string& to) {
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

// For disks that know no links: the name is claimed by an empty file, which only the rename replaces. A kill in between
// leaves that file beside the one that keeps its old name.
int ClaimAndRename(const std::string& from, const std::string& to) {
  const int claim = open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (claim < 0) return errno;
  close(claim);
  const int failure = PlainRename(from, to);
  if (failure == 0) return 0;
  struct stat claimed {};
  if (lstat(to.c_str(), &claimed) == 0 && S_ISREG(claimed.st_mode) && claimed.st_size == 0) unlink(to.c_str());
  // A disk that itself replaces nothing needs no claim.
  return failure == EEXIST ? PlainRename(from, to) : failure;
}

bool NotSupported(int hostError) {
  return hostError == EINVAL || hostError == ENOSYS || hostError == EOPNOTSUPP;
}

}  // namespace

int RenameKeeping(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  const int failure = errno;
  if (failure == EEXIST && SameEntry(from, to)) return PlainRename(from, to);
  return NotSupported(failure) ? RenameKeepingInSteps(from, to) : failure;
}

int RenameKeepingInSteps(const std::string& from, const std::string& to) {
  struct stat entry {};
  if (lstat(from.c_str(), &entry) != 0) return errno;
  struct stat taken {};
  if (lstat(to.c_str(), &taken) == 0) return SameEntry(from, to) ? PlainRename(from, to) : EEXIST;
  if (S_ISDIR(entry.st_mode)) return PlainRename(from, to);
  if (link(from.c_str(), to.c_str()) == 0) {
    if (unlink(from.c_str()) == 0) return 0;
    const int failure = errno;
    unlink(to.c_str());
    return failure;
  }
  const bool withoutLinks = errno == EPERM || errno == EMLINK || NotSupported(errno);
  return withoutLinks ? ClaimAndRename(from, to) : errno;
}

}  // namespace pixorra
