// The error numbers of the program for the host's errno.
#pragma once

#include "platform/runtime/Errors.h"

namespace pixorra {

// ENOENT is a missing file here (53); callers that know the folder to be missing say 76 themselves.
int ErrorNumberOf(int hostError);
[[noreturn]] void RaiseHostError(int hostError);

}  // namespace pixorra
