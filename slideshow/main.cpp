// Picks the back ends and runs the show. Nothing else.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "platform/codecs/ThreadedFrames.h"
#include "platform/posix/EndSignals.h"
#include "platform/posix/Environment.h"
#include "platform/posix/ErrorTrace.h"
#include "platform/posix/ListedFiles.h"
#include "platform/posix/MappingSource.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolderReader.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/RunningInstance.h"
#include "platform/qt/QtPlatform.h"
#include "platform/session/DesktopSession.h"
#include "slideshow/CommandLine.h"
#include "slideshow/Companion.h"

namespace pixorra {

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string WorkingFolder() {
  char* folder = get_current_dir_name();
  const std::string result = folder != nullptr ? folder : "/";
  std::free(folder);
  return result;
}

// A folder's menu hands over a path of the host, byte for byte; what a person writes may be spelled in either way.
std::string ProgramFolder(const Request& request, MappingSource& mapping) {
  if (!request.Folder.starts_with('/')) return request.Folder;
  return mapping.Current().ToProgram(request.Folder).value_or(request.Folder);
}

// A show ends by any key, and only the one in front hears it: a new one that its user starts ends the one before.
std::unique_ptr<RunningInstance> OnlyShowOf(const Environment& environment) {
  constexpr double Patience = 2;  // seconds for each
  const std::string& session = environment.RuntimeDir.empty() ? environment.CacheHome : environment.RuntimeDir;
  auto instance = std::make_unique<RunningInstance>(session + "/pixorra-slideshow");
  if (!instance->IsFirst() && instance->CallFirst(Patience) == RunningInstance::Outcome::Taken)
    static_cast<void>(instance->CallFirst(Patience));
  return instance;
}

// What a screen saver without a folder says of the place where it has looked: a daemon may leave out what leads to
// another one.
std::string SettingsPlace(const Environment& environment) {
  return Variable("XDG_CONFIG_HOME").empty() ? environment.ConfigHome + "/pixorra" : "";
}

int Run(Request request, int argc, char** argv) {
  const Environment environment = Environment::OfProcess();
  if (request.HostWindow != 0 && !QtPlatform::HasXServer()) {
    std::fputs("pixorra-slideshow: --window-id needs an X server\n", stderr);
    return 1;
  }
  QtPlatform qt(argc, argv);
  if (request.HostWindow != 0 && !qt.ShowInside(request.HostWindow)) {
    std::fputs("pixorra-slideshow: there is no such window\n", stderr);
    return 1;
  }
  const EndSignals& signals = EndSignals::OfProgram();
  qt.OnReadable(signals.Descriptor(), [&] {
    if (signals.Take()) qt.toolkit.AskToEnd();
  });
  const auto mapping = std::make_shared<MountedMapping>(environment);
  request.Folder = ProgramFolder(request, *mapping);
  PosixFiles files(mapping);
  PosixFolderReader folderReader(mapping, qt.posting, PosixFolderReader::Lengths::Unknown);
  const auto framesMapping = std::make_shared<MountedMapping>(environment, mapping->DesktopMounts());
  ThreadedFrames frames(std::make_shared<ListedFiles>(framesMapping), qt.posting);
  PosixSettings settings(environment.ConfigHome + "/pixorra/settings");
  DesktopSession session(environment);
  Companion companion({qt.toolkit, files, folderReader, frames, settings, session, SettingsPlace(environment)},
                      request);
  std::unique_ptr<RunningInstance> only;
  if (request.What == Request::Wish::Show) {
    only = OnlyShowOf(environment);
    qt.OnReadable(only->Calls(), [&] {
      if (!only->TakeCalls().empty()) companion.Window.Unload();
    });
  }
  return qt.Run([&] { companion.Start(); });
}

}  // namespace

}  // namespace pixorra

int main(int argc, char** argv) {
  using namespace pixorra;
  TraceIgnoredErrorsIfAsked();
  constexpr int Misused = 2;
  Request request = ReadCommandLine({argv + 1, argv + argc}, Variable("XSCREENSAVER_WINDOW"));
  switch (request.What) {
    case Request::Wish::Help:
      std::fputs(UsageText, stdout);
      return 0;
    case Request::Wish::Version:
      std::puts("pixorra-slideshow " PIXORRA_VERSION);
      return 0;
    case Request::Wish::Misuse:
      std::fprintf(stderr, "pixorra-slideshow: %s\nTry --help.\n", request.Problem.c_str());
      return Misused;
    case Request::Wish::Show:
    case Request::Wish::Saver:
      break;
  }
  request.Folder = FromRoot(request.Folder, WorkingFolder());
  // A window of another program is one of the X server, whatever the session is.
  if (request.HostWindow != 0) setenv("QT_QPA_PLATFORM", "xcb", 1);
  // What is meant for the toolkit below must not be taken from the command line: a folder is no option of its.
  int noArguments = 1;
  return Run(std::move(request), noArguments, argv);
}
