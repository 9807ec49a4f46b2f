// The one table of host errors.
#include "platform/posix/HostErrors.h"

#include <cerrno>

namespace pixorra {

int ErrorNumberOf(int hostError) {
  switch (hostError) {
    case ENAMETOOLONG:
    case EINVAL:  // a name that this file system does not take
      return error::BadFileName;
    case ENOENT:
      return error::FileNotFound;
    case EEXIST:
      return error::FileExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return error::DiskFull;
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
      return error::PermissionDenied;
    case ENOMEDIUM:
    case ENXIO:
    case ENODEV:
      return error::DiskNotReady;
    case EXDEV:
      return error::DifferentDrive;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENOTEMPTY:
    case ELOOP:
      return error::PathAccess;
    case ENOTDIR:
      return error::PathNotFound;
    case ENOMEM:
      return error::OutOfMemory;
    default:
      return error::DeviceIO;
  }
}

void RaiseHostError(int hostError) {
  throw RuntimeError(ErrorNumberOf(hostError));
}

}  // namespace pixorra
