#include "platform/posix/ListedFiles.h"

#include "platform/posix/HostErrors.h"
#include "platform/posix/HostFile.h"
#include "platform/posix/HostLookup.h"

namespace pixorra {

std::unique_ptr<File> ListedFiles::Open(const std::string& path, OpenMode mode) {
  if (mode != OpenMode::Read) return PosixFiles::Open(path, mode);
  const Located located = LocateExactly(mapping_->Current().ToHost(path));
  if (!located.Exists()) RaiseHostError(located.Failure);
  return OpenHostFile(located.Path.Text(), mode, S_ISREG(located.Entry.st_mode));
}

}  // namespace pixorra
