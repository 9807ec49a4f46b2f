// One run of the program in its window, for measures.
#pragma once

#include "app/Startup.h"
#include "bench/BenchRun.h"
#include "platform/posix/PosixClock.h"
#include "platform/qt/QtPlatform.h"
#include "window/FilmStripState.h"

namespace pixorra {

// The program in its window, with files, codecs and a clock as it has them; what the desktop does beside it is left
// out.
struct WindowRun {
  WindowRun(int& argc, char** argv, TemporaryDrive& drive)
      : qt(argc, argv), files(drive.DriveFiles()), places(drive.DrivePlaces()) {}

  QtPlatform qt;
  PosixFiles& files;
  TestPlaces& places;
  PosixClock clock;
  DecodeAhead ahead{files};
  CodecPictures pictures{files, &ahead};
  TurboJpegCodec jpeg{files, &ahead};
  HeadlessShell shell;
  HeadlessRegistry registry;
  HeadlessSettings settings;
  HeadlessVolumes volumes;
  HeadlessMemory memory;
  HeadlessFolderReader folderReader{files, qt.posting};
  Host host{qt.toolkit,   files, places,   clock,    pictures, qt.artwork, jpeg,         qt.dialogs, qt.printing,
            qt.clipboard, shell, registry, settings, ahead,    qt.shipped, folderReader, volumes,    memory};
  MainForm main{host};
};

// Until the strip has all of its thumbnails.
inline void AwaitStrip(WindowRun& run) {
  const FilmStripState& strip = run.main.strip;
  do run.qt.toolkit.WaitFor(0.05);
  while (strip.SrcSlotCount < strip.SrcFileList.ListCount() || strip.SrcSlotCount == 0);
}

}  // namespace pixorra
