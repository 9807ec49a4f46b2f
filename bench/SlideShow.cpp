// slideshow_bench FOLDER SPEED SECONDS: runs the slide show of the folder in its window for so long and tells how long
// photos stood, how smooth the fades were, and what processor time and memory it took. A turn of the loop is all that
// the window's thread does between two sleeps: clock, painting, and passing the pixels on.
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

#include "bench/Timing.h"
#include "platform/codecs/ThreadedFrames.h"
#include "platform/headless/HeadlessSession.h"
#include "platform/headless/HeadlessSettings.h"
#include "platform/posix/ListedFiles.h"
#include "platform/posix/MappingSource.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolderReader.h"
#include "platform/qt/QtPlatform.h"
#include "slideshow/Companion.h"

namespace pixorra {
namespace {

double ProcessCpu() {
  return Now(CLOCK_PROCESS_CPUTIME_ID);
}

// In MiB.
double PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

// What a machine that is itself run by another has had to wait for it, in seconds of all its cores. Some of that is
// counted as the processor time of whoever runs at the moment: a single long turn proves nothing while this grows.
double TakenByHost() {
  double taken = 0;
  if (FILE* const times = std::fopen("/proc/stat", "r")) {
    // The eighth figure: user, nice, system, idle, waiting for disks, interrupts of two kinds, and this.
    if (std::fscanf(times, "cpu %*f %*f %*f %*f %*f %*f %*f %lf", &taken) != 1) taken = 0;
    std::fclose(times);
  }
  return taken / static_cast<double>(sysconf(_SC_CLK_TCK));
}

struct Fade {
  int Paints = 0;
  double LongestGap = 0;  // milliseconds from paint to paint
};

// Watches the loop of the window's thread.
class Meter final : public QObject {
 public:
  explicit Meter(Companion& companion) : companion_(companion) {
    qApp->installEventFilter(this);
    const QAbstractEventDispatcher* loop = QAbstractEventDispatcher::instance();
    connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, [this] { EndTurn(); });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || !watched->isWidgetType() || !fading_) return false;
    const double now = Now(CLOCK_MONOTONIC);
    const double cpu = Now(CLOCK_THREAD_CPUTIME_ID);
    Fade& fade = Fades.back();
    if (fade.Paints++ > 0) {
      fade.LongestGap = std::max(fade.LongestGap, (now - lastPaint_) * 1e3);
      LongestFrameCpu = std::max(LongestFrameCpu, (cpu - lastPaintCpu_) * 1e3);
    }
    lastPaint_ = now;
    lastPaintCpu_ = cpu;
    return false;
  }

  std::vector<double> Stood;  // seconds
  std::vector<Fade> Fades;
  // Milliseconds of this thread's processor time in a fade.
  double LongestTurnCpu = 0;
  double LongestFrameCpu = 0;  // from paint to paint
  double CpuBetween = 0;       // seconds of all threads while a photo stands, from the third one on
  double Between = 0;          // seconds of that

 private:
  void EndTurn() {
    const double now = Now(CLOCK_MONOTONIC);
    const double cpu = Now(CLOCK_THREAD_CPUTIME_ID);
    const bool fading = companion_.Photo.Share() < 1;
    if (fading || fading_) NoteTurn((cpu - sleptCpu_) * 1e3, now);
    sleptCpu_ = cpu;
    if (fading && !fading_) {
      if (standsSince_ > 0) {
        Stood.push_back(now - standsSince_);
        // The first photos are decoded meanwhile in any case.
        if (Stood.size() > 2) CpuBetween += ProcessCpu() - standsCpu_;
        if (Stood.size() > 2) Between += Stood.back();
      }
      Fades.emplace_back();
    }
    if (!fading && fading_) {
      standsSince_ = now;
      standsCpu_ = ProcessCpu();
    }
    fading_ = fading;
  }

  void NoteTurn(double milliseconds, double now) {
    constexpr double Limit = 34;
    LongestTurnCpu = std::max(LongestTurnCpu, milliseconds);
    if (milliseconds > Limit)
      std::printf("a turn of %.1f ms %.2f s after the start, at %s of %zu fades\n", milliseconds, now - started_,
                  fading_ ? "the fade or end" : "the start", Fades.size());
  }

  Companion& companion_;
  double started_ = Now(CLOCK_MONOTONIC);
  double sleptCpu_ = Now(CLOCK_THREAD_CPUTIME_ID);  // ahead of the last sleep
  double standsSince_ = 0;
  double standsCpu_ = 0;
  double lastPaint_ = 0;
  double lastPaintCpu_ = 0;
  bool fading_ = false;
};

void Report(const Meter& meter, int speed, double seconds, double cpu) {
  std::vector<double> gaps, paints;
  for (const Fade& fade : meter.Fades) {
    gaps.push_back(fade.LongestGap);
    paints.push_back(fade.Paints);
  }
  const auto [least, most] = std::minmax_element(meter.Stood.begin(), meter.Stood.end());
  if (meter.Stood.empty()) {
    std::puts("no photo stood its time");
    return;
  }
  std::printf("photos that stood                    %zu\n", meter.Stood.size());
  std::printf("each stood, wanted %d s               %.3f s to %.3f s, median %.3f s\n", speed, *least, *most,
              Median(meter.Stood));
  std::printf("paints in a fade of 0.3 s            median %.0f, fewest %.0f\n", Median(paints),
              *std::min_element(paints.begin(), paints.end()));
  std::printf("longest gap between two paints       %.1f ms, median of the fades %.1f ms\n",
              *std::max_element(gaps.begin(), gaps.end()), Median(gaps));
  std::printf("longest turn of the loop in a fade   %.1f ms of processor time, from paint to paint %.1f ms\n",
              meter.LongestTurnCpu, meter.LongestFrameCpu);
  std::printf("processor time                       %.2f %% of a core over %.0f s\n", 100 * cpu / seconds, seconds);
  std::printf("  while photos stood, from the third %.2f %%\n", 100 * meter.CpuBetween / std::max(1.0, meter.Between));
  std::printf("peak memory                          %.1f MiB\n", PeakMemory());
}

int Run(const std::string& folder, int speed, double seconds) {
  char name[] = "slideshow_bench";
  char* arguments[] = {name, nullptr};
  int count = 1;
  QtPlatform qt(count, arguments);
  const auto mapping = std::make_shared<FixedMapping>(PathMapping());
  PosixFiles files(mapping);
  PosixFolderReader reader(mapping, qt.posting, PosixFolderReader::Lengths::Unknown);
  ThreadedFrames frames(std::make_shared<ListedFiles>(std::make_shared<FixedMapping>(PathMapping())), qt.posting);
  HeadlessSettings settings;
  HeadlessSession session;
  Companion companion({qt.toolkit, files, reader, frames, settings, session},
                      {.What = Request::Wish::Show, .Folder = folder, .Seconds = speed});
  Meter meter(companion);
  const double cpu = ProcessCpu();
  const double taken = TakenByHost();
  companion.Start();
  qt.toolkit.WaitFor(seconds);
  Report(meter, speed, seconds, ProcessCpu() - cpu);
  std::printf("taken by the machine's host          %.2f s\n", TakenByHost() - taken);
  return 0;
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("slideshow_bench FOLDER SPEED SECONDS\n", stderr);
    return 2;
  }
  return pixorra::Run(argv[1], std::atoi(argv[2]), std::atof(argv[3]));
}
