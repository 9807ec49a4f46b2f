// Programs that the desktop has registered, each named by the host path of its starter, a ".desktop" file. GLib reads
// and caches the desktop's lists: those of the session that this process was started in, since it reads the session's
// variables once. Nothing is read before the first question.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "platform/services/Shell.h"

namespace pixorra {

// Each is empty where no program is registered that is installed.
std::string StarterForFile(const std::string& hostPath);  // by the file's name alone; no file is read
std::string StarterForFolders();
std::string StarterForScheme(const std::string& scheme);  // such as "https"
// The first of these, by their names among the starters ("viewer.desktop"), that is installed and meant for the desktop
// that runs.
std::string FirstStarter(std::span<const char* const> names);

// Of a starter, or of a program for which there is one. Nothing where there is none.
std::optional<Shell::VersionInfo> RecordOfProgram(const std::string& hostPath);

// Starts the program in a session of its own, its streams at /dev/null, in its own working folder or else in `folder`
// (where this program works if that is empty). `target` is a host path, a web address, or empty. False where it does
// not start.
bool LaunchStarter(const std::string& starter, const std::string& target, const std::string& folder);

}  // namespace pixorra
