// Which program opens which type, by the desktop's lists of associations.
#pragma once

#include <optional>
#include <string>

#include "platform/posix/DesktopEntry.h"
#include "platform/posix/Environment.h"

namespace pixorra {

// The starter that opens a type such as "image/jpeg" or "x-scheme-handler/https": the user's and the system's defaults
// first, then what was added, then what the programs themselves offer. Programs that are not installed, and those that
// were taken off the list, are passed over.
std::optional<DesktopEntry> ProgramForType(const std::string& type, const Environment& environment);

}  // namespace pixorra
