// Small files, whole.
#include "platform/posix/SmallFiles.h"

#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#include "platform/posix/HostErrors.h"
#include "platform/posix/HostFile.h"
#include "platform/posix/RenameFile.h"

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

// Ends the name of a file that is being written; what is in the place of the last letters is made up each time.
constexpr std::string_view ownPart = ".pixorra-";
constexpr std::string_view madeUp = "XXXXXX";

// `takeName` renames the file that has been written, and returns the host's error.
template <typename TakeName>
void WriteBeside(const std::string& target, std::string_view text, const TakeName& takeName) {
  std::string temporary = target;
  temporary.append(ownPart).append(madeUp);
  UniqueFd fd(mkostemp(temporary.data(), O_CLOEXEC));
  if (!fd) RaiseHostError(errno);
  struct stat old {};
  if (stat(target.c_str(), &old) == 0) static_cast<void>(fchmod(fd.Get(), old.st_mode & 0777U));
  try {
    const std::unique_ptr<File> file = MakeHostFile(std::move(fd));
    file->WriteAt(0, text.data(), text.size());
    file->Flush();
    if (const int failure = takeName(temporary, target); failure != 0) RaiseHostError(failure);
  } catch (const RuntimeError&) {
    unlink(temporary.c_str());
    throw;
  }
  FlushFolderOf(target);
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
  WriteBeside(BehindLinks(path), text, [](const std::string& temporary, const std::string& target) {
    return rename(temporary.c_str(), target.c_str()) == 0 ? 0 : errno;
  });
}

void WriteNewSmallFile(const std::string& path, std::string_view text) {
  WriteBeside(path, text, RenameKeeping);
}

void RemoveTracesOf(const std::string& path, std::string_view mark) {
  const std::filesystem::path target = path;
  const std::string start = target.filename().string().append(ownPart);
  std::error_code failure;
  std::vector<std::string> traces;
  for (std::filesystem::directory_iterator entry(target.parent_path(), failure), end; !failure && entry != end;
       entry.increment(failure)) {
    const std::string name = entry->path().filename();
    if (name.starts_with(start) && name.size() == start.size() + madeUp.size()) traces.push_back(entry->path());
  }
  for (const std::string& trace : traces) {
    if (ReadSmallFile(trace).value_or("").find(mark) != std::string::npos) unlink(trace.c_str());
  }
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
