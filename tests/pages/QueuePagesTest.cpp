// The program's own print jobs through a real print server, and what is left of one that is stopped.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <cups/cups.h>

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/ScrollBar.h"
#include "platform/qt/printing/QtPrinting.h"
#include "printing/PrintPhotos.h"
#include "printing/ProofSheets.h"
#include "tests/pages/PagesTest.h"
#include "tests/pages/PrintedFile.h"
#include "tests/platform/qt/printing/PrintServer.h"
#include "tests/support/TestPictures.h"
#include "utility/ConfirmForm.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

constexpr Colour Violet = 0x00A03060;

// What the program holds open in the folder of scratch files.
QStringList ScratchFiles() {
  QStringList held;
  for (const QFileInfo& each : QDir("/proc/self/fd").entryInfoList(QDir::Files | QDir::System)) {
    if (each.symLinkTarget().startsWith("/var/tmp/")) held << each.symLinkTarget();
  }
  return held;
}

int PicturesIn(const QString& path) {
  QProcess process;
  process.start("pdfimages", {"-list", path});
  process.waitForFinished();
  return static_cast<int>(QString::fromUtf8(process.readAllStandardOutput()).trimmed().split('\n').size()) - 2;
}

// Print jobs of a film strip of five photos.
template <typename Paper>
class JobsOf : public Paper {
 protected:
  using Paper::drive;
  using Paper::main;
  using Paper::run;

  void MakeStrip() {
    drive.MakeFolder("C:\\Strip");
    for (const char* name : {"a", "b", "c", "d", "e"})
      drive.Write(std::string("C:\\Strip\\") + name + ".jpg", JpegOf(PlainBitmap(320, 240, Violet)));
    this->ShowStrip("C:\\Strip");
  }
  // Before the photo is read whose job begins now.
  void BeforeReading(const char* photo, const std::function<void()>& act) {
    run.files.BeforeNth(FileCall::OpenToRead, 1, act, photo);
  }
  void InDialog(const std::function<void()>& act = {}) {
    run.platform.person.ExpectForm("PrintPhotoForm", [=](auto& hand, Form& form) {
      if (act) act();
      hand.Click(PaperTest::Find<CommandButton>(form, "PrintButton"));
    });
  }
  void PrintPhoto(const std::function<void()>& inDialog = {}) {
    run.platform.person.Click(main.strip.SrcThumbnail(1));
    InDialog(inDialog);
    PrintSelectedPhoto(main);
  }
  void PrintProofs(const std::function<void()>& inDialog = {}) {
    run.platform.person.ExpectForm("PrintProofForm", [=](auto& hand, Form& form) {
      hand.MoveBar(PaperTest::Find<ScrollBar>(form, "ProofSizeBar"), 2);
      hand.Choose(PaperTest::Find<ComboBox>(form, "PagesBox"), 0);
      if (inDialog) inDialog();
      hand.Click(PaperTest::Find<CommandButton>(form, "PrintButton"));
    });
    PrintProofSheets(main, BatchSource::FilmStrip);
  }
  // A batch of five, with a Yes at the question as soon as the second page is made.
  void PrintBatchAndStopAfterPageTwo() {
    const auto stop = [this] {
      run.platform.person.ExpectBox("Abort Printing", "Do you want to STOP printing?", BoxAnswer::Yes);
      run.platform.person.ClickAt(ConfirmForm::Of(main).Window, 10, 10);
    };
    InDialog([=, this] { BeforeReading("b.jpg", [=] { QTimer::singleShot(0, qApp, stop); }); });
    PrintPhotoBatch(main, BatchSource::FilmStrip);
  }
  void ExpectTidy() {
    EXPECT_EQ(ScratchFiles(), QStringList());
    EXPECT_FALSE(main.core.PrintJobRuns);
    EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
    EXPECT_EQ(run.platform.person.Window("ConfirmForm"), nullptr);
  }
};

using StoppedFileTest = JobsOf<PagesTest>;

TEST_F(StoppedFileTest, StoppedAtTheQuestionAfterPageTwoOfFiveTheFileHasThePagesMadeAndNothingElseIsLeft) {
  if (!PrintedFile::CanBeRead()) GTEST_SKIP() << "no program here reads PDF files";
  MakeStrip();
  PrintBatchAndStopAfterPageTwo();
  EXPECT_EQ(PrintedFile(File()).PageCount(), 3) << "the third was begun when the question came up";
  EXPECT_EQ(PicturesIn(File()), 3);
  const QDir folder = QFileInfo(File()).dir();
  EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList("printed.pdf"));
  ExpectTidy();
}

