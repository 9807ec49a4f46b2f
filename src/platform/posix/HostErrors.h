// The error numbers of the program for the host's errno.
#pragma once

#include "platform/runtime/Errors.h"

namespace pixorra {

// ENOENT is FileNotFound; callers that know the folder to be missing raise PathNotFound themselves.
int ErrorNumberOf(int hostError);
[[noreturn]] void RaiseHostError(int hostError);

}  // namespace pixorra
