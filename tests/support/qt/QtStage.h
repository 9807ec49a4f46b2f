// Everything that a program needs of its host, with real windows. What the desktop would do beside them (programs of
// other makers, printers, keys of the system) is kept in memory, as on the headless stage.
#pragma once

#include "platform/controls/Toolkit.h"
#include "platform/headless/Failures.h"
#include "platform/headless/HeadlessMemory.h"
#include "platform/headless/HeadlessPrinting.h"
#include "platform/headless/HeadlessRegistry.h"
#include "platform/headless/HeadlessSettings.h"
#include "platform/headless/HeadlessShell.h"
#include "platform/headless/HeadlessVolumes.h"
#include "platform/headless/Script.h"
#include "platform/posix/PosixClock.h"
#include "platform/qt/QtArtwork.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtPosting.h"
#include "platform/qt/QtShipped.h"
#include "tests/support/qt/StagePerson.h"

namespace pixorra {

struct StagePlatform {
  StagePlatform() {
    backend.Attach(toolkit);
    backend.SetErrorHandler([this](int number, const std::string& description) {
      failures.Report("an error that no handler wanted: " + std::to_string(number) + " " + description);
    });
  }
  StagePlatform(const StagePlatform&) = delete;
  StagePlatform& operator=(const StagePlatform&) = delete;

  void Finish() { script.ReportUnmet(); }

  Failures failures;
  PosixClock clock;
  Script script{failures};
  QtBackend backend;
  Toolkit toolkit{backend};
  QtDialogs dialogs{backend};
  HeadlessPrinting printing{script, [] {}};
  QtArtwork artwork{backend.Art()};
  QtClipboard clipboard;
  HeadlessShell shell;
  HeadlessRegistry registry;
  HeadlessSettings settings;
  QtShipped shipped{backend.Art()};
  HeadlessVolumes volumes;
  HeadlessMemory memory;
  QtPosting posting{backend};
  Person person{backend, script, failures};
};

}  // namespace pixorra
