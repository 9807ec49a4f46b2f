// The program that is registered for a file, and what it calls itself.
#pragma once

#include <string>

#include "platform/services/Shell.h"

namespace pixorra {

// The path of the program registered for the file; empty where there is none, and for a path without a folder. Raises
// FileNotFound where the file is missing, PathNotFound where its folder is.
std::string AssociatedProgramPath(Shell& shell, const std::string& file);
// A name fit for a menu: the product's or, where that is empty, the program's description.
std::string ProgramDisplayName(Shell& shell, const std::string& program);
// Fills the record. A field that the program does not have is "?"; all are empty where it has no record.
void ReadVersionInfo(Shell& shell, const std::string& program, Shell::VersionInfo& record);

}  // namespace pixorra
