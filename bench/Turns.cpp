// turns_bench FOLDER [COUNT]: loads the folder as a film strip in real time and tells how long the turns of the message
// loop took, and how many turns passed between one slot and the next. "plain" decodes each photo in its turn.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

#include "bench/BenchRun.h"
#include "bench/Timing.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

void Load(const char* title, TemporaryDrive& drive, DecodeAhead* ahead) {
  BenchRun run(drive, ahead);
  run.Start();
  Toolkit& toolkit = run.platform.toolkit;
  FilmStripState& strip = run.main.strip;
  std::vector<double> wall, own, gaps;
  const double begin = Now(CLOCK_MONOTONIC);
  double lastSlot = begin;
  double clock = 0;
  while (strip.SrcSlotCount < strip.SrcFileList.ListCount()) {
    // The virtual clock follows the real one; what came due meanwhile runs once, as in a message loop.
    clock = std::max(clock, Now(CLOCK_MONOTONIC) - begin);
    run.platform.clock.AdvanceTo(clock);
    const std::optional<double> due = toolkit.NextDeadline();
    if (due && *due > run.platform.clock.Seconds() + 1e-6) {
      std::this_thread::sleep_for(std::chrono::duration<double>(*due - run.platform.clock.Seconds()));
      continue;
    }
    const int before = strip.SrcSlotCount;
    const double wallBefore = Now(CLOCK_MONOTONIC), ownBefore = Now(CLOCK_THREAD_CPUTIME_ID);
    toolkit.RunDueTimers();
    wall.push_back((Now(CLOCK_MONOTONIC) - wallBefore) * 1e3);
    own.push_back((Now(CLOCK_THREAD_CPUTIME_ID) - ownBefore) * 1e3);
    if (strip.SrcSlotCount == before) continue;
    gaps.push_back((Now(CLOCK_MONOTONIC) - lastSlot) * 1e3);
    lastSlot = Now(CLOCK_MONOTONIC);
    if (gaps.size() <= 4)
      std::printf("  slot %zu: turn of %.1f ms, %.1f ms CPU\n", gaps.size(), wall.back(), own.back());
  }
  std::sort(own.begin(), own.end());
  std::sort(wall.begin(), wall.end());
  std::printf(
      "%-6s %d slots in %.2f s; longest turn %.1f ms (CPU %.1f ms), next longest %.1f (%.1f); "
      "median gap of slots %.1f ms\n",
      title, strip.SrcSlotCount, lastSlot - begin, wall.back(), own.back(), wall[wall.size() - 2], own[own.size() - 2],
      Median(gaps));
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  using namespace pixorra;
  if (argc < 2) {
    std::fprintf(stderr, "turns_bench FOLDER [COUNT]\n");
    return 2;
  }
  TemporaryDrive drive;
  LinkPhotos(drive, argv[1], argc > 2 ? static_cast<std::size_t>(std::atoi(argv[2])) : 1000000);
  WriteBenchState(drive);
  Load("plain", drive, nullptr);
  drive.Remove("C:\\Strip\\Thumbnails.tmp");
  {
    DecodeAhead ahead(drive.DriveFiles());
    Load("ahead", drive, &ahead);
  }
  Load("cached", drive, nullptr);
}
