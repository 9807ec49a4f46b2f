// keys_bench [COUNT]: a held Right key in film strips of 100, 1,000, 10,000 and COUNT (32,767 by default) photos: what
// a step costs the thread, with what finding the controls to paint costs. The mean has the turns of pages in it, each
// of which reads the folder; the longest step is such a one. The photos are small, so that the strip is measured and
// not the decoder.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/BackgroundLoading.h"
#include "bench/BenchRun.h"
#include "bench/Timing.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Scrolling.h"
#include "platform/controls/Painting.h"
#include "platform/controls/Toolkit.h"
#include "tests/support/TestPictures.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

// More than a page of the strip.
constexpr int Steps = 90;

std::string PhotoPath(int number) {
  char name[16];
  std::snprintf(name, sizeof name, "%05d.bmp", number);
  return std::string("C:\\Strip\\") + name;
}

// Stops short of the strip's end.
void Measure(int slots) {
  TemporaryDrive drive;
  drive.MakeFolder("C:\\Strip");
  // Files that no picture is in yet load fast.
  for (int i = 0; i < slots; ++i) {
    std::FILE* const file = std::fopen(drive.HostPath(PhotoPath(i)).c_str(), "w");
    if (file == nullptr) {
      std::perror("keys_bench");
      std::exit(1);
    }
    std::fclose(file);
  }
  WriteBenchState(drive);
  BenchRun run(drive);
  run.Start();
  FilmStripState& strip = run.main.strip;
  strip.SrcLoadedPath = strip.SrcFileList.Path();
  while (strip.SrcSlotCount < slots) AddSrcSlot(run.main, NextSrcPhoto(strip));
  const std::string photo = BmpOf(PlainBitmap(320, 240, 0x00507090));
  const int first = slots - Steps - 5;
  for (int i = first; i <= slots; ++i) drive.Write(PhotoOf(strip, i), photo);
  Toolkit& toolkit = run.platform.toolkit;
  SelectSlot(strip, first);
  ScrollStripTo(strip, first, 2);
  toolkit.DoEvents();
  double longest = 0, all = 0;
  std::vector<double> steps;
  for (int step = 0; step < Steps; ++step) {
    steps.push_back(CpuOf([&] {
      toolkit.KeyPressed(run.main.Window, key::Right, shift::None);
      toolkit.DoEvents();
      ItemsToPaint(run.main.Window, strip.SrcThumbsWindow.ShownRect());
    }));
    longest = std::max(longest, steps.back());
    all += steps.back();
  }
  if (SelectedSlot(strip) != first + Steps) {
    std::fprintf(stderr, "slot %d is selected and not %d\n", SelectedSlot(strip), first + Steps);
    std::exit(1);
  }
  std::printf("%8d %16.2f %16.2f %16.2f\n", slots, Median(steps), all / Steps, longest);
  std::fflush(stdout);
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  std::printf("%8s %16s %16s %16s\n", "slots", "median, ms CPU", "mean", "longest");
  for (const int slots : {100, 1000, 10000}) pixorra::Measure(slots);
  pixorra::Measure(argc > 1 ? std::atoi(argv[1]) : 32767);
}
