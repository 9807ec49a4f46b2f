// drop_bench duplicates PROBE FOLDER: looks in the folder for the file that equals the probe, as a drop does.
// drop_bench copy PHOTO: copies the photo as a drop does, and by `cp -p` and `sync`, in turns.
// Medians, in milliseconds.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "bench/BenchRun.h"
#include "bench/Timing.h"
#include "drop/Duplicates.h"
#include "drop/FileTransfer.h"
#include "window/DesktopState.h"

namespace pixorra {
namespace {

int MeasureDuplicates(const std::string& probe, const std::string& folder) {
  TemporaryDrive drive;
  LinkPhotos(drive, folder);
  WriteBenchState(drive, {"C:\\Strip"});
  drive.MakeFolder("C:\\Probe");
  std::filesystem::copy_file(probe, drive.HostPath("C:\\Probe\\new.jpg"));
  BenchRun run(drive);
  run.Start();
  std::vector<double> wall, own;
  std::string found;
  for (int i = 0; i < 11; ++i) {
    std::string path = "C:\\Probe\\new.jpg";
    const double before = Now(CLOCK_MONOTONIC);
    own.push_back(CpuOf([&] { found = FindDuplicate(run.main.host.files, run.main.desk.DestFolderFiles(1), path); }));
    wall.push_back((Now(CLOCK_MONOTONIC) - before) * 1e3);
  }
  std::printf("duplicates in %s: CPU %.1f ms, wall %.1f ms; found \"%s\" among %d\n", folder.c_str(), Median(own),
              Median(wall), found.c_str(), run.main.desk.DestFolderFiles(1).ListCount());
  return 0;
}

int MeasureCopy(const std::string& photo) {
  TemporaryDrive drive;
  drive.MakeFolder("C:\\From");
  drive.MakeFolder("C:\\To");
  std::filesystem::copy_file(photo, drive.HostPath("C:\\From\\a.jpg"));
  BenchRun run(drive);
  run.Start();
  const std::string to = drive.HostPath("C:\\To\\b.jpg");
  const std::string command = "cp -p '" + drive.HostPath("C:\\From\\a.jpg") + "' '" + to + "' && sync '" + to + "'";
  std::vector<double> own, wall, other;
  for (int i = 0; i < 21; ++i) {
    const double before = Now(CLOCK_MONOTONIC);
    own.push_back(CpuOf([&] { CopyPhotoFile(run.main, "C:\\From\\a.jpg", "C:\\To\\b.jpg", OpenMode::ReadWrite); }));
    wall.push_back((Now(CLOCK_MONOTONIC) - before) * 1e3);
    std::filesystem::remove(to);
    const double beforeOther = Now(CLOCK_MONOTONIC);
    if (std::system(command.c_str()) != 0) return 1;
    other.push_back((Now(CLOCK_MONOTONIC) - beforeOther) * 1e3);
    std::filesystem::remove(to);
  }
  std::printf("copy: CPU %.1f ms, wall %.1f ms; cp -p and sync: wall %.1f ms; ratio %.2f\n", Median(own), Median(wall),
              Median(other), Median(wall) / Median(other));
  return 0;
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  if (argc == 4 && std::strcmp(argv[1], "duplicates") == 0) return pixorra::MeasureDuplicates(argv[2], argv[3]);
  if (argc == 3 && std::strcmp(argv[1], "copy") == 0) return pixorra::MeasureCopy(argv[2]);
  std::fprintf(stderr, "drop_bench duplicates PROBE FOLDER | copy PHOTO\n");
  return 2;
}
