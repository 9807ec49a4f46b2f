// delete_tree_bench [FOLDERS FILES [ROUNDS]]: deletes a tree of so many folders with so many files each (1000 of 100
// where not said) as the program does, and by `rm -rf`, in turns, so many times (2). Medians of the wall time, in
// milliseconds. The trees are made in TEST_TMPDIR.
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "bench/Timing.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

bool MakeTree(const std::string& top, int folders, int files) {
  if (mkdir(top.c_str(), 0700) != 0) return false;
  for (int i = 0; i < folders; ++i) {
    const std::string folder = top + "/folder" + std::to_string(i);
    if (mkdir(folder.c_str(), 0700) != 0) return false;
    for (int j = 0; j < files; ++j) {
      const int fd =
          open((folder + "/IMG_" + std::to_string(j) + ".JPG").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
      if (fd < 0) return false;
      close(fd);
    }
  }
  // What was just written must not be written out while one of the two is measured.
  sync();
  return true;
}

template <typename Work>
double WallOf(const Work& work) {
  const double before = Now(CLOCK_MONOTONIC);
  work();
  return (Now(CLOCK_MONOTONIC) - before) * 1e3;
}

int Measure(int folders, int files, int rounds) {
  TemporaryDrive drive;
  const std::string host = drive.HostPath("C:\\tree");
  std::vector<double> own, other;
  for (int i = 0; i < rounds; ++i) {
    if (!MakeTree(host, folders, files)) return 1;
    own.push_back(
        WallOf([&] { drive.DriveFiles().RemoveTree("C:\\tree", drive.DriveFiles().IdentityOf("C:\\tree")); }));
    if (!MakeTree(host, folders, files)) return 1;
    int result = 0;
    other.push_back(WallOf([&] { result = std::system(("rm -rf '" + host + "'").c_str()); }));
    if (result != 0) return 1;
  }
  std::printf("%d folders of %d files: %.0f ms; rm -rf: %.0f ms; ratio %.2f\n", folders, files, Median(own),
              Median(other), Median(own) / Median(other));
  return 0;
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  constexpr int Rounds = 2;
  if (argc == 1) return pixorra::Measure(1000, 100, Rounds);
  if (argc == 3) return pixorra::Measure(std::atoi(argv[1]), std::atoi(argv[2]), Rounds);
  if (argc == 4) return pixorra::Measure(std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]));
  std::fprintf(stderr, "delete_tree_bench [FOLDERS FILES [ROUNDS]]\n");
  return 2;
}
