// Everything that a program needs of its host, without windows. Files, Places, Pictures and the JPEG codec work on real
// files and come from elsewhere.
#pragma once

#include "platform/controls/Toolkit.h"
#include "platform/headless/Failures.h"
#include "platform/headless/HeadlessArtwork.h"
#include "platform/headless/HeadlessBackend.h"
#include "platform/headless/HeadlessClipboard.h"
#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessDialogs.h"
#include "platform/headless/HeadlessMemory.h"
#include "platform/headless/HeadlessPrinting.h"
#include "platform/headless/HeadlessRegistry.h"
#include "platform/headless/HeadlessSettings.h"
#include "platform/headless/HeadlessShell.h"
#include "platform/headless/HeadlessShipped.h"
#include "platform/headless/HeadlessVolumes.h"
#include "platform/headless/Person.h"
#include "platform/headless/Script.h"

namespace pixorra {

struct HeadlessPlatform {
  HeadlessPlatform() { backend.Attach(toolkit); }
  HeadlessPlatform(const HeadlessPlatform&) = delete;
  HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

  // At a test's end: what was expected and never came up is a failure too.
  void Finish() { script.ReportUnmet(); }

  Failures failures;
  HeadlessClock clock;
  Script script{failures};
  HeadlessBackend backend{clock, script, failures};
  Toolkit toolkit{backend};
  HeadlessDialogs dialogs{toolkit, backend, script};
  HeadlessPrinting printing{script, [this] { backend.Stir(); }};
  HeadlessArtwork artwork;
  HeadlessClipboard clipboard;
  HeadlessShell shell;
  HeadlessRegistry registry;
  HeadlessSettings settings;
  HeadlessShipped shipped;
  HeadlessVolumes volumes;
  HeadlessMemory memory;
  Posting& posting = backend;
  Person person{toolkit, backend, dialogs, script, failures};
};

}  // namespace pixorra
