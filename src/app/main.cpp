// Reads the command line, picks the back ends, builds the Host, creates MainForm, runs the loop. Nothing else.
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "app/GivenPath.h"
#include "app/Shutdown.h"
#include "app/StartOptions.h"
#include "app/Startup.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/ThreadedTwins.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/posix/EndSignals.h"
#include "platform/posix/Environment.h"
#include "platform/posix/ErrorTrace.h"
#include "platform/posix/MappingSource.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolderReader.h"
#include "platform/posix/PosixMemory.h"
#include "platform/posix/PosixPlaces.h"
#include "platform/posix/PosixRegistry.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/PosixShell.h"
#include "platform/posix/PosixVolumes.h"
#include "platform/posix/RunningInstance.h"
#include "platform/qt/QtPlatform.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr int Failed = 1;
constexpr int Misused = 2;

// Runs where the process ends by exit() while this lives: the toolkit below does so when its screen has gone.
class AtProcessExit {
 public:
  explicit AtProcessExit(std::function<void()> act) {
    Act() = std::move(act);
    static_cast<void>(std::atexit([] {
      if (const std::function<void()> run = std::exchange(Act(), {})) run();
    }));
  }
  ~AtProcessExit() { Act() = {}; }
  AtProcessExit(const AtProcessExit&) = delete;
  AtProcessExit& operator=(const AtProcessExit&) = delete;

 private:
  // Never destroyed, as the process may end at any moment.
  static std::function<void()>& Act() {
    static auto* const act = new std::function<void()>;
    return *act;
  }
};

std::string WorkingFolder() {
  char* folder = get_current_dir_name();
  const std::string result = folder != nullptr ? folder : "/";
  std::free(folder);
  return result;
}

int Run(RunningInstance& instance, const Environment& environment, const std::string& path, char** argv) {
  // The toolkit below has no options here.
  int noArguments = 1;
  QtPlatform qt(noArguments, argv);
  const EndSignals& signals = EndSignals::OfProgram();
  qt.OnReadable(signals.Descriptor(), [&] {
    if (signals.Take()) qt.toolkit.AskToEnd();
  });
  const auto mapping = std::make_shared<MountedMapping>(environment);
  PosixFiles files(mapping);
  PosixPlaces places(environment, mapping);
  PosixClock clock;
  PosixShell shell(mapping, environment.OwnFolder);
  PosixRegistry registry(environment.DataHome, environment.ConfigHome, mapping, environment.DataFolders);
  PosixFolderReader folderReader(mapping, qt.posting);
  PosixVolumes volumes(environment, mapping);
  PosixMemory memory;
  PosixSettings settings(environment.ConfigHome + "/pixorra/settings");
  const std::unique_ptr<DecodeAhead, EndOrLeave> readAhead(new DecodeAhead(files));
  // The thread has files of its own, and sees all disks below one root: the letters of drives are this thread's.
  ThreadedTwins twins(std::make_shared<PosixFiles>(std::make_shared<FixedMapping>(PathMapping())), qt.posting,
                      [mapping](const std::string& photo) { return PathBelowRoot(mapping->Current(), photo); });
  qt.SharpenThumbnailsBy(&twins);
  CodecPictures pictures(files, readAhead.get());
  TurboJpegCodec jpeg(files, readAhead.get());

  Host host{qt.toolkit,   files, places,   clock,    pictures,   qt.artwork, jpeg,         qt.dialogs, qt.printing,
            qt.clipboard, shell, registry, settings, *readAhead, qt.shipped, folderReader, volumes,    memory};
  MainForm main(host);
  GivenPath given(main);
  // Who calls one that is about to end becomes the next one.
  qt.OnReadable(instance.Calls(), [&] {
    for (const std::string& message : instance.TakeCalls()) {
      qt.ComeToFront();
      if (!message.empty()) given.Give(message);
    }
  });
  qt.OnSessionSaves([&main] { SaveForSession(main); });
  const AtProcessExit withoutScreen([&main] { SaveForSession(main); });
  ConnectEvents(main);
  if (!path.empty()) given.Give(path);
  return qt.Run([&main] { StartUp(main); });
}

// Two programs would write one saved state, and each would lose what the other kept.
int RunOrCallFirst(const std::string& path, char** argv) {
  const Environment environment = Environment::OfProcess();
  RunningInstance instance(environment.ConfigHome + "/pixorra");
  if (!instance.IsFirst()) {
    constexpr double Patience = 10;  // seconds; a long copy takes the first program's time
    const RunningInstance::Outcome outcome = instance.CallFirst(Patience, path);
    if (outcome == RunningInstance::Outcome::Taken) return 0;
    if (outcome == RunningInstance::Outcome::Unanswered) {
      std::fputs("Pixorra is running already, and does not answer.\n", stderr);
      return Failed;
    }
  }
  return Run(instance, environment, path, argv);
}

}  // namespace

}  // namespace pixorra

int main(int argc, char** argv) {
  using namespace pixorra;
  TraceIgnoredErrorsIfAsked();
  const StartOptions options = ReadStartOptions({argv + (argc > 0 ? 1 : 0), argv + argc}, WorkingFolder());
  switch (options.What) {
    case StartOptions::Wish::Help:
      std::fputs(StartUsage, stdout);
      return 0;
    case StartOptions::Wish::Version:
      std::puts("pixorra " PIXORRA_VERSION);
      return 0;
    case StartOptions::Wish::Misuse:
      std::fprintf(stderr, "pixorra: %s (see --help)\n", options.Problem.c_str());
      return Misused;
    case StartOptions::Wish::Start:
      break;
  }
  return RunOrCallFirst(options.Path, argv);
}
