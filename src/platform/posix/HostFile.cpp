// Files of the host.
#include "platform/posix/HostFile.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/HostErrors.h"

namespace pixorra {

namespace {

constexpr int always = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
constexpr mode_t newFileMode = 0666;  // what the user's mask leaves of it

class HostFile : public File {
 public:
  explicit HostFile(UniqueFd fd) : fd_(std::move(fd)) {}

  std::int64_t Length() override {
    struct stat entry {};
    if (fstat(fd_.Get(), &entry) != 0) RaiseHostError(errno);
    return entry.st_size;
  }

  FileStamp Stamp() override {
    struct stat entry {};
    if (fstat(fd_.Get(), &entry) != 0) RaiseHostError(errno);
    return StampIn(entry);
  }

  std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
    CheckRange(offset, count);
    std::size_t done = 0;
    while (done < count) {
      const ssize_t came = pread(fd_.Get(), static_cast<std::byte*>(into) + done, count - done,
                                 offset + static_cast<std::int64_t>(done));
      if (came < 0 && errno == EINTR) continue;
      if (came < 0) throw RuntimeError(error::DeviceIO);
      if (came == 0) break;
      done += static_cast<std::size_t>(came);
    }
    return done;
  }

  void WriteAt(std::int64_t offset, const void* from, std::size_t count) override {
    CheckRange(offset, count);
    std::size_t done = 0;
    while (done < count) {
      const ssize_t went = pwrite(fd_.Get(), static_cast<const std::byte*>(from) + done, count - done,
                                  offset + static_cast<std::int64_t>(done));
      if (went < 0 && errno == EINTR) continue;
      if (went < 0) RaiseWriteError(errno);
      if (went == 0) throw RuntimeError(error::DiskFull);
      done += static_cast<std::size_t>(went);
    }
  }

  std::int64_t CopyFrom(File& source, std::int64_t count) override {
    auto* const from = dynamic_cast<HostFile*>(&source);
    std::int64_t done = 0;
    while (from != nullptr && done < count) {
      off_t read = done;
      off_t written = done;
      // The kernel takes so much at most.
      constexpr std::int64_t most = 0x7ffff000;
      const ssize_t went = copy_file_range(from->fd_.Get(), &read, fd_.Get(), &written,
                                           static_cast<std::size_t>(std::min(count - done, most)), 0);
      if (went < 0 && errno == EINTR) continue;
      // Some disks cannot, and what else is wrong is found, and raised, where the rest is read and written.
      if (went <= 0) break;
      done += went;
    }
    return CopyBlocks(source, done, count);
  }

  void Flush() override {
    while (fsync(fd_.Get()) != 0)
      if (errno != EINTR) RaiseWriteError(errno);
  }

  void Empty() override {
    // EINVAL is what a descriptor says that was opened for reading.
    while (ftruncate(fd_.Get(), 0) != 0)
      if (errno != EINTR) RaiseWriteError(errno == EINVAL ? EBADF : errno);
  }

 private:
  static void CheckRange(std::int64_t offset, std::size_t count) {
    constexpr std::int64_t longest = std::numeric_limits<std::int64_t>::max();
    if (offset < 0 || count > static_cast<std::size_t>(longest - offset)) throw RuntimeError(error::DeviceIO);
  }
  // A descriptor that was opened for reading takes no writing: no access, not a broken device.
  [[noreturn]] static void RaiseWriteError(int hostError) {
    if (hostError == EBADF) throw RuntimeError(error::PathAccess);
    RaiseHostError(hostError == EINVAL ? EIO : hostError);
  }

  UniqueFd fd_;
};

// 0, or the host's error. What is no ordinary file must not even be opened: a FIFO's other end would notice.
int CheckOrdinary(const std::string& path, bool throughLinks) {
  struct stat entry {};
  if (fstatat(AT_FDCWD, path.c_str(), &entry, throughLinks ? 0 : AT_SYMLINK_NOFOLLOW) != 0) return errno;
  return S_ISREG(entry.st_mode) ? 0 : EACCES;
}

bool IsOrdinary(const UniqueFd& fd) {
  struct stat entry {};
  return fstat(fd.Get(), &entry) == 0 && S_ISREG(entry.st_mode);
}

UniqueFd OpenWithFlags(const std::string& path, int flags) {
  int fd = -1;
  do {
    fd = open(path.c_str(), flags | always, newFileMode);
  } while (fd < 0 && errno == EINTR);
  return UniqueFd(fd);
}

}  // namespace

FileStamp StampIn(const struct stat& entry) {
  return {.Disk = entry.st_dev,
          .Number = entry.st_ino,
          .Length = entry.st_size,
          .Seconds = entry.st_mtim.tv_sec,
          .Nanoseconds = entry.st_mtim.tv_nsec};
}

FileStamp StampIn(const struct statx& entry) {
  return {.Disk = makedev(entry.stx_dev_major, entry.stx_dev_minor),
          .Number = entry.stx_ino,
          .Length = static_cast<std::int64_t>(entry.stx_size),
          .Seconds = entry.stx_mtime.tv_sec,
          .Nanoseconds = entry.stx_mtime.tv_nsec};
}

std::unique_ptr<File> MakeHostFile(UniqueFd fd) {
  return std::make_unique<HostFile>(std::move(fd));
}

std::unique_ptr<File> OpenHostFile(const std::string& path, OpenMode mode, bool seenOrdinary) {
  const bool reading = mode == OpenMode::Read;
  const bool making = mode == OpenMode::CreateNew;
  const int unfit = seenOrdinary || making ? 0 : CheckOrdinary(path, reading);
  if (unfit != 0 && (reading || unfit != ENOENT)) RaiseHostError(unfit);
  UniqueFd fd = OpenWithFlags(path, reading ? O_RDONLY : O_RDWR | O_CREAT | (making ? O_EXCL : O_NOFOLLOW));
  if (!fd) RaiseHostError(errno);
  // Something else may have taken the name since the first look.
  struct stat entry {};
  if (fstat(fd.Get(), &entry) != 0 || !S_ISREG(entry.st_mode)) throw RuntimeError(error::PathAccess);
  // Emptied only now that it is known what was opened. A file that is empty is left alone: emptied, it would be put on
  // the disk as soon as it is closed, which costs a temporary file far more than itself.
  if (mode == OpenMode::Replace && entry.st_size != 0 && ftruncate(fd.Get(), 0) != 0) RaiseHostError(errno);
  return MakeHostFile(std::move(fd));
}

UniqueFd OpenForTimes(const std::string& path, bool throughLinks) {
  if (CheckOrdinary(path, throughLinks) != 0) return {};
  UniqueFd fd = OpenWithFlags(path, O_RDWR | (throughLinks ? 0 : O_NOFOLLOW));
  if (fd && !IsOrdinary(fd)) return {};
  return fd;
}

}  // namespace pixorra
