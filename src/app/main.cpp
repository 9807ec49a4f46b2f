// Picks the back ends, builds the Host, creates MainForm, runs the loop. Nothing else.
#include <cstdio>
#include <memory>

#include "app/Startup.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/TurboJpegCodec.h"
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

int main(int argc, char** argv) {
  using namespace pixorra;
  TraceIgnoredErrorsIfAsked();
  const Environment environment = Environment::OfProcess();
  // Two programs would write one saved state, and each would lose what the other kept.
  RunningInstance instance(environment.ConfigHome + "/pixorra");
  if (!instance.IsFirst()) {
    constexpr double Patience = 10;  // seconds; a long copy takes the first program's time
    const RunningInstance::Outcome outcome = instance.CallFirst(Patience);
    if (outcome == RunningInstance::Outcome::Taken) return 0;
    if (outcome == RunningInstance::Outcome::Unanswered) {
      std::fputs("Pixorra is running already, and does not answer.\n", stderr);
      return 1;
    }
  }
  QtPlatform qt(argc, argv);
  qt.OnReadable(instance.Calls(), [&] {
    if (instance.TakeCalls()) qt.ComeToFront();
  });
  const auto mapping = std::make_shared<MountedMapping>(environment);
  PosixFiles files(mapping);
  PosixPlaces places(environment, mapping);
  PosixClock clock;
  PosixShell shell(mapping, environment.OwnFolder);
  PosixRegistry registry(environment.DataHome, environment.ConfigHome, mapping);
  PosixFolderReader folderReader(mapping, qt.posting);
  PosixVolumes volumes(environment, mapping);
  PosixMemory memory;
  PosixSettings settings(environment.ConfigHome + "/pixorra/settings");
  const std::unique_ptr<DecodeAhead, EndOrLeave> readAhead(new DecodeAhead(files));
  CodecPictures pictures(files, readAhead.get());
  TurboJpegCodec jpeg(files, readAhead.get());

  Host host{qt.toolkit,   files, places,   clock,    pictures,   qt.artwork, jpeg,         qt.dialogs, qt.printing,
            qt.clipboard, shell, registry, settings, *readAhead, qt.shipped, folderReader, volumes,    memory};
  MainForm main(host);
  ConnectEvents(main);
  return qt.Run([&main] { StartUp(main); });
}
