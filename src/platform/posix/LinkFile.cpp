// Second names.
#include "platform/posix/LinkFile.h"

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/HostErrors.h"
#include "platform/posix/HostFile.h"
#include "platform/runtime/AtExit.h"

namespace pixorra {

void LinkOrCopyFile(const std::string& from, const std::string& to) {
  if (link(from.c_str(), to.c_str()) == 0) return;
  if (errno == EEXIST) RaiseHostError(EEXIST);
  // Disks without second names refuse in many ways. What else is wrong is wrong for the copy too.
  CopyFileFlushed(from, to);
}

void CopyFileFlushed(const std::string& from, const std::string& to) {
  const std::unique_ptr<File> source = OpenHostFile(from, OpenMode::Read);
  // For its owner alone until it has the permissions of the file.
  UniqueFd fd(open(to.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (!fd) RaiseHostError(errno);
  struct stat entry {};
  if (stat(from.c_str(), &entry) == 0) static_cast<void>(fchmod(fd.Get(), entry.st_mode & 07777U));
  bool isWhole = false;
  const AtExit withoutHalf([&] {
    if (!isWhole) unlink(to.c_str());
  });
  const std::unique_ptr<File> copy = MakeHostFile(std::move(fd));
  copy->CopyFrom(*source, source->Length());
  copy->Flush();
  isWhole = true;
}

}  // namespace pixorra
