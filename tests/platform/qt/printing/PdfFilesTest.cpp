// The printer that makes PDF files: it asks for the file once for each document, writes over nothing that it was not
// told to, and leaves a whole file or none.
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QProcess>
#include <QPushButton>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include "platform/qt/printing/QtPrinting.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/platform/qt/QtTest.h"
#include "tests/platform/qt/hands/Hands.h"

namespace pixorra {
namespace {

using ::testing::HasSubstr;

Picture NoisePicture(int width, int height) {
  Bitmap noise(width, height, PixelFormat::Bgr24);
  unsigned seed = 1;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < 3 * width; ++x)
      noise.Row(y)[x] = static_cast<std::uint8_t>((seed = seed * 1103515245 + 12345) >> 16);
  }
  return Picture(std::move(noise));
}

class PdfFilesTest : public QtTest {
 protected:
  PdfFilesTest() { printing.SetCurrentPrinter("Save as PDF"); }
  QString Path(const QString& name = "out.pdf") const { return folder.filePath(name); }
  QByteArray Content(const QString& name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  QStringList Left() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot); }
  template <typename Box>
  static Box* Up() {
    return qobject_cast<Box*>(QApplication::activeModalWidget());
  }
  // What the person does in the next dialog that asks for a file; an empty name cancels.
  void TypeName(const QString& name) {
    Hands::Meanwhile([] { return Up<QFileDialog>() != nullptr; },
                     [this, name] {
                       auto* const dialog = Up<QFileDialog>();
                       proposed = QFileInfo(dialog->selectedFiles().value(0)).fileName();
                       if (name.isEmpty()) return dialog->reject();
                       dialog->findChild<QLineEdit*>("fileNameEdit")->setText(Path(name));
                       QMetaObject::invokeMethod(dialog, "accept");
                     });
  }
  // The next box is read and answered.
  void AnswerBox(QMessageBox::StandardButton button) {
    Hands::Meanwhile([] { return Up<QMessageBox>() != nullptr; },
                     [this, button] {
                       asked = Up<QMessageBox>()->text().toStdString();
                       Up<QMessageBox>()->button(button)->click();
                     });
  }
  static RuntimeError ErrorOf(const std::function<void()>& statement) {
    try {
      statement();
    } catch (const RuntimeError& e) {
      return e;
    }
    return RuntimeError(error::None);
  }

  QTemporaryDir folder;
  QtPrinting printing{backend};
  PrintSurface& page = printing.Printer();
  QString proposed;
  std::string asked;
};

TEST_F(PdfFilesTest, FileIsAskedForOnceForEachDocument) {
  page.SetDocumentName("IMG_0042.JPG");
  TypeName("one.pdf");
  page.Print("first page");
  EXPECT_EQ(proposed, "IMG_0042.pdf");
  page.NewPage();
  page.Print("second page");
  page.EndDoc();
  EXPECT_EQ(Left(), QStringList("one.pdf"));
  TypeName("two");
  page.Print("another document");
  page.EndDoc();
  EXPECT_EQ(Left(), QStringList({"one.pdf", "two.pdf"}));
  EXPECT_EQ(QFile::permissions(Path("two.pdf")) & QFileDevice::ReadGroup, QFileDevice::ReadGroup)
      << "it is as readable as the person's other files";
}

TEST_F(PdfFilesTest, CancelIsAPrinterErrorAndLeavesNothing) {
  TypeName("");
  EXPECT_EQ(ErrorOf([&] { page.Print(" "); }).Number(), error::Printer);
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }).Number(), error::None);
  EXPECT_TRUE(Left().isEmpty());
}

TEST_F(PdfFilesTest, FileThatIsThereIsWrittenOverOnlyAfterAYes) {
  QFile old(Path("out.pdf"));
  ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("an older one") > 0);
  old.close();
  TypeName("out");
  AnswerBox(QMessageBox::No);
  Hands::Meanwhile([this] { return !asked.empty() && Up<QFileDialog>() != nullptr; },
                   [] { Up<QFileDialog>()->reject(); });
  EXPECT_EQ(ErrorOf([&] { page.Print("new"); }).Number(), error::Printer);
  EXPECT_THAT(asked, HasSubstr("out.pdf"));
  EXPECT_EQ(Content("out.pdf"), "an older one");
  TypeName("out.pdf");
  AnswerBox(QMessageBox::Yes);
  page.Print("new");
  EXPECT_EQ(Content("out.pdf"), "an older one") << "not before the document's end";
  page.EndDoc();
  EXPECT_TRUE(Content("out.pdf").startsWith("%PDF"));
}

