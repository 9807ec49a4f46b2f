// The program on a fresh drive with real files, without windows: started, used and ended as often as a test likes.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "app/Startup.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/headless/HeadlessFolderReader.h"
#include "platform/services/ReadAhead.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "window/MainForm.h"

// The stage on which the program is put: without windows, unless a test program says otherwise.
#ifndef PIXORRA_STAGE
#define PIXORRA_STAGE "tests/support/headless/Stage.h"
#endif
#include PIXORRA_STAGE
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {

// One run of the program. Folders of the program lie in "C:\Program" and "C:\Windows".
class ProgramRun {
 public:
  // Photos are decoded when they are wanted, where `ahead` is null.
  explicit ProgramRun(TemporaryDrive& drive, DecodeAhead* ahead = nullptr)
      : files(drive.DriveFiles()),
        jpeg(files, ahead),
        pictures(files),
        places(drive.DrivePlaces()),
        readAhead(ahead != nullptr ? static_cast<ReadAhead&>(*ahead) : noReadAhead) {
    platform.surprises.OnSurprise = [](const std::string& text) { ADD_FAILURE() << text; };
    platform.shell.SetFiles(drive.DriveFiles());
  }
  ~ProgramRun() { platform.Finish(); }

  // The whole start-up, as the program itself does it.
  void Start() {
    ConnectEvents(main);
    StartUp(main);
  }
  // Closes the window as its user would.
  void Close() { person.Close(main.Window); }
  void Wait(double seconds) { person.Wait(seconds); }
  // Lets the background loading come to its end.
  void LoadAll() {
    for (int turns = 0; turns < 100000; ++turns) {
      const bool strip = !main.strip.NoFilmStrip && main.strip.SrcSlotCount < main.strip.SrcFileList.ListCount();
      const bool view = main.desk.OpenFolderIndex != 0 && main.desk.DestSlotCount < main.desk.DestFileList.ListCount();
      if (!strip && !view) return;
      Wait(0.04);
    }
    ADD_FAILURE() << "the thumbnails never came to an end";
  }

  FaultyFiles files;
  TurboJpegCodec jpeg;
  CodecPictures pictures;
  TestPlaces& places;
  NoReadAhead noReadAhead;
  ReadAhead& readAhead;
  StagePlatform platform;
  HeadlessFolderReader folderReader{files, platform.posting};
  Host host{platform.toolkit,
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
            platform.volumes};
  MainForm main{host};
  Person& person = platform.person;
};

class ProgramTest : public ::testing::Test {
 protected:
  // Ends the run before, if there is one, and begins the next one; it is not started.
  ProgramRun& NewRun() {
    run_.reset();
    run_ = std::make_unique<ProgramRun>(drive, decodeAhead);
    return *run_;
  }
  ProgramRun& Started() {
    ProgramRun& run = NewRun();
    run.Start();
    return run;
  }
  void EndRun() { run_.reset(); }

  // A saved state file: line by line, each ended by CR LF.
  void WriteSavedState(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    drive.Write("C:\\Windows\\Pixorra.sav", bytes);
  }
  // The lines of a saved state with the factory settings, this film strip and these folders.
  static std::vector<std::string> StateLines(const std::string& filmStrip, const std::vector<std::string>& folders) {
    std::vector<std::string> lines = {"11730,9090,300,300,0",
                                      "\"Pixorra - Kestrelia Corp\"",
                                      "1",
                                      "2",
                                      "1",
                                      "1",
                                      "1",
                                      "1",
                                      "1",
                                      "1",
                                      "1",
                                      "0",
                                      "\"\"",
                                      "\"" + filmStrip + "\""};
    for (std::size_t i = 0; i < 8; ++i) lines.push_back(i < folders.size() ? "\"" + folders[i] + "\"" : "\"\"");
    lines.push_back("0");
    return lines;
  }

  TemporaryDrive drive;
  DecodeAhead* decodeAhead = nullptr;  // for the runs that begin from here on

 private:
  std::unique_ptr<ProgramRun> run_;
};

}  // namespace pixorra
