// The desktop's programs.
#include "platform/posix/PosixShell.h"

#include <cerrno>
#include <utility>
#include <vector>

#include "platform/posix/Associations.h"
#include "platform/posix/CommandLine.h"
#include "platform/posix/HostErrors.h"
#include "platform/posix/HostLookup.h"
#include "platform/posix/MimeTypes.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

std::string LastName(const std::string& hostPath) {
  return hostPath.substr(hostPath.rfind('/') + 1);
}

// "https" of a web address; empty for what is none.
std::string SchemeOf(const std::string& target) {
  const std::string scheme = LCase(target.substr(0, target.find(':')));
  return scheme == "http" || scheme == "https" || scheme == "mailto" ? scheme : std::string();
}

}  // namespace

PosixShell::PosixShell(Environment environment, std::shared_ptr<MappingSource> mapping)
    : environment_(std::move(environment)), mapping_(std::move(mapping)), files_(mapping_) {}

std::string PosixShell::HostPathOf(const std::string& path) {
  return Locate(mapping_->Current().ToHost(path)).Path.Text();
}

std::optional<DesktopEntry> PosixShell::ProgramFor(const std::string& hostPath) {
  std::vector<std::string> dataFolders{environment_.DataHome};
  dataFolders.insert(dataFolders.end(), environment_.DataDirs.begin(), environment_.DataDirs.end());
  const std::string type = TypeOfFile(dataFolders, LastName(hostPath));
  return type.empty() ? std::nullopt : ProgramForType(type, environment_);
}

std::string PosixShell::FindExecutable(const std::string& path) {
  // Raises 53 and 76 itself.
  files_.Length(path);
  const std::optional<DesktopEntry> entry = ProgramFor(HostPathOf(path));
  return entry ? mapping_->Current().ToProgram(entry->File).value_or("") : std::string();
}

Shell::VersionInfo PosixShell::ReadVersionInfo(const std::string& program) {
  VersionInfo info;
  static_cast<void>(ErrorsIgnored([&] {
    const std::string hostPath = HostPathOf(program);
    const bool starter = hostPath.ends_with(".desktop");
    const std::optional<DesktopEntry> entry =
        starter ? ReadDesktopEntry(hostPath, environment_) : FindEntryOfProgram(LastName(hostPath), environment_);
    if (entry) info = {entry->Name, entry->Description};
  }));
  return info;
}

std::string PosixShell::WorkingFolderFor(const std::string& folder) {
  return files_.FolderExists(folder) ? HostPathOf(folder) : std::string();
}

void PosixShell::Open(const std::string& target, const std::string& workingFolder) {
  const std::string scheme = SchemeOf(target);
  std::string opened = target;
  std::optional<DesktopEntry> entry;
  if (!scheme.empty()) {
    entry = ProgramForType("x-scheme-handler/" + scheme, environment_);
  } else {
    if (!files_.Attributes(target)) return;
    opened = HostPathOf(target);
    entry = files_.FolderExists(target) ? ProgramForType("inode/directory", environment_) : ProgramFor(opened);
  }
  std::string folder = WorkingFolderFor(workingFolder);
  if (entry && !entry->InTerminal) {
    std::vector<std::string> arguments = ArgumentsFor(*entry, opened);
    const std::optional<std::string> program = FindProgram(arguments.empty() ? "" : arguments[0], environment_);
    if (program) {
      arguments[0] = *program;
      if (!entry->WorkingFolder.empty()) folder = entry->WorkingFolder;
      if (launcher_.Start(arguments, folder) == 0) return;
    }
  }
  const std::vector<std::vector<std::string>> openers{{"xdg-open"}, {"gio", "open"}};
  for (std::vector<std::string> opener : openers) {
    const std::optional<std::string> program = FindProgram(opener[0], environment_);
    if (!program) continue;
    opener[0] = *program;
    opener.push_back(opened);
    if (launcher_.Start(opener, folder) == 0) return;
  }
}

void PosixShell::Run(const std::string& command) {
  const Command parts = SplitCommand(command, [this](const std::string& path) { return files_.FileExists(path); });
  std::vector<std::string> arguments;
  if (parts.Program.find('\\') == std::string::npos) {
    const std::optional<std::string> program = FindProgram(parts.Program, environment_);
    if (!program) throw RuntimeError(error::FileNotFound);
    arguments.push_back(*program);
  } else {
    if (!files_.FileExists(parts.Program)) throw RuntimeError(error::FileNotFound);
    arguments.push_back(HostPathOf(parts.Program));
  }
  arguments.insert(arguments.end(), parts.Arguments.begin(), parts.Arguments.end());
  const int failure = launcher_.Start(arguments, {});
  if (failure == ENOEXEC) throw RuntimeError(error::PathAccess);
  if (failure != 0) RaiseHostError(failure);
}

}  // namespace pixorra
