// strip_bench [COUNT]: a film strip that grows to COUNT photos (32,767 by default): what the next slot costs, what
// finding its photo costs, and what arranging all slots costs, at sizes on the way. The photos are empty files, so that
// nothing is decoded. Medians of the thread's own time.
#include <cstdio>
#include <cstdlib>

#include "app/BackgroundLoading.h"
#include "bench/BenchRun.h"
#include "bench/Timing.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Views.h"
#include "window/FilmStripState.h"

int main(int argc, char** argv) {
  using namespace pixorra;
  const int count = argc > 1 ? std::atoi(argv[1]) : 32767;
  constexpr int Samples = 50;
  TemporaryDrive drive;
  drive.MakeFolder("C:\\Strip");
  for (int i = 0; i < count; ++i) {
    char name[16];
    std::snprintf(name, sizeof name, "%05d.bmp", i);
    std::fclose(std::fopen(drive.HostPath(std::string("C:\\Strip\\") + name).c_str(), "w"));
  }
  WriteBenchState(drive);
  BenchRun run(drive);
  run.Start();
  FilmStripState& strip = run.main.strip;
  strip.SrcLoadedPath = strip.SrcFileList.Path();

  std::printf("%8s %16s %16s %16s\n", "slots", "find, us CPU", "add, us CPU", "arrange, ms CPU");
  std::vector<double> find, add;
  while (strip.SrcSlotCount < strip.SrcFileList.ListCount()) {
    std::string next;
    find.push_back(CpuOf([&] { next = NextSrcPhoto(run.main.strip); }) * 1e3);
    add.push_back(CpuOf([&] { AddSrcSlot(run.main, next); }) * 1e3);
    const int slots = strip.SrcSlotCount;
    if (slots != 100 && slots != 1000 && slots != 10000 && slots != count) continue;
    const std::size_t first = find.size() - Samples;
    std::vector<double> arrange;
    for (int i = 0; i < 7; ++i) arrange.push_back(CpuOf([&] { ArrangeAll(run.main); }));
    std::printf("%8d %16.1f %16.1f %16.2f\n", slots,
                Median({find.begin() + static_cast<std::ptrdiff_t>(first), find.end()}),
                Median({add.begin() + static_cast<std::ptrdiff_t>(first), add.end()}), Median(arrange));
    std::fflush(stdout);
  }
}
