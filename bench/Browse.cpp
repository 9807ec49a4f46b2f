// browse_bench [COUNT]: opens a folder of COUNT folders in the browser's tree and a folder of COUNT photos in its list,
// in windows, and tells how long the longest turn of the message loop was, and what it took in all.
#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/Startup.h"
#include "base/Host.h"
#include "bench/Timing.h"
#include "browse/BrowseFolderLocationForm.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/headless/HeadlessMemory.h"
#include "platform/headless/HeadlessRegistry.h"
#include "platform/headless/HeadlessSettings.h"
#include "platform/headless/HeadlessShell.h"
#include "platform/headless/HeadlessVolumes.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFolderReader.h"
#include "platform/qt/QtPlatform.h"
#include "tests/support/TemporaryDrive.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"

namespace pixorra {
namespace {

// What runs between two signs of life of the loop, milliseconds of the thread's own time.
class Turns {
 public:
  Turns() {
    QAbstractEventDispatcher& loop = *QCoreApplication::eventDispatcher();
    QObject::connect(&loop, &QAbstractEventDispatcher::awake, &context_, [this] { Mark(); });
    QObject::connect(&loop, &QAbstractEventDispatcher::aboutToBlock, &context_, [this] { Mark(); });
  }
  double Longest() {
    Mark();
    return std::exchange(longest_, 0);
  }

 private:
  void Mark() {
    const double now = Now(CLOCK_THREAD_CPUTIME_ID);
    longest_ = std::max(longest_, (now - last_) * 1e3);
    last_ = now;
  }
  QObject context_;
  double last_ = Now(CLOCK_THREAD_CPUTIME_ID);
  double longest_ = 0;
};

template <typename Done>
void Measure(Toolkit& toolkit, Turns& turns, const char* title, const std::function<void()>& begin, const Done& done) {
  toolkit.WaitFor(0.5);
  turns.Longest();
  const double cpu = Now(CLOCK_THREAD_CPUTIME_ID);
  const double all = Now(CLOCK_PROCESS_CPUTIME_ID);
  begin();
  toolkit.WaitUntil(done);
  toolkit.WaitFor(0.3);
  std::printf("%-28s longest turn %6.1f ms, %6.1f ms CPU in the window's thread, %6.1f in all\n", title,
              turns.Longest(), (Now(CLOCK_THREAD_CPUTIME_ID) - cpu) * 1e3, (Now(CLOCK_PROCESS_CPUTIME_ID) - all) * 1e3);
}

void MakeFolders(TemporaryDrive& drive, int count) {
  drive.MakeFolder("C:\\Home\\Small");
  for (int i = 0; i < count; ++i) {
    drive.MakeFolder("C:\\Home\\Many\\DSC" + std::to_string(i));
    drive.Write("C:\\Home\\Photos\\DSC" + std::to_string(100000 + i) + ".JPG", "no picture");
  }
}

void Run(MainForm& main, int count) {
  Toolkit& toolkit = main.host.toolkit;
  Turns turns;
  ShowBrowser(main, BrowseMode::Show);
  toolkit.WaitFor(0.5);
  auto& browser = main.modeless.Get<BrowseFolderLocationForm>(main);
  auto& tree = static_cast<TreeView&>(*browser.PicDirTree.Controls().front());
  TreeView::Node& home = *tree.Root().Children().front();
  tree.UserExpanded(home, true);
  toolkit.WaitUntil([&] { return home.Known(); });
  const auto child = [&](std::size_t i) -> TreeView::Node& { return *home.Children()[i]; };
  Measure(
      toolkit, turns, "a tree's node opened", [&] { tree.UserExpanded(child(0), true); },
      [&] { return static_cast<int>(child(0).Children().size()) == count; });
  Measure(
      toolkit, turns, "and read again", [&] { browser.DirTree.ReadAgain(child(0)); },
      [&, before = tree.Root().Stamp()] { return tree.Root().Stamp() != before; });
  Measure(
      toolkit, turns, "a folder's photos listed", [&] { tree.UserSelected(child(1)); },
      [&] { return browser.MyFiles.ListCount() == count; });
  browser.Window.Unload();
  main.Window.Unload();
}

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  using namespace pixorra;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const int count = argc > 1 ? std::atoi(argv[1]) : 10000;
  TemporaryDrive drive;
  MakeFolders(drive, count);
  QtPlatform qt(argc, argv);
  PosixFiles& files = drive.DriveFiles();
  PosixClock clock;
  HeadlessShell shell;
  HeadlessRegistry registry;
  HeadlessSettings settings;
  HeadlessVolumes volumes;
  HeadlessMemory memory;
  NoReadAhead readAhead;
  const auto mapping = std::make_shared<FixedMapping>(PathMapping({{'C', drive.HostRoot(), "Drive"}}, {}, true));
  PosixFolderReader folderReader(mapping, qt.posting);
  CodecPictures pictures(files);
  TurboJpegCodec jpeg(files, nullptr);
  Host host{qt.toolkit, files,      drive.DrivePlaces(), clock,        pictures, qt.artwork,
            jpeg,       qt.dialogs, qt.printing,         qt.clipboard, shell,    registry,
            settings,   readAhead,  qt.shipped,          folderReader, volumes,  memory};
  MainForm main(host);
  ConnectEvents(main);
  return qt.Run([&] {
    StartUp(main);
    qt.posting.Post([&] { Run(main, count); });
  });
}
