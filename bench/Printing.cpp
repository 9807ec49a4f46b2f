// printing_bench sheet FOLDER [RUNS]: one proof sheet of 36 photos as a PDF file, beside what Qt alone takes for the
// reduced decodes and the writing of such a page.
// printing_bench batch FOLDER: all photos of the folder, one a page: peak memory and bytes a page.
#include <QFileInfo>
#include <QFontMetrics>
#include <QImageReader>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "bench/Timing.h"
#include "bench/WindowRun.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/ScrollBar.h"
#include "printing/PrintPhotos.h"
#include "printing/ProofSheets.h"

namespace pixorra {
namespace {

constexpr int Across = 6;
constexpr int SheetPhotos = Across * Across;

struct Cost {
  double Cpu = 0;  // ms, of all threads
  double Wall = 0;
};

template <typename Work>
Cost CostOf(const Work& work) {
  const double cpu = Now(CLOCK_PROCESS_CPUTIME_ID);
  const double wall = Now(CLOCK_MONOTONIC);
  work();
  return {(Now(CLOCK_PROCESS_CPUTIME_ID) - cpu) * 1e3, (Now(CLOCK_MONOTONIC) - wall) * 1e3};
}

// A grid of photos, each decoded as large as its cell, with its name under it.
void WritePlainSheet(const QString& path, const QStringList& photos) {
  QPdfWriter writer(path);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageOrientation(QPageLayout::Landscape);
  writer.setResolution(300);
  QPainter page(&writer);
  const int wide = writer.width() / Across;
  const int high = writer.height() / Across;
  const int text = page.fontMetrics().height();
  for (int i = 0; i < photos.size(); ++i) {
    const QRect cell(i % Across * wide + 20, i / Across * high + 20, wide - 40, high - 40 - text);
    QImageReader reader(photos[i]);
    const QSize size = reader.size().scaled(cell.size(), Qt::KeepAspectRatio);
    reader.setScaledSize(size);
    const QImage photo = reader.read();
    QRect at(QPoint(), size);
    at.moveCenter(cell.center());
    page.drawImage(at, photo);
    page.drawText(QRect(cell.left(), cell.bottom(), cell.width(), text), Qt::AlignCenter,
                  QFileInfo(photos[i]).fileName());
  }
}

// Presses Print in the dialog of that name, as soon as it is up; sets when that was.
class Answer {
 public:
  Answer(Toolkit& toolkit, std::string name) : toolkit_(toolkit), name_(std::move(name)) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(20);
  }
  double Cpu = 0;  // seconds of the process, as the next
  double Wall = 0;

 private:
  void Look() {
    for (Form* form : toolkit_.Forms()) {
      if (form->Name() != name_ || !form->Visible()) continue;
      timer_.stop();
      CommandButton* print = nullptr;
      for (Control* control : form->Controls()) {
        if (control->Name() == "ProofSizeBar") static_cast<ScrollBar*>(control)->UserMovedTo(Across);
        if (control->Name() == "PrintButton") print = static_cast<CommandButton*>(control);
      }
      Cpu = Now(CLOCK_PROCESS_CPUTIME_ID);
      Wall = Now(CLOCK_MONOTONIC);
      if (print != nullptr) print->UserClicked();
      return;
    }
  }
  Toolkit& toolkit_;
  std::string name_;
  QTimer timer_;
};

void BeginStrip(WindowRun& run, TemporaryDrive& drive, const std::string& folder, std::size_t most) {
  LinkPhotos(drive, folder, most);
  WriteBenchState(drive);
  ConnectEvents(run.main);
  StartUp(run.main);
  AwaitStrip(run);
  run.qt.toolkit.WaitFor(0.5);
}

double BytesOf(const QString& path) {
  return static_cast<double>(QFileInfo(path).size());
}

int MeasureSheet(int argc, char** argv) {
  const std::string folder = argv[2];
  const int runs = argc > 3 ? std::atoi(argv[3]) : 5;
  TemporaryDrive drive;
  WindowRun run(argc, argv, drive);
  BeginStrip(run, drive, folder, SheetPhotos);
  const QString host = QString::fromStdString(drive.HostRoot());
  const QString printed = host + "/sheet.pdf";
  const QString plain = host + "/plain.pdf";
  run.qt.PrintToFile(printed.toStdString());
  QStringList photos;
  const FileListBox& list = run.main.strip.SrcFileList;
  for (int i = 0; i < list.ListCount(); ++i) photos << host + "/Strip/" + QString::fromStdString(list.List(i));
  std::vector<double> ours, theirs, walls, plainWalls;
  for (int i = 0; i < runs; ++i) {
    const Cost alone = CostOf([&] { WritePlainSheet(plain, photos); });
    theirs.push_back(alone.Cpu);
    plainWalls.push_back(alone.Wall);
    const Answer answer(run.qt.toolkit, "PrintProofForm");
    PrintProofSheets(run.main, BatchSource::FilmStrip);
    ours.push_back((Now(CLOCK_PROCESS_CPUTIME_ID) - answer.Cpu) * 1e3);
    walls.push_back((Now(CLOCK_MONOTONIC) - answer.Wall) * 1e3);
  }
  std::printf("%d photos, six across: %.0f ms CPU (%.0f ms passed), %.0f bytes\n", list.ListCount(), Median(ours),
              Median(walls), BytesOf(printed));
  std::printf("reduced decodes and Qt's writing alone: %.0f ms CPU (%.0f ms passed), %.0f bytes; ratio %.2f\n",
              Median(theirs), Median(plainWalls), BytesOf(plain), Median(ours) / Median(theirs));
  run.main.Window.Unload();
  return 0;
}

// MiB; the most since the last call, of what is in memory.
double PeakMemory() {
  double peak = 0;
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) peak = std::atof(line.c_str() + 6) / 1024;
  }
  std::ofstream("/proc/self/clear_refs") << "5";
  return peak;
}

int MeasureBatch(int argc, char** argv) {
  TemporaryDrive drive;
  WindowRun run(argc, argv, drive);
  BeginStrip(run, drive, argv[2], 1000);
  const QString printed = QString::fromStdString(drive.HostRoot()) + "/batch.pdf";
  run.qt.PrintToFile(printed.toStdString());
  const Answer answer(run.qt.toolkit, "PrintPhotoForm");
  PeakMemory();
  PrintPhotoBatch(run.main, BatchSource::FilmStrip);
  const int count = run.main.strip.SrcFileList.ListCount();
  std::printf("%d photos, one a page: peak %.0f MiB, %.0f bytes a page, %.0f ms CPU a page\n", count, PeakMemory(),
              BytesOf(printed) / count, (Now(CLOCK_PROCESS_CPUTIME_ID) - answer.Cpu) * 1e3 / count);
  run.main.Window.Unload();
  return 0;
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const std::string_view what = argc > 2 ? argv[1] : "";
  if (what == "sheet") return pixorra::MeasureSheet(argc, argv);
  if (what == "batch") return pixorra::MeasureBatch(argc, argv);
  std::fprintf(stderr, "printing_bench sheet FOLDER [RUNS] | batch FOLDER\n");
  return 2;
}
