#include "tests/support/headless/TestHost.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace pixorra {

TestHost::TestHost(TemporaryDrive& drive, DecodeAhead* ahead)
    : files(drive.DriveFiles()),
      jpeg(files, ahead),
      pictures(files, ahead),
      places(drive.DrivePlaces()),
      readAhead(ahead != nullptr ? static_cast<ReadAhead&>(*ahead) : noReadAhead),
      host{platform.toolkit,
           files,
           places,
           platform.clock,
           pictures,
           platform.artwork,
           jpeg,
           platform.dialogs,
           platform.printing,
           platform.clipboard,
           platform.shell,
           platform.registry,
           platform.settings,
           readAhead,
           platform.shipped,
           folderReader,
           platform.volumes,
           platform.memory} {
  platform.shell.SetFiles(drive.DriveFiles());
  platform.failures.OnFailure = [](const std::string& text) { ADD_FAILURE() << text; };
  if (std::getenv("PIXORRA_EVERY_TICK") != nullptr) platform.toolkit.GetTimers().LeaveNoneOut();
}

TestHost::~TestHost() = default;

}  // namespace pixorra