TEST_F(StoppedFileTest, WhereTheProgramIsClosedAtPageTwoOfFiveThereIsNoFile) {
  MakeStrip();
  InDialog([this] {
    BeforeReading("b.jpg", [this] { QTimer::singleShot(0, qApp, [this] { run.platform.person.Close(main.Window); }); });
  });
  PrintPhotoBatch(main, BatchSource::FilmStrip);
  EXPECT_TRUE(main.host.toolkit.Ended());
  EXPECT_TRUE(QFileInfo(File()).dir().isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

class QueuePaper : public PaperTest {
 protected:
  QueuePaper() : PaperTest([](QtBackend& backend) { return std::make_unique<QtPrinting>(backend); }) {}
  void SetUp() override {
    if (!server.WhyNot().empty()) GTEST_SKIP() << server.WhyNot();
    if (!PrintedFile::CanBeRead()) GTEST_SKIP() << "no program here reads PDF files";
  }

  PrintServer server;
};

class QueuePagesTest : public JobsOf<QueuePaper> {
 protected:
  void ExpectArrived(int job, int pages, int pictures) {
    ASSERT_EQ(server.PagesOf(job), pages);
    EXPECT_EQ(PicturesIn(server.PathOf(job)), pictures);
    const QImage page = PrintedFile(server.PathOf(job)).Rendered(1);
    // The middle of a photo on its own, and of the first one of a sheet.
    const QPoint at = pictures == 1 ? page.rect().center() : QPoint(page.width() / 5, page.height() / 4);
    const QColor seen(page.pixel(at));
    EXPECT_NEAR(seen.red(), 0x60, 12);
    EXPECT_NEAR(seen.green(), 0x30, 12);
    EXPECT_NEAR(seen.blue(), 0xA0, 12);
  }
};

TEST_F(QueuePagesTest, OnePhotoAndOneProofSheetArriveWithTheirPagesAndPictures) {
  MakeStrip();
  PrintPhoto();
  ExpectArrived(1, 1, 1);
  EXPECT_EQ(server.Title(1), "a.jpg");
  PrintProofs();
  ExpectArrived(2, 2, 5);
  EXPECT_EQ(server.Title(2), "Proof sheets of Strip");
  EXPECT_TRUE(server.BecomesIdle());
  ExpectTidy();
}

TEST_F(QueuePagesTest, StoppedPrinterAndDeletedPrinterAreToldByBothJobs) {
  MakeStrip();
  auto& person = run.platform.person;
  server.Administer("cupsdisable", {"-r", "Paper jam", "Office"});
  person.ExpectBox("Can't Print", "Error 57: The printer \"Office\" is stopped: Paper jam");
  PrintPhoto();
  person.ExpectBox("Can't Print", "Error 57: The printer \"Office\" is stopped: Paper jam");
  PrintProofs();
  ExpectTidy();
  server.Administer("cupsenable", {"Office"});
  const auto remove = [this] { BeforeReading("a.jpg", [this] { server.Administer("lpadmin", {"-x", "Office"}); }); };
  person.ExpectBox("", " 482  The printer \"Office\" is not there any more");
  PrintPhoto(remove);
  EXPECT_FALSE(main.core.PrintJobRuns);
  server.AddOffice();
  person.ExpectBox("Can't Print Proof Sheets",
                   "The proof sheets could not be printed.\nThe printer \"Office\" is not there any more");
  PrintProofs(remove);
  ExpectTidy();
  EXPECT_TRUE(server.HasNothing());
}

TEST_F(QueuePagesTest, StoppedAtTheQuestionAfterPageTwoOfFiveThePagesMadeArriveAndNoJobIsLeft) {
  MakeStrip();
  PrintBatchAndStopAfterPageTwo();
  EXPECT_EQ(server.PagesOf(1), 3) << "the third was begun when the question came up";
  EXPECT_TRUE(server.BecomesIdle());
  ExpectTidy();
}

}  // namespace
}  // namespace pixorra
