// A desktop that starts nothing: programs are registered by a test, and what was asked of it is kept.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/services/Shell.h"

namespace pixorra {

class Files;

class HeadlessShell : public Shell {
 public:
  struct Opened {
    std::string Target;
    std::string WorkingFolder;
  };

  // The program for files whose names end so (".jpg", case ignored).
  void RegisterProgram(const std::string& ending, const std::string& program, const VersionInfo& info = {});
  // What FindExecutable is asked for and what Run starts must be there, else they raise. Without files all is there.
  void SetFiles(Files& files) { files_ = &files; }
  // Run raises FileNotFound for commands that begin so.
  void SetMissing(const std::string& command) { missing_ = command; }
  // A program that OfferProgram can offer; without any it does nothing.
  void AddInstalled(const std::string& name) { installed_.insert(name); }
  // The programs that were offered, by their paths.
  const std::map<std::string, std::string>& AllOffered() const { return offered_; }
  // The manual's first page; there is none at first.
  void SetManual(const std::string& path) { manual_ = path; }
  // Whether the desktop has windows for the screen saver and for the machine; it has none at first.
  void SetHasOwnWindows(bool has) { hasOwnWindows_ = has; }
  const std::vector<Opened>& AllOpened() const { return opened_; }
  const std::vector<std::string>& AllRun() const { return run_; }
  int ScreenSaverSettingsOpened() const { return screenSaverSettings_; }
  int SystemInformationOpened() const { return systemInformation_; }

  std::string FindExecutable(const std::string& path) override;
  VersionInfo ReadVersionInfo(const std::string& program) override;
  void Open(const std::string& target, const std::string& workingFolder) override;
  void Run(const std::string& command) override;
  void OfferProgram(const std::string& path, const std::string& name) override;
  std::string FindManual() override { return manual_; }
  bool OpenScreenSaverSettings() override;
  bool OpenSystemInformation() override;

 private:
  bool IsThere(const std::string& command) const;

  Files* files_ = nullptr;
  std::map<std::string, std::string> programs_;
  std::map<std::string, VersionInfo> infos_;
  std::vector<Opened> opened_;
  std::vector<std::string> run_;
  std::string missing_;
  std::string manual_;
  std::set<std::string> installed_;
  std::map<std::string, std::string> offered_;
  bool hasOwnWindows_ = false;
  int screenSaverSettings_ = 0;
  int systemInformation_ = 0;
};

}  // namespace pixorra
