// drop_run_bench PHOTOS [ROUNDS [BEFORE [MOST]]]: drags the whole film strip into a folder, in the window, and copies
// the same photos by `cp -p` with a flush of each file and of its folder, in turns. The folder is open, unless it holds
// so many other photos before. At most so many of the photos are taken. Medians for a photo, in milliseconds, and the
// ratio.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/Startup.h"
#include "bench/BenchRun.h"
#include "bench/Timing.h"
#include "bench/WindowRun.h"
#include "desktop/OpenFolder.h"
#include "drop/DropIntoFolder.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

constexpr int MostRounds = 8;  // a folder of the Desktop for each

struct Times {
  double Wall = 0;  // milliseconds a photo
  double Cpu = 0;
};

template <typename Work>
Times TimesOf(int photos, const Work& work) {
  const double wall = Now(CLOCK_MONOTONIC), cpu = Now(CLOCK_THREAD_CPUTIME_ID);
  work();
  return {(Now(CLOCK_MONOTONIC) - wall) * 1e3 / photos, (Now(CLOCK_THREAD_CPUTIME_ID) - cpu) * 1e3 / photos};
}

void CopyOneByOne(const std::string& from, const std::string& to) {
  const std::string script = to + ".sh";
  FILE* out = std::fopen(script.c_str(), "w");
  std::fprintf(
      out,
      "set -e\nmkdir -p '%s'\nfor file in '%s'/*.[jJ][pP][gG]; do cp -p \"$file\" '%s/'; sync '%s/'\"${file##*/}\"; "
      "sync '%s'; done\n",
      to.c_str(), from.c_str(), to.c_str(), to.c_str(), to.c_str());
  std::fclose(out);
  if (std::system(("bash '" + script + "'").c_str()) != 0) std::exit(1);
}

std::string RoundFolder(int round) {
  return "C:\\To" + std::to_string(round);
}

void AwaitOpenFolder(WindowRun& run) {
  const DesktopState& desk = run.main.desk;
  do run.qt.toolkit.WaitFor(0.05);
  while (desk.DestSlotCount < desk.DestFileList.ListCount());
}

int Measure(int& argc, char** argv) {
  const int rounds = std::min(argc > 2 ? std::atoi(argv[2]) : 3, MostRounds);
  const int before = argc > 3 ? std::atoi(argv[3]) : 0;
  TemporaryDrive drive;
  LinkPhotos(drive, argv[1], argc > 4 ? static_cast<std::size_t>(std::atoi(argv[4])) : 1000000);
  std::vector<std::string> folders;
  for (int round = 1; round <= rounds; ++round) {
    folders.push_back(RoundFolder(round));
    drive.MakeFolder(folders.back());
    for (int i = 0; i < before; ++i) drive.Write(folders.back() + "\\" + std::to_string(i) + ".jpg", "x");
  }
  WriteBenchState(drive, folders);
  WindowRun run(argc, argv, drive);
  ConnectEvents(run.main);
  StartUp(run.main);
  AwaitStrip(run);
  FilmStripState& strip = run.main.strip;
  const int photos = strip.SrcSlotCount;
  std::vector<double> base, wall, cpu;
  for (int round = 1; round <= rounds; ++round) {
    // A view that still loads what was there before would be measured as well.
    Select_a_Folder(run.main, before == 0 ? round : 0);
    if (before == 0) AwaitOpenFolder(run);
    for (int i = 1; i <= photos; ++i) strip.SrcThumbName(i).SetTag("");
    const std::string to = drive.HostPath("C:\\Base" + std::to_string(round));
    base.push_back(TimesOf(photos, [&] { CopyOneByOne(drive.HostPath("C:\\Strip"), to); }).Wall);
    const Times own = TimesOf(photos, [&] { DropOnFolder(run.main, round, strip.AllButton); });
    wall.push_back(own.Wall);
    cpu.push_back(own.Cpu);
    const int arrived = run.main.desk.DestFolderFiles(round).ListCount() - before;
    if (arrived != photos) std::fprintf(stderr, "only %d of %d photos arrived\n", arrived, photos);
  }
  std::printf("%d photos into a folder of %d: %.2f ms a photo (CPU %.2f); cp -p with flushes: %.2f; ratio %.2f\n",
              photos, before, Median(wall), Median(cpu), Median(base), Median(wall) / Median(base));
  return 0;
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  if (argc >= 2) return pixorra::Measure(argc, argv);
  std::fprintf(stderr, "drop_run_bench PHOTOS [ROUNDS [BEFORE [MOST]]]\n");
  return 2;
}
