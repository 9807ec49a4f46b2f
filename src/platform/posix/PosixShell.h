// Programs that the desktop has registered, and starting them.
#pragma once

#include <memory>

#include "platform/posix/MappingSource.h"
#include "platform/posix/PosixFiles.h"
#include "platform/services/Shell.h"

namespace pixorra {

class PosixShell : public Shell {
 public:
  // `ownFolder` is the host folder of the programs that were installed with this one; empty where it is not known.
  PosixShell(std::shared_ptr<MappingSource> mapping, std::string ownFolder = {});

  // A program is named by its starter, a ".desktop" file: several may run one binary under different names.
  std::string FindExecutable(const std::string& path) override;
  // Of a starter, or of a binary for which there is one. A starter has a product name, a description, an internal name
  // and an original file name.
  VersionInfo ReadVersionInfo(const std::string& program) override;
  // `target` is a path of the program, or an address that begins with "http:", "https:" or "mailto:". Where no program
  // is registered the desktop's own opener is asked.
  void Open(const std::string& target, const std::string& workingFolder) override;
  // Also raises PathAccess for what is no program. A program without a folder is looked for in the search path. The
  // argument line is parted at each single blank.
  void Run(const std::string& command) override;
  // A symbolic link. A program that is not in its folder is looked for in the search path.
  void OfferProgram(const std::string& path, const std::string& name) override;
  // Below "../share/doc" from the program's folder, or "docs" in it, where a build leaves the manual.
  std::string FindManual() override;
  bool OpenScreenSaverSettings() override;
  bool OpenSystemInformation() override;

 private:
  std::string HostPathOf(const std::string& path);

  std::shared_ptr<MappingSource> mapping_;
  PosixFiles files_;
  std::string ownFolder_;
};

}  // namespace pixorra
