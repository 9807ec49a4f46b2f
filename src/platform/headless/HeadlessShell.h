// A desktop that starts nothing: programs are registered by a test, and what was asked of it is kept.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/services/Shell.h"

namespace pixorra {

class HeadlessShell : public Shell {
 public:
  struct Opened {
    std::string Target;
    std::string WorkingFolder;
  };

  // The program for files whose names end so (".jpg", case ignored).
  void RegisterProgram(const std::string& ending, const std::string& program, const VersionInfo& info = {});
  // Run raises 53 for commands that begin so.
  void SetMissing(const std::string& command) { missing_ = command; }
  const std::vector<Opened>& AllOpened() const { return opened_; }
  const std::vector<std::string>& AllRun() const { return run_; }

  std::string FindExecutable(const std::string& path) override;
  VersionInfo ReadVersionInfo(const std::string& program) override;
  void Open(const std::string& target, const std::string& workingFolder) override;
  void Run(const std::string& command) override;

 private:
  std::map<std::string, std::string> programs_;
  std::map<std::string, VersionInfo> infos_;
  std::vector<Opened> opened_;
  std::vector<std::string> run_;
  std::string missing_;
};

}  // namespace pixorra
