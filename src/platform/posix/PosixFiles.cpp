// Files and folders of the host: what is asked of names.
#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/FolderDescent.h"
#include "platform/posix/FolderListing.h"
#include "platform/posix/HostErrors.h"
#include "platform/posix/HostFile.h"
#include "platform/posix/HostLookup.h"
#include "platform/posix/LinkFile.h"
#include "platform/posix/LocalTimes.h"
#include "platform/posix/RenameFile.h"
#include "platform/posix/TreeRemoval.h"

namespace pixorra {

namespace {

constexpr mode_t newFolderMode = 0777;  // what the user's mask leaves of it

bool IsFolder(const std::string& hostPath) {
  struct stat entry {};
  return stat(hostPath.c_str(), &entry) == 0 && S_ISDIR(entry.st_mode);
}

// The folder that the last name is in.
std::string FolderOf(const HostPath& path) {
  return path.Names.empty() ? path.Text() : path.Text(path.Names.size() - 1);
}

[[noreturn]] void RaiseFor(const HostPath& path, int hostError) {
  if (hostError == ENOENT && !IsFolder(FolderOf(path))) throw RuntimeError(error::PathNotFound);
  RaiseHostError(hostError);
}

void MustExist(const Located& located) {
  if (!located.Exists()) RaiseFor(located.Path, located.Failure);
}

// The name may be free, but the way to it must be there.
void MustBeReachable(const Located& located) {
  if (located.Exists()) return;
  if (located.Failure != ENOENT || !IsFolder(FolderOf(located.Path))) RaiseFor(located.Path, located.Failure);
}

void MustNotBeRoot(const HostPath& path) {
  if (path.IsRoot()) throw RuntimeError(error::PathAccess);
}

// A file of another case is another file, and so is one in a folder of another case, unless the disk itself finds it by
// this name. How a share is mounted is spelled in several ways.
bool IsSpelledAs(const HostPath& asked, const Located& located) {
  return std::equal(asked.Names.begin() + static_cast<std::ptrdiff_t>(asked.RootNames), asked.Names.end(),
                    located.Path.Names.begin() + static_cast<std::ptrdiff_t>(asked.RootNames),
                    located.Path.Names.end());
}

// Of the ordinary file that is there, or that a link there leads to.
struct stat OrdinaryEntry(const Located& located) {
  MustExist(located);
  if (S_ISREG(located.Entry.st_mode)) return located.Entry;
  struct stat entry {};
  if (stat(located.Path.Text().c_str(), &entry) != 0) RaiseFor(located.Path, errno);
  if (!S_ISREG(entry.st_mode)) throw RuntimeError(error::FileNotFound);
  return entry;
}

// The same as the server of a network disk has it now: what this machine remembers of it may be seconds old, and what
// is deleted and what is taken for a copy hangs on it.
FileStamp StampNow(const Located& located) {
  MustExist(located);
  struct statx entry {};
  constexpr unsigned wanted = STATX_TYPE | STATX_INO | STATX_SIZE | STATX_MTIME;
  if (statx(AT_FDCWD, located.Path.Text().c_str(), AT_STATX_FORCE_SYNC, wanted, &entry) != 0)
    RaiseFor(located.Path, errno);
  if (!S_ISREG(entry.stx_mode)) throw RuntimeError(error::FileNotFound);
  return StampIn(entry);
}

}  // namespace

PosixFiles::PosixFiles(PathMapping mapping) : mapping_(std::make_shared<FixedMapping>(std::move(mapping))) {}

PosixFiles::PosixFiles(std::shared_ptr<MappingSource> mapping) : mapping_(std::move(mapping)) {}

Located PosixFiles::Find(const std::string& path) {
  return Locate(mapping_->Current().ToHost(path), &kept_);
}

std::vector<std::string> PosixFiles::Names(const std::string& folder, const std::string& pattern, int attributes) {
  int failure = 0;
  return OrElse(std::vector<std::string>(), [&] { return NamesIn(folder, pattern, attributes, failure); });
}

std::vector<std::string> PosixFiles::CompleteNames(const std::string& folder, const std::string& pattern,
                                                   int attributes) {
  int failure = 0;
  std::vector<std::string> names = NamesIn(folder, pattern, attributes, failure);
  if (failure == ENOENT) throw RuntimeError(error::PathNotFound);
  if (failure != 0) RaiseHostError(failure);
  return names;
}

std::vector<std::string> PosixFiles::NamesIn(const std::string& folder, const std::string& pattern, int attributes,
                                             int& failure) {
  const Located located = Find(folder);
  failure = located.Failure;
  if (!located.Exists()) return {};
  const std::string hostFolder = located.Path.Text();
  if (attributes == attribute::Normal) {
    if (KeptFolder* const kept = kept_.Find(hostFolder)) return kept->OrdinaryNames(pattern);
  }
  // Where a volume is mounted another drive begins; it has a letter of its own.
  const PathMapping& mapping = mapping_->Current();
  std::vector<std::string> names = ListFolder(
      hostFolder, pattern, attributes, [&mapping](const std::string& path) { return mapping.IsVolumeRoot(path); },
      failure);
  kept_.WasRead(hostFolder, names.size());
  return names;
}

std::vector<std::string> PosixFiles::Folders(const std::string& folder, int attributes) {
  const PathMapping& mapping = mapping_->Current();
  return ListFolders(mapping, mapping.ToHost(folder), attributes);
}

std::optional<int> PosixFiles::Attributes(const std::string& path) {
  std::optional<int> attributes;
  static_cast<void>(ErrorsIgnored([&] {
    const Located located = Find(path);
    if (!located.Exists()) return;
    const std::string name = located.Path.IsRoot() ? std::string() : located.Path.Names.back();
    attributes = AttributesOfEntry(located.Path.Text(), name, located.Entry);
  }));
  return attributes;
}

void PosixFiles::SetAttributes(const std::string& path, int attributes) {
  const Located located = Find(path);
  MustExist(located);
  MustNotBeRoot(located.Path);
  // A link has none of its own, and what it leads to lies elsewhere.
  if (S_ISLNK(located.Entry.st_mode)) return;
  constexpr mode_t anybodyWrites = S_IWUSR | S_IWGRP | S_IWOTH;
  const mode_t old = located.Entry.st_mode & 07777U;
  const bool readOnly = (attributes & attribute::ReadOnly) != 0;
  const mode_t mode = readOnly ? old & ~anybodyWrites : old | S_IWUSR;
  if (mode != old && fchmodat(AT_FDCWD, located.Path.Text().c_str(), mode, 0) != 0) RaiseFor(located.Path, errno);
}

// The look at a free name reads the whole folder. It need not be read again to make the file, as long as nothing in it
// has changed since; and a file that takes just this name is noticed when it is made.
void PosixFiles::RememberFree(const std::string& path, const Located& located) {
  if (located.Found + 1 != located.Path.Names.size()) return;
  free_ = {path, located.Path.Text(), FolderOf(located.Path), {}};
  if (stat(free_.HostFolder.c_str(), &free_.Folder) != 0) free_ = {};
}

bool PosixFiles::IsStillFree(const std::string& path) const {
  struct stat now {};
  const auto same = [](const timespec& a, const timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; };
  return !free_.Path.empty() && free_.Path == path && stat(free_.HostFolder.c_str(), &now) == 0 &&
         now.st_dev == free_.Folder.st_dev && now.st_ino == free_.Folder.st_ino &&
         same(now.st_mtim, free_.Folder.st_mtim) && same(now.st_ctim, free_.Folder.st_ctim);
}

NameState PosixFiles::LookAtName(const std::string& path) {
  // What cannot be a name here is surely no name of anything.
  return OrElse(NameState::Free, [&] {
    const Located located = Find(path);
    if (located.Failure == ENOENT) RememberFree(path, located);
    switch (located.Failure) {
      case 0:
        return NameState::Taken;
      case ENOENT:
      case ENOTDIR:
      case ENAMETOOLONG:
        return NameState::Free;
      default:
        return NameState::Unknown;
    }
  });
}

bool PosixFiles::IsLink(const std::string& path) {
  return OrElse(false, [&] {
    const Located located = Find(path);
    return located.Exists() && S_ISLNK(located.Entry.st_mode);
  });
}

bool PosixFiles::IsSameFile(const std::string& a, const std::string& b) {
  return OrElse(false, [&] {
    struct stat first {};
    struct stat second {};
    return stat(Find(a).Path.Text().c_str(), &first) == 0 && stat(Find(b).Path.Text().c_str(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
  });
}

std::int64_t PosixFiles::Length(const std::string& path) {
  return StampNow(Find(path)).Length;
}

FileStamp PosixFiles::StampOf(const std::string& path) {
  return StampNow(Find(path));
}

std::unique_ptr<File> PosixFiles::OpenOfLength(const std::string& path, std::int64_t length) {
  const Located located = Find(path);
  if (StampNow(located).Length != length) return nullptr;
  return OpenHostFile(located.Path.Text(), OpenMode::Read, S_ISREG(located.Entry.st_mode));
}

std::unique_ptr<File> PosixFiles::Open(const std::string& path, OpenMode mode) {
  if (mode == OpenMode::CreateNew && IsStillFree(path)) return OpenHostFile(free_.HostPath, mode);
  const Located located = Find(path);
  MustNotBeRoot(located.Path);
  MustBeReachable(located);
  // Also a name of another case is taken.
  if (mode == OpenMode::CreateNew && located.Exists()) throw RuntimeError(error::FileExists);
  const bool ordinary = located.Exists() && S_ISREG(located.Entry.st_mode);
  return OpenHostFile(located.Path.Text(), mode, ordinary);
}

void PosixFiles::Delete(const std::string& path) {
  const HostPath asked = mapping_->Current().ToHost(path);
  const Located located = Locate(asked);
  MustExist(located);
  MustNotBeRoot(located.Path);
  if (!IsSpelledAs(asked, located)) throw RuntimeError(error::FileNotFound);
  // unlink itself refuses folders.
  if (unlink(located.Path.Text().c_str()) != 0) RaiseFor(located.Path, errno);
}

void PosixFiles::Rename(const std::string& from, const std::string& to) {
  const HostPath wanted = mapping_->Current().ToHost(to);
  const Located source = Find(from);
  MustExist(source);
  MustNotBeRoot(source.Path);
  const Located target = Locate(wanted);
  MustBeReachable(target);
  std::string targetPath = target.Path.Text();
  if (target.Exists()) {
    // A change of case alone finds the old name in the new one's way; that is no other file.
    if (target.Path.IsRoot() || targetPath != source.Path.Text()) throw RuntimeError(error::FileExists);
    HostPath respelled = target.Path;
    respelled.Names.back() = wanted.Names.back();
    targetPath = respelled.Text();
  }
  const int failure = RenameKeeping(source.Path.Text(), targetPath);
  if (failure != 0) RaiseFor(source.Path, failure);
}

void PosixFiles::RenameOver(const std::string& from, const std::string& to) {
  const Located source = Find(from);
  const Located target = Find(to);
  MustExist(source);
  MustBeReachable(target);
  if (!S_ISREG(source.Entry.st_mode) || (target.Exists() && !S_ISREG(target.Entry.st_mode)))
    throw RuntimeError(error::PathAccess);
  // Who may read the old file may read the new one, and nobody else. A disk without permissions has none to keep.
  if (target.Exists())
    static_cast<void>(fchmodat(AT_FDCWD, source.Path.Text().c_str(), target.Entry.st_mode & 07777U, 0));
  if (rename(source.Path.Text().c_str(), target.Path.Text().c_str()) != 0) RaiseFor(source.Path, errno);
}

void PosixFiles::LinkOrCopy(const std::string& from, const std::string& to) {
  const Located source = Find(from);
  const Located target = Find(to);
  MustExist(source);
  MustBeReachable(target);
  if (!S_ISREG(source.Entry.st_mode)) throw RuntimeError(error::PathAccess);
  // Also a name of another case is taken.
  if (target.Exists()) throw RuntimeError(error::FileExists);
  LinkOrCopyFile(source.Path.Text(), target.Path.Text());
}

void PosixFiles::MakeFolder(const std::string& path) {
  const Located located = Find(path);
  MustBeReachable(located);
  if (located.Exists()) throw RuntimeError(error::FileExists);
  if (mkdir(located.Path.Text().c_str(), newFolderMode) != 0) RaiseFor(located.Path, errno);
}

void PosixFiles::RemoveFolder(const std::string& path) {
  const Located located = Find(path);
  if (!located.Exists() && located.Failure == ENOENT) throw RuntimeError(error::PathNotFound);
  MustExist(located);
  MustNotBeRoot(located.Path);
  if (S_ISLNK(located.Entry.st_mode)) throw RuntimeError(error::PathAccess);
  if (rmdir(located.Path.Text().c_str()) == 0) return;
  // Some file systems call a folder that is not empty an existing one.
  RaiseFor(located.Path, errno == EEXIST ? ENOTEMPTY : errno);
}

void PosixFiles::RemoveTree(const std::string& path, const FolderIdentity& meant) {
  const HostPath asked = mapping_->Current().ToHost(path);
  MustNotBeRoot(asked);
  const Located located = Locate(asked);
  if (located.Failure == ENOENT || !IsSpelledAs(asked, located)) throw RuntimeError(error::PathNotFound);
  MustExist(located);
  if (!S_ISDIR(located.Entry.st_mode) && !S_ISLNK(located.Entry.st_mode)) throw RuntimeError(error::PathNotFound);
  switch (const int failure = RemoveHostTree(located.Path, meant)) {
    case 0:
      return;
    case ENOENT:
      throw RuntimeError(error::PathNotFound);
    case EXDEV:    // another file system in it
    case ENOTDIR:  // a link
    case ESTALE:   // another folder, or one that has been moved
      throw RuntimeError(error::PathAccess);
    default:
      RaiseHostError(failure == EEXIST ? ENOTEMPTY : failure);
  }
}

void PosixFiles::FlushFolder(const std::string& path) {
  const Located located = Find(path);
  if (!located.Exists() && located.Failure == ENOENT) throw RuntimeError(error::PathNotFound);
  MustExist(located);
  const UniqueFd folder(open(located.Path.Text().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) RaiseFor(located.Path, errno);
  while (fsync(folder.Get()) != 0) {
    if (errno == EINTR) continue;
    // Not every file system can, and one that is read-only has nothing to keep.
    if (errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP || errno == EROFS) return;
    RaiseHostError(errno);
  }
}

std::optional<CalendarTime> PosixFiles::LastWriteTime(const std::string& path) {
  std::optional<CalendarTime> time;
  static_cast<void>(ErrorsIgnored([&] {
    const UniqueFd fd = OpenForTimes(Find(path).Path.Text(), true);
    struct stat entry {};
    if (fd && fstat(fd.Get(), &entry) == 0) time = LocalTimeOf(entry.st_mtim);
  }));
  return time;
}

std::optional<CalendarTime> PosixFiles::LastWriteTimeToRead(const std::string& path) {
  std::optional<CalendarTime> time;
  static_cast<void>(ErrorsIgnored([&] {
    const Located located = Find(path);
    const struct stat entry = OrdinaryEntry(located);
    if (faccessat(AT_FDCWD, located.Path.Text().c_str(), R_OK, AT_EACCESS) == 0) time = LocalTimeOf(entry.st_mtim);
  }));
  return time;
}

bool PosixFiles::SetTimes(const std::string& path, const CalendarTime& time) {
  const std::optional<timespec> moment = MomentOf(time);
  bool set = false;
  if (!moment) return set;
  static_cast<void>(ErrorsIgnored([&] {
    const UniqueFd fd = OpenForTimes(Find(path).Path.Text(), false);
    const std::array<timespec, 2> times{*moment, *moment};
    set = fd && futimens(fd.Get(), times.data()) == 0;
  }));
  return set;
}

std::vector<Files::Drive> PosixFiles::Drives() {
  std::vector<Drive> drives;
  for (const Volume& volume : mapping_->Current().Volumes())
    if (IsFolder(volume.HostRoot)) drives.push_back({{volume.Letter, ':', '\\'}, volume.ShownName});
  return drives;
}

std::string PosixFiles::FolderPath(const std::string& path) {
  std::optional<std::string> program;
  static_cast<void>(ErrorsIgnored([&] {
    const std::string hostPath = LocateInDiskCase(mapping_->Current().ToHost(path)).Path.Text();
    if (!IsFolder(hostPath) || faccessat(AT_FDCWD, hostPath.c_str(), R_OK | X_OK, AT_EACCESS) != 0) return;
    program = mapping_->Current().ToProgram(hostPath);
  }));
  if (!program) throw RuntimeError(error::PathNotFound);
  return *program;
}

FolderIdentity PosixFiles::IdentityOf(const std::string& path) {
  const Located located = Find(path);
  FolderIdentity identity;
  const int failure = located.Exists() ? LookAtFolder(located.Path.Text(), identity) : located.Failure;
  // A link that leads nowhere or in a circle.
  if (failure == ENOENT || failure == ELOOP) throw RuntimeError(error::PathNotFound);
  if (failure != 0) RaiseHostError(failure);
  return identity;
}

std::string PosixFiles::RealPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(realpath(Find(path).Path.Text().c_str(), nullptr), std::free);
  const std::optional<std::string> program = real ? mapping_->Current().ToProgram(real.get()) : std::nullopt;
  if (!program) throw RuntimeError(error::PathNotFound);
  return *program;
}

std::string PosixFiles::ShownPath(const std::string& path) {
  return mapping_->Current().ShownPath(path);
}

std::string PosixFiles::ProgramPath(const std::string& typed) {
  return mapping_->Current().ProgramPath(typed);
}

}  // namespace pixorra
