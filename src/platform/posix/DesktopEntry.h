// Starters of programs, as the desktop keeps them in ".desktop" files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/Environment.h"

namespace pixorra {

struct DesktopEntry {
  std::string File;         // host path of the entry itself
  std::string Name;         // in the user's language
  std::string Description;  // its comment, or else what kind of program it is
  std::string Exec;         // command line with field codes
  std::string Icon;
  std::string WorkingFolder;  // may be empty
  bool InTerminal = false;
};

// Nothing where the file is no program's starter, is marked as deleted, or its program is not installed.
std::optional<DesktopEntry> ReadDesktopEntry(const std::string& file, const Environment& environment);
// By its name among the starters, such as "viewer.desktop"; the user's own go before the system's.
std::optional<DesktopEntry> FindDesktopEntry(const std::string& id, const Environment& environment);
// The starter whose command begins with this program, by its name without folders.
std::optional<DesktopEntry> FindEntryOfProgram(const std::string& programName, const Environment& environment);

// The arguments of the entry's command with its field codes filled in for a host path or a web address. The target
// comes last where the command has no place for it. Empty where the command makes no sense.
std::vector<std::string> ArgumentsFor(const DesktopEntry& entry, const std::string& target);

// A program by its absolute host path or its name in the search path: nothing where no such program can be run.
std::optional<std::string> FindProgram(const std::string& name, const Environment& environment);

}  // namespace pixorra
