// keys_bench [COUNT]: a held Right key in a film strip of 100, 1,000 and 10,000 photos and of COUNT (32,767 by
// default): what a step costs the thread, with what finding the controls to paint costs and with the turns of pages on
// the way, and what the longest step does. The photos are small, so that the strip is measured and not the decoder.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/BackgroundLoading.h"
#include "bench/BenchRun.h"
#include "bench/Timing.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Scrolling.h"
#include "filmstrip/Views.h"
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
void Measure(BenchRun& run, TemporaryDrive& drive, const std::string& photo) {
  Toolkit& toolkit = run.platform.toolkit;
  FilmStripState& strip = run.main.strip;
  const int slots = strip.SrcSlotCount;
  const int first = slots - Steps - 5;
  ArrangeAll(run.main);
  for (int i = std::max(1, first); i <= slots; ++i) drive.Write(PhotoOf(strip, i), photo);
  SelectSlot(strip, first);
  ScrollStripTo(strip, first, 2);
  toolkit.DoEvents();
  double longest = 0, all = 0;
  for (int step = 0; step < Steps; ++step) {
    const double cost = CpuOf([&] {
      toolkit.KeyPressed(run.main.Window, key::Right, shift::None);
      toolkit.DoEvents();
      ItemsToPaint(run.main.Window, strip.SrcThumbsWindow.ShownRect());
    });
    longest = std::max(longest, cost);
    all += cost;
  }
  if (SelectedSlot(strip) != first + Steps) std::fprintf(stderr, "slot %d is selected\n", SelectedSlot(strip));
  std::printf("%8d %16.2f %16.2f\n", slots, all / Steps, longest);
  std::fflush(stdout);
}

void Run(int count) {
  TemporaryDrive drive;
  drive.MakeFolder("C:\\Strip");
  // Files that no picture is in yet load fast.
  for (int i = 0; i < count; ++i) std::fclose(std::fopen(drive.HostPath(PhotoPath(i)).c_str(), "w"));
  WriteBenchState(drive);
  BenchRun run(drive);
  run.Start();
  FilmStripState& strip = run.main.strip;
  strip.SrcLoadedPath = strip.SrcFileList.Path();
  const std::string photo = BmpOf(PlainBitmap(320, 240, 0x00507090));
  std::printf("%8s %16s %16s\n", "slots", "step, ms CPU", "longest, ms CPU");
  while (strip.SrcSlotCount < strip.SrcFileList.ListCount()) {
    AddSrcSlot(run.main, NextSrcPhoto(strip));
    const int slots = strip.SrcSlotCount;
    if (slots == 100 || slots == 1000 || slots == 10000 || slots == count) Measure(run, drive, photo);
  }
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  pixorra::Run(argc > 1 ? std::atoi(argv[1]) : 32767);
}
