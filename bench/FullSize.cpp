// full_size_bench FOLDER: steps through the folder's photos at full size, in the window, and tells how long it takes
// from a step to the picture: fresh, decoded ahead, and one step right after the other. Beside it the JPEG library's
// bare decode of the same photos, and the reduction to the painted size. Medians in milliseconds; memory in MiB.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "bench/BareDecode.h"
#include "bench/Timing.h"
#include "bench/WindowRun.h"
#include "drop/DragGestures.h"
#include "platform/pixels/Stretch.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewForm.h"
#include "window/DesktopState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

struct Times {
  double Wall = 0;  // milliseconds
  double Cpu = 0;   // of this thread
};

Times Measured(const std::function<void()>& work) {
  const double wall = Now(CLOCK_MONOTONIC), cpu = Now(CLOCK_THREAD_CPUTIME_ID);
  work();
  return {(Now(CLOCK_MONOTONIC) - wall) * 1e3, (Now(CLOCK_THREAD_CPUTIME_ID) - cpu) * 1e3};
}

Times Medians(const std::vector<Times>& times) {
  std::vector<double> wall, cpu;
  for (const Times& one : times) {
    wall.push_back(one.Wall);
    cpu.push_back(one.Cpu);
  }
  return {Median(wall), Median(cpu)};
}

// A figure of this process, in MiB.
double OwnMemory(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == name + ":" && status >> kilobytes) return kilobytes / 1024;
  }
  return -1;
}

void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << 5;
}

class FullSize {
 public:
  FullSize(WindowRun& run, TemporaryDrive& drive) : run_(run), drive_(drive) {}

  int Photos() const { return run_.main.strip.SrcSlotCount; }
  void Open(int slot) {
    Select(slot);
    DisplayFullSizePreview(run_.main, PhotoOf(run_.main.strip, slot));
  }
  // As an arrow key does it: the photo is selected, which shows it in the pane, and then at full size.
  Times Step(int slot) {
    return Measured([&] {
      Select(slot);
      RefreshFullSizePreview(run_.main);
    });
  }
  void Settle() { run_.ahead.Whole().Settle(); }
  Times Bare(int slot) {
    std::ifstream in(drive_.HostPath(PhotoOf(run_.main.strip, slot)), std::ios::binary);
    const std::vector<char> file{std::istreambuf_iterator<char>(in), {}};
    return Measured([&] { DecodeBare(file, 1, rows_); });
  }
  Times Scale(int slot) {
    const Picture photo = run_.host.pictures.Load(PhotoOf(run_.main.strip, slot));
    const Bitmap& shown = PreviewForm::Of(run_.main).Window.Drawing();
    Bitmap target(shown.Width(), shown.Height(), PixelFormat::Bgr24);
    const Bitmap& pixels = photo.Pixels();  // which may have to be decoded first
    return Measured([&] { Stretch(pixels, target, 0, 0, target.Width(), target.Height()); });
  }

 private:
  void Select(int slot) {
    MainForm& main = run_.main;
    SrcThumbnail_DragOver(main, slot, main.strip.SrcThumbnail(slot), DragState::Enter);
    SrcThumbnail_DragDrop(main);
  }

  WindowRun& run_;
  TemporaryDrive& drive_;
  std::vector<unsigned char> rows_;
};

// Far enough apart that none has been decoded ahead.
constexpr int FarStep = 7;

void Print(const char* title, const Times& times) {
  std::printf("%-28s %6.1f (CPU %6.1f)\n", title, times.Wall, times.Cpu);
}

void MeasureSteps(FullSize& full) {
  std::vector<Times> bare, scale, fresh, ready, held;
  for (int slot = 1 + FarStep; slot <= full.Photos(); slot += FarStep) {
    bare.push_back(full.Bare(slot));
    full.Settle();
    fresh.push_back(full.Step(slot));
    full.Settle();
    scale.push_back(full.Scale(slot));
  }
  full.Step(1);
  for (int slot = 2; slot <= full.Photos() && slot < 12; ++slot) {
    full.Settle();
    ready.push_back(full.Step(slot));
  }
  for (int slot = 12; slot <= full.Photos(); ++slot) held.push_back(full.Step(slot));
  Print("bare decode", Medians(bare));
  Print("scale", Medians(scale));
  Print("fresh", Medians(fresh));
  Print("decoded ahead", Medians(ready));
  Print("one right after the other", Medians(held));
  // All in one thread: its own time is what can be compared on a busy machine.
  const double work = 1.25 * Medians(bare).Cpu + Medians(scale).Cpu;
  std::printf("fresh through 1.25 decodes and the scale: %.2f\n", Medians(fresh).Cpu / work);
}

int Measure(int& argc, char** argv) {
  TemporaryDrive drive;
  LinkPhotos(drive, argv[1]);
  WriteBenchState(drive);
  WindowRun run(argc, argv, drive);
  ConnectEvents(run.main);
  StartUp(run.main);
  AwaitStrip(run);
  FullSize full(run, drive);
  ForgetPeak();
  const double before = OwnMemory("VmRSS");
  full.Open(1);
  for (int slot = 2; slot <= full.Photos(); ++slot) {
    full.Step(slot);
    run.qt.toolkit.DoEvents();
  }
  std::printf("memory through %d photos: %.0f above the %.0f before, of which %.0f for what is decoded ahead\n",
              full.Photos(), OwnMemory("VmHWM") - before, before,
              static_cast<double>(run.ahead.Whole().MostHeld()) / (1024 * 1024));
  full.Step(1);
  MeasureSteps(full);
  return 0;
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  if (argc >= 2) return pixorra::Measure(argc, argv);
  std::fprintf(stderr, "full_size_bench FOLDER\n");
  return 2;
}
