// Programs that the desktop has registered, and starting them.
#pragma once

#include <memory>
#include <optional>

#include "platform/posix/DesktopEntry.h"
#include "platform/posix/Environment.h"
#include "platform/posix/Launcher.h"
#include "platform/posix/PosixFiles.h"
#include "platform/services/Shell.h"

namespace pixorra {

class PosixShell : public Shell {
 public:
  PosixShell(Environment environment, std::shared_ptr<MappingSource> mapping);

  // A program is told by its starter, a ".desktop" file: several may run one binary under different names.
  std::string FindExecutable(const std::string& path) override;
  // Of a starter, or of a binary for which there is one.
  VersionInfo ReadVersionInfo(const std::string& program) override;
  // A path of the program, or an address that begins with "http:", "https:" or "mailto:". Where no program is
  // registered the desktop's own opener is asked.
  void Open(const std::string& target, const std::string& workingFolder) override;
  // Also raises 75 for what is no program. A program without a folder is looked for in the search path.
  void Run(const std::string& command) override;

 private:
  std::string HostPathOf(const std::string& path);
  std::optional<DesktopEntry> ProgramFor(const std::string& hostPath);
  std::string WorkingFolderFor(const std::string& folder);

  Environment environment_;
  std::shared_ptr<MappingSource> mapping_;
  PosixFiles files_;
  Launcher launcher_;
};

}  // namespace pixorra
