// Small files, whole.
#include "platform/posix/SmallFiles.h"

#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/HostErrors.h"
#include "platform/posix/HostFile.h"

namespace pixorra {

namespace {

constexpr std::int64_t longestFile = std::int64_t{16} * 1024 * 1024;
constexpr mode_t ownerOnly = 0700;

std::string BehindLinks(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
  return real ? real.get() : path;
}

void FlushFolderOf(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/') + 1);
  const UniqueFd fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // The file itself is safe; a disk that cannot flush a folder is no reason to call the write a failure.
  if (fd) static_cast<void>(fsync(fd.Get()));
}

}  // namespace

std::optional<std::string> ReadSmallFile(const std::string& path) {
  try {
    const std::unique_ptr<File> file = OpenHostFile(path, OpenMode::Read);
    const std::int64_t length = file->Length();
    if (length > longestFile) return std::nullopt;
    std::string text(static_cast<std::size_t>(length), '\0');
    text.resize(file->ReadAt(0, text.data(), text.size()));
    return text;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

void WriteSmallFile(const std::string& path, std::string_view text) {
  const std::string target = BehindLinks(path);
  std::string temporary = target + ".XXXXXX";
  UniqueFd fd(mkostemp(temporary.data(), O_CLOEXEC));
  if (!fd) RaiseHostError(errno);
  struct stat old {};
  if (stat(target.c_str(), &old) == 0) static_cast<void>(fchmod(fd.Get(), old.st_mode & 0777U));
  try {
    const std::unique_ptr<File> file = MakeHostFile(std::move(fd));
    file->WriteAt(0, text.data(), text.size());
    file->Flush();
    if (rename(temporary.c_str(), target.c_str()) != 0) RaiseHostError(errno);
  } catch (const RuntimeError&) {
    unlink(temporary.c_str());
    throw;
  }
  FlushFolderOf(target);
}

bool MakeFolders(const std::string& path) {
  struct stat entry {};
  if (stat(path.c_str(), &entry) == 0) return S_ISDIR(entry.st_mode);
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return false;
  if (slash > 0 && !MakeFolders(path.substr(0, slash))) return false;
  return mkdir(path.c_str(), ownerOnly) == 0 || errno == EEXIST;
}

}  // namespace pixorra
