// Everything that the program needs of its host, on a fresh drive with real files. Tests of parts of the program take
// this and make those parts; tests of the whole take a ProgramRun (ProgramTest.h).
#pragma once

#include "base/Host.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/headless/HeadlessFolderReader.h"
#include "platform/services/ReadAhead.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

// The stage on which the program is put: without windows, unless a test program says otherwise.
#ifndef PIXORRA_STAGE
#define PIXORRA_STAGE "tests/support/headless/HeadlessStage.h"
#endif
#include PIXORRA_STAGE

namespace pixorra {

// Folders of the program lie in "C:\Program" and "C:\Windows". Each failure of theirs fails the test. With
// PIXORRA_EVERY_TICK in the environment no tick of a timer is left out: all tests must show the same with it and
// without.
class TestHost {
 public:
  // Photos are decoded when they are wanted, where `ahead` is null.
  explicit TestHost(TemporaryDrive& drive, DecodeAhead* ahead = nullptr);
  TestHost(const TestHost&) = delete;
  TestHost& operator=(const TestHost&) = delete;
  ~TestHost();

  FaultyFiles files;
  TurboJpegCodec jpeg;
  CodecPictures pictures;
  TestPlaces& places;
  NoReadAhead noReadAhead;
  ReadAhead& readAhead;
  StagePlatform platform;
  HeadlessFolderReader folderReader{files, platform.posting};
  Host host;
};

}  // namespace pixorra
