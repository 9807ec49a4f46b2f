#include "tests/pages/PagesTest.h"

#include <QPageSize>

#include "app/Startup.h"
#include "tests/pages/PrintedFile.h"
#include "window/FilmStripState.h"

namespace pixorra {

namespace {

constexpr double TwipsPerPoint = 20;

}  // namespace

PaperTest::PaperTest(const std::function<std::unique_ptr<Printing>(QtBackend&)>& makePrinting)
    : printing_(makePrinting(run.platform.backend)), host_(MakeHost()), main(host_) {
  ConnectEvents(main);
  StartUp(main);
}

PaperTest::~PaperTest() {
  run.platform.Finish();
}

// The stage's, but with other printers.
Host PaperTest::MakeHost() {
  const Host& host = run.host;
  return {host.toolkit,  host.files,     host.places,  host.clock,        host.pictures, host.artwork,
          host.jpeg,     host.dialogs,   *printing_,   host.clipboard,    host.shell,    host.registry,
          host.settings, host.readAhead, host.shipped, host.folderReader, host.volumes,  host.memory};
}

PagesTest::PagesTest()
    : PaperTest([](QtBackend& backend) { return std::make_unique<FilePrinting>(backend); }),
      printing(static_cast<FilePrinting&>(main.host.printing)) {
  printing.Pdf().FixFile(File());
}

void PagesTest::SetPaper(const QPageSize& size) {
  printing.Pdf().SetPageSize(size);
}

TurnedPaper PagesTest::Paper() {
  PrintSurface& printer = printing.Printer();
  printer.SetOrientation(2);
  TurnedPaper paper;
  paper.ScaleWidth = printer.ScaleWidth();
  paper.ScaleHeight = printer.ScaleHeight();
  paper.Width = printer.SheetWidth() / TwipsPerPoint;
  paper.Height = printer.SheetHeight() / TwipsPerPoint;
  paper.MarginX = (printer.SheetWidth() - paper.ScaleWidth) / 2 / TwipsPerPoint;
  paper.MarginY = (printer.SheetHeight() - paper.ScaleHeight) / 2 / TwipsPerPoint;
  printer.SetOrientation(1);
  return paper;
}

void PaperTest::ShowStrip(const std::string& folder) {
  main.strip.NoFilmStrip = false;
  main.strip.SrcFileList.SetPath(folder);
  main.strip.SrcFileList.Refresh();
  for (int turns = 0; turns < 1000 && main.strip.SrcSlotCount < main.strip.SrcFileList.ListCount(); ++turns)
    run.platform.person.Wait(0.02);
}

}  // namespace pixorra
