#include "platform/posix/PosixShell.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "platform/posix/CommandLine.h"
#include "platform/posix/DesktopPrograms.h"
#include "platform/posix/GlibPointers.h"
#include "platform/posix/HostErrors.h"
#include "platform/posix/HostLookup.h"
#include "platform/posix/Launcher.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// The settings of savers themselves first: a desktop's own page may only lock the screen.
constexpr std::array screenSaverSettings{
    "xfce4-screensaver-preferences.desktop",
    "mate-screensaver-preferences.desktop",
    "cinnamon-settings-screensaver.desktop",
    "xscreensaver-settings.desktop",
    "xscreensaver-properties.desktop",
    "kcm_screenlocker.desktop",
    "light-locker-settings.desktop",
    "gnome-screen-panel.desktop",
    "gnome-lock-panel.desktop",
};

constexpr std::array systemInformation{
    "org.kde.kinfocenter.desktop",
    "gnome-about-panel.desktop",
    "gnome-system-panel.desktop",
    "gnome-info-overview-panel.desktop",
    "cinnamon-settings-info.desktop",
    "hardinfo2.desktop",
    "hardinfo.desktop",
    "xfce4-about.desktop",
    "lxqt-about.desktop",
};

// "https" of a web address; empty for what is none.
std::string SchemeOf(const std::string& target) {
  const std::string scheme = LCase(target.substr(0, target.find(':')));
  return scheme == "http" || scheme == "https" || scheme == "mailto" ? scheme : std::string();
}

// The host path of a program by its name in the search path; empty where there is none.
std::string InSearchPath(const std::string& name) {
  const GlibText path(g_find_program_in_path(name.c_str()));
  return path ? path.get() : std::string();
}

bool IsProgram(const std::string& hostPath) {
  struct stat entry {};
  return stat(hostPath.c_str(), &entry) == 0 && S_ISREG(entry.st_mode) && access(hostPath.c_str(), X_OK) == 0;
}

// A link to the program under a name that nobody has, next to that path; empty where it cannot be made.
std::string LinkBeside(const std::string& path, const std::string& program) {
  constexpr int MostTries = 100;
  for (int i = 0; i < MostTries; ++i) {
    std::string name = path + '.' + std::to_string(getpid()) + '-' + std::to_string(i);
    if (symlink(program.c_str(), name.c_str()) == 0) return name;
    if (errno != EEXIST) break;
  }
  return {};
}

bool OpenFirst(std::span<const char* const> names) {
  const std::string starter = FirstStarter(names);
  return !starter.empty() && LaunchStarter(starter, {}, {});
}

}  // namespace

PosixShell::PosixShell(std::shared_ptr<MappingSource> mapping, std::string ownFolder)
    : mapping_(std::move(mapping)), files_(mapping_), ownFolder_(std::move(ownFolder)) {}

std::string PosixShell::HostPathOf(const std::string& path) {
  return Locate(mapping_->Current().ToHost(path)).Path.Text();
}

std::string PosixShell::FindExecutable(const std::string& path) {
  // Raises FileNotFound and PathNotFound itself.
  files_.Length(path);
  const std::string starter = StarterForFile(HostPathOf(path));
  return starter.empty() ? std::string() : mapping_->Current().ToProgram(starter).value_or("");
}

Shell::VersionInfo PosixShell::ReadVersionInfo(const std::string& program) {
  VersionInfo info;
  static_cast<void>(ErrorsIgnored([&] { info = RecordOfProgram(HostPathOf(program)).value_or(info); }));
  return info;
}

void PosixShell::Open(const std::string& target, const std::string& workingFolder) {
  const std::string scheme = SchemeOf(target);
  if (scheme.empty() && !files_.Attributes(target)) return;
  const std::string opened = scheme.empty() ? HostPathOf(target) : target;
  std::string starter;
  if (!scheme.empty())
    starter = StarterForScheme(scheme);
  else
    starter = files_.FolderExists(target) ? StarterForFolders() : StarterForFile(opened);
  const std::string folder = files_.FolderExists(workingFolder) ? HostPathOf(workingFolder) : std::string();
  if (!starter.empty() && LaunchStarter(starter, opened, folder)) return;
  const std::string opener = InSearchPath("xdg-open");
  if (!opener.empty()) static_cast<void>(StartDetached({opener, opened}, folder));
}

void PosixShell::Run(const std::string& command) {
  const Command parts = SplitCommand(command, [this](const std::string& path) { return files_.FileExists(path); });
  const bool hasFolder = parts.Program.find('\\') != std::string::npos;
  std::vector<std::string> arguments{InSearchPath(parts.Program)};
  if (hasFolder) arguments[0] = files_.FileExists(parts.Program) ? HostPathOf(parts.Program) : std::string();
  if (arguments[0].empty()) throw RuntimeError(error::FileNotFound);
  arguments.insert(arguments.end(), parts.Arguments.begin(), parts.Arguments.end());
  const int failure = StartDetached(arguments, {});
  if (failure == ENOEXEC) throw RuntimeError(error::PathAccess);
  if (failure != 0) RaiseHostError(failure);
}

void PosixShell::OfferProgram(const std::string& path, const std::string& name) {
  const std::string beside = ownFolder_ + '/' + name;
  const std::string program = IsProgram(beside) ? beside : InSearchPath(name);
  std::string link;
  if (program.empty() || ErrorsIgnored([&] { link = HostPathOf(path); }) != error::None) return;
  struct stat entry {};
  if (lstat(link.c_str(), &entry) != 0) {
    static_cast<void>(symlink(program.c_str(), link.c_str()));
    return;
  }
  const auto leadsNowhere = [&] {
    return lstat(link.c_str(), &entry) == 0 && S_ISLNK(entry.st_mode) && !IsProgram(link);
  };
  if (!leadsNowhere()) return;
  const std::string mended = LinkBeside(link, program);
  if (mended.empty()) return;
  if (!leadsNowhere() || rename(mended.c_str(), link.c_str()) != 0) unlink(mended.c_str());
}

std::string PosixShell::FindManual() {
  if (ownFolder_.empty()) return {};
  for (const char* place : {"/../share/doc/pixorra/manual/index.html", "/docs/manual/index.html"}) {
    const std::string page = std::filesystem::path(ownFolder_ + place).lexically_normal();
    const std::string path = mapping_->Current().ToProgram(page).value_or("");
    if (!path.empty() && files_.FileExists(path)) return path;
  }
  return {};
}

bool PosixShell::OpenScreenSaverSettings() {
  return OpenFirst(screenSaverSettings);
}

bool PosixShell::OpenSystemInformation() {
  return OpenFirst(systemInformation);
}

}  // namespace pixorra