TEST_F(PdfFilesTest, FileThatAppearsMeanwhileIsNotWrittenOver) {
  TypeName("out.pdf");
  page.Print("new");
  QFile other(Path("out.pdf"));
  ASSERT_TRUE(other.open(QIODevice::WriteOnly) && other.write("of somebody else") > 0);
  other.close();
  const RuntimeError error = ErrorOf([&] { page.EndDoc(); });
  EXPECT_EQ(error.Number(), error::FileExists);
  EXPECT_THAT(error.Description(), HasSubstr("out.pdf"));
  EXPECT_EQ(Content("out.pdf"), "of somebody else");
  EXPECT_EQ(Left(), QStringList("out.pdf"));
}

TEST_F(PdfFilesTest, NothingThatHasTheNameAtTheVeryEndIsReplaced) {
  TypeName("out.pdf");
  page.Print("new");
  ASSERT_TRUE(QFile::link(Path("nowhere"), Path("out.pdf")));
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }).Number(), error::FileExists);
  EXPECT_TRUE(QFileInfo(Path("out.pdf")).isSymLink());
  EXPECT_FALSE(QFile::exists(Path("nowhere")));
}

TEST_F(PdfFilesTest, LinkToNowhereIsWrittenToOnlyAfterAYes) {
  ASSERT_TRUE(QFile::link(Path("behind.pdf"), Path("out.pdf")));
  TypeName("out.pdf");
  AnswerBox(QMessageBox::Yes);
  page.Print("new");
  page.EndDoc();
  EXPECT_THAT(asked, HasSubstr("Replace"));
  EXPECT_TRUE(Content("behind.pdf").startsWith("%PDF"));
  EXPECT_TRUE(QFileInfo(Path("out.pdf")).isSymLink());
}

TEST_F(PdfFilesTest, NameThatIsTooLongIsToldAtOnceAndAnotherAskedFor) {
  TypeName(QString(250, 'a'));
  AnswerBox(QMessageBox::Ok);
  Hands::Meanwhile([this] { return !asked.empty() && Up<QFileDialog>() != nullptr; },
                   [this] {
                     Up<QFileDialog>()->findChild<QLineEdit*>("fileNameEdit")->setText(Path(QString(244, 'b')));
                     QMetaObject::invokeMethod(Up<QFileDialog>(), "accept");
                   });
  page.Print("a page");
  EXPECT_THAT(asked, HasSubstr("too long"));
  page.EndDoc();
  EXPECT_EQ(Left(), QStringList(QString(244, 'b') + ".pdf"));
  TypeName(QString(244, 'b'));
  AnswerBox(QMessageBox::Yes);
  page.Print("over it");
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }).Number(), error::None) << "the longest name can be written over";
}

TEST_F(PdfFilesTest, FolderThatCannotBeWrittenIsToldAndAnotherNameAskedFor) {
  TypeName("no/such/out.pdf");
  AnswerBox(QMessageBox::Ok);
  Hands::Meanwhile([this] { return !asked.empty() && Up<QFileDialog>() != nullptr; },
                   [this] {
                     Up<QFileDialog>()->findChild<QLineEdit*>("fileNameEdit")->setText(Path("here.pdf"));
                     QMetaObject::invokeMethod(Up<QFileDialog>(), "accept");
                   });
  page.Print("a page");
  EXPECT_THAT(asked, HasSubstr("No such file"));
  page.EndDoc();
  EXPECT_EQ(Left(), QStringList("here.pdf"));
}

TEST_F(PdfFilesTest, FullDiskIsToldAtTheEndAndLeavesNothing) {
  QDir(folder.path()).mkdir("disk");
  const MemoryDisk disk(Path("disk").toStdString(), "size=256k");
  if (!disk.Mounted()) GTEST_SKIP() << "this machine allows no mounts";
  TypeName("disk/out.pdf");
  ErrorOf([&] { page.PaintPicture(NoisePicture(900, 700), 0, 0, 8000, 6000, 0, 0, 13500, 10500); });
  const RuntimeError error = ErrorOf([&] { page.EndDoc(); });
  EXPECT_EQ(error.Number(), error::DiskFull);
  EXPECT_THAT(error.Description(), HasSubstr("out.pdf"));
  EXPECT_THAT(error.Description(), HasSubstr("No space left"));
  EXPECT_TRUE(QDir(Path("disk")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }).Number(), error::None) << "the document is gone";
}

