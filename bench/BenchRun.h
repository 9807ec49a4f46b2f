// One run of the program without windows, for measures: on a fresh drive, or with photos of a folder of the host linked
// into it.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/Startup.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/headless/HeadlessFolderReader.h"
#include "platform/headless/HeadlessPlatform.h"
#include "tests/support/TemporaryDrive.h"
#include "window/MainForm.h"

namespace pixorra {

// "C:\Strip" holds the folder's files. They are linked, so the folder has to be on the file system of temporary files.
inline void LinkPhotos(TemporaryDrive& drive, const std::string& hostFolder, std::size_t most = 1000000) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(hostFolder)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  drive.MakeFolder("C:\\Strip");
  for (const auto& file : files) {
    if (most-- == 0) break;
    const std::filesystem::path link = drive.HostPath("C:\\Strip\\" + file.filename().string());
    std::error_code failed;
    std::filesystem::create_hard_link(file, link, failed);
    if (failed) std::filesystem::copy_file(file, link);
  }
}

// A saved state with the factory settings, "C:\Strip" and these folders.
inline void WriteBenchState(TemporaryDrive& drive, const std::vector<std::string>& folders = {}) {
  std::string text = "11730,9090,300,300,0\r\n\"Pixorra - Kestrelia Corp\"\r\n";
  for (const char* line : {"1", "2", "1", "1", "1", "1", "1", "1", "1", "0", "\"\"", "\"C:\\Strip\""}) {
    text += std::string(line) + "\r\n";
  }
  for (std::size_t i = 0; i < 8; ++i) text += "\"" + (i < folders.size() ? folders[i] : std::string()) + "\"\r\n";
  drive.Write("C:\\Windows\\Pixorra.sav", text + "0\r\n");
}

struct BenchRun {
  explicit BenchRun(TemporaryDrive& drive, DecodeAhead* ahead = nullptr)
      : files(drive.DriveFiles()),
        jpeg(files, ahead),
        pictures(files, ahead),
        places(drive.DrivePlaces()),
        readAhead(ahead != nullptr ? static_cast<ReadAhead&>(*ahead) : noReadAhead) {
    platform.failures.OnFailure = [](const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); };
  }
  void Start() {
    ConnectEvents(main);
    StartUp(main);
  }

  PosixFiles& files;
  TurboJpegCodec jpeg;
  CodecPictures pictures;
  TestPlaces& places;
  NoReadAhead noReadAhead;
  ReadAhead& readAhead;
  HeadlessPlatform platform;
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
            platform.volumes,
            platform.memory};
  MainForm main{host};
};

}  // namespace pixorra