TEST_F(PdfFilesTest, FullDiskIsToldWithTheNextPageAndGetsItsRoomBack) {
  QDir(folder.path()).mkdir("disk");
  const MemoryDisk disk(Path("disk").toStdString(), "size=256k");
  if (!disk.Mounted()) GTEST_SKIP() << "this machine allows no mounts";
  TypeName("disk/out.pdf");
  page.Print("a page");
  page.NewPage();
  const Picture photo = NoisePicture(900, 700);
  const RuntimeError error = ErrorOf([&] {
    page.PaintPicture(photo, 0, 0, 8000, 6000, 0, 0, 13500, 10500);
    page.NewPage();
  });
  EXPECT_EQ(error.Number(), error::DiskFull);
  EXPECT_THAT(error.Description(), HasSubstr("out.pdf"));
  EXPECT_THAT(error.Description(), HasSubstr("No space left"));
  EXPECT_GT(QStorageInfo(Path("disk")).bytesAvailable(), 200'000) << "the disk has its room back at once";
  EXPECT_EQ(ErrorOf([&] { page.NewPage(); }).Number(), error::DiskFull);
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }).Number(), error::DiskFull) << "it is not made of what had room";
  EXPECT_TRUE(QDir(Path("disk")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(PdfFilesTest, ProposedNameNeedsNoQuotesAndLeadsNowhereElse) {
  const std::vector<std::pair<std::string, QString>> names = {
      {"\"Best\" of June", "'Best' of June.pdf"},
      {"two\nlines\tand a tab\x7f", "two lines and a tab.pdf"},
      {"~root", "root.pdf"},
      {"50%1 of %2 %3", "50%1 of %2 %3.pdf"},
      {std::string(59, 'x') + "\xF0\x9F\x8C\xB2", QString(59, 'x') + ".pdf"}};
  for (const auto& [name, expected] : names) {
    page.SetDocumentName(name);
    TypeName("");
    ErrorOf([&] { page.Print("a page"); });
    EXPECT_EQ(proposed.toStdString(), expected.toStdString());
  }
}

TEST_F(PdfFilesTest, NameThatIsTakenIsProposedWithANumber) {
  page.SetDocumentName("%1 of %3");
  TypeName("%1 of %3.pdf");
  page.Print("a page");
  page.EndDoc();
  TypeName("");
  ErrorOf([&] { page.Print("a page"); });
  EXPECT_EQ(proposed.toStdString(), "%1 of %3 (2).pdf");
}

TEST_F(PdfFilesTest, PaperThatIsTooSmallIsRefused) {
  Hands::Meanwhile([] { return Up<QPageSetupDialog>() != nullptr; },
                   [] {
                     auto* const dialog = Up<QPageSetupDialog>();
                     auto* const sizes = dialog->findChild<QComboBox*>("pageSizeCombo");
                     EXPECT_GE(sizes->findText("Custom"), 0);
                     sizes->setCurrentIndex(sizes->findText("Custom"));
                     dialog->findChild<QComboBox*>("unitCombo")->setCurrentIndex(0);  // millimetres
                     dialog->findChild<QDoubleSpinBox*>("pageWidth")->setValue(12);
                     dialog->findChild<QDoubleSpinBox*>("pageHeight")->setValue(12);
                     dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
                   });
  AnswerBox(QMessageBox::Ok);
  Hands::Meanwhile([this] { return !asked.empty() && Up<QPageSetupDialog>() != nullptr; },
                   [] { Up<QPageSetupDialog>()->reject(); });
  EXPECT_FALSE(printing.ShowProperties("Save as PDF"));
  EXPECT_THAT(asked, HasSubstr("too small"));
  EXPECT_EQ(page.PaperSize(), 9);
  EXPECT_GT(page.ScaleWidth(), 0);
}

// A document of a few KB is all written at its end.
TEST_F(PdfFilesTest, DiskThatIsShortOfAFewBytesKeepsTheOlderFileWhole) {
  Bitmap noise(75, 65, PixelFormat::Bgr24);
  unsigned seed = 1;
  for (int y = 0; y < 65; ++y) {
    for (int x = 0; x < 225; ++x) noise.Row(y)[x] = static_cast<std::uint8_t>((seed = seed * 1103515245 + 12345) >> 16);
  }
  const Picture picture(std::move(noise));
  const auto print = [&] {
    page.PaintPicture(picture, 0, 0, 8000, 6000, 0, 0, 1125, 975);
    page.EndDoc();
  };
  printing.PrintToFile(Path().toStdString());
  print();
  constexpr int Block = 4096;
  const auto blocks = static_cast<int>((QFileInfo(Path()).size() + Block - 1) / Block);
  ASSERT_GE(blocks, 2);
  ASSERT_LE(blocks, 4);
  QDir(folder.path()).mkdir("disk");
  for (int room = 1; room < blocks; ++room) {
    const MemoryDisk disk(Path("disk").toStdString(), ("size=" + std::to_string((room + 1) * Block)).c_str());
    if (!disk.Mounted()) GTEST_SKIP() << "this machine allows no mounts";
    QFile old(Path("disk/out.pdf"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("an older one") > 0);
    old.close();
    printing.PrintToFile(Path("disk/out.pdf").toStdString());
    const RuntimeError error = ErrorOf(print);
    EXPECT_EQ(error.Number(), error::DiskFull) << room;
    EXPECT_THAT(error.Description(), HasSubstr("No space left")) << room;
    EXPECT_EQ(Content("disk/out.pdf"), "an older one") << room;
    EXPECT_EQ(QDir(Path("disk")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
  }
}

TEST_F(PdfFilesTest, SetupChangesThePaperAndCancelChangesNothing) {
  const auto choose = [](const QString& paper, bool accept) {
    Hands::Meanwhile([] { return Up<QPageSetupDialog>() != nullptr; },
                     [paper, accept] {
                       auto* const sizes = Up<QPageSetupDialog>()->findChild<QComboBox*>("pageSizeCombo");
                       ASSERT_NE(sizes, nullptr);
                       sizes->setCurrentIndex(sizes->findText(paper, Qt::MatchStartsWith));
                       const auto button = accept ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel;
                       Up<QPageSetupDialog>()->findChild<QDialogButtonBox*>()->button(button)->click();
                     });
  };
  page.SetOrientation(2);
  choose("A5", false);
  EXPECT_FALSE(printing.ShowProperties("Save as PDF"));
  EXPECT_EQ(page.PaperSize(), 9);
  choose("A5", true);
  EXPECT_TRUE(printing.ShowProperties("Save as PDF"));
  EXPECT_EQ(page.PaperSize(), 11);
  EXPECT_EQ(page.SheetWidth(), 595 * 20) << "the orientation stays";
  EXPECT_EQ(page.SheetHeight(), 420 * 20);
}

TEST_F(PdfFilesTest, PaperIsAskedForWithoutAWordInTheLog) {
  static QStringList said;
  const QtMessageHandler before =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        // The rest is of the platform that has no screen.
        if (message.startsWith("Q") || message.startsWith("of")) said << message;
      });
  Hands::Meanwhile([] { return Up<QPageSetupDialog>() != nullptr; },
                   [] {
                     qWarning("of something else");
                     Up<QPageSetupDialog>()->reject();
                   });
  EXPECT_FALSE(printing.ShowProperties("Save as PDF"));
  qInstallMessageHandler(before);
  EXPECT_EQ(said, QStringList("of something else"));
}

// The language is the process's own from its start.
TEST_F(PdfFilesTest, ToolkitsDialogsSpeakThePersonsLanguage) {
  if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + "/qtbase_de.qm")) {
    GTEST_SKIP() << "the toolkit's words in other languages are not installed";
  }
  if (QLocale::system().language() != QLocale::German) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--gtest_filter=%1.%2").arg(info->test_suite_name(), info->name())});
    ASSERT_TRUE(process.waitForFinished(60000));
    const std::string output = process.readAll().toStdString();
    EXPECT_EQ(process.exitCode(), 0) << output;
    EXPECT_THAT(output, HasSubstr("[  PASSED  ] 1 test"));
    return;
  }
  Hands::Meanwhile([] { return Up<QPageSetupDialog>() != nullptr; },
                   [this] {
                     auto* const buttons = Up<QPageSetupDialog>()->findChild<QDialogButtonBox*>();
                     asked = buttons->button(QDialogButtonBox::Cancel)->text().toStdString();
                     Up<QPageSetupDialog>()->reject();
                   });
  EXPECT_FALSE(printing.ShowProperties("Save as PDF"));
  EXPECT_EQ(asked, "Abbrechen");
}

}  // namespace
}  // namespace pixorra
