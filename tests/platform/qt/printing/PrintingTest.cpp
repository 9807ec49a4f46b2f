// Documents printed to a PDF file, whose pages are read back: their number and size, and what stands on them where.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "platform/qt/Convert.h"
#include "platform/qt/printing/QtPrinting.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

// A4 in points, as the file's boxes tell it.
constexpr double A4Short = 595;
constexpr double A4Long = 842;

int ErrorOf(const std::function<void()>& statement) {
  return ErrorsIgnored(statement);
}

class PrintingTest : public QtTest {
 protected:
  PrintingTest() { printing.PrintToFile(Path().toStdString()); }
  QString Path() const { return folder.filePath("out.pdf"); }
  QByteArray File() const {
    QFile file(Path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  // All files of the folder.
  QStringList Left() const {
    return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }
  // Width and height of each page, in points.
  std::vector<QSizeF> Pages() const {
    std::vector<QSizeF> pages;
    const QRegularExpression box(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"));
    auto matches = box.globalMatch(QString::fromLatin1(File()));
    while (matches.hasNext()) {
      const auto match = matches.next();
      pages.emplace_back(match.captured(1).toDouble(), match.captured(2).toDouble());
    }
    return pages;
  }

  QTemporaryDir folder;
  QtPrinting printing{backend};
  PrintSurface& page = printing.Printer();
};

TEST_F(PrintingTest, FiguresTurnWithTheOrientation) {
  page.SetOrientation(1);
  const double width = page.ScaleWidth();
  const double height = page.ScaleHeight();
  EXPECT_GT(height, width);
  EXPECT_NEAR(page.SheetWidth(), A4Short * 20, 20);
  EXPECT_NEAR(page.SheetHeight(), A4Long * 20, 20);
  EXPECT_LT(width, page.SheetWidth());
  page.SetOrientation(2);
  EXPECT_DOUBLE_EQ(page.ScaleWidth(), height);
  EXPECT_DOUBLE_EQ(page.ScaleHeight(), width);
  EXPECT_EQ(page.PaperSize(), 9);
  EXPECT_GT(page.TwipsPerPixelX(), 0);
  EXPECT_LE(page.TwipsPerPixelX(), 15);
}

TEST_F(PrintingTest, ALandscapeDocumentHasLandscapePagesAndNoEmptyLastOne) {
  page.SetOrientation(2);
  page.Print(" ");
  page.NewPage();
  page.Print("second");
  page.NewPage();
  page.EndDoc();
  const auto pages = Pages();
  ASSERT_EQ(pages.size(), 2U);
  for (const QSizeF& size : pages) {
    EXPECT_NEAR(size.width(), A4Long, 1);
    EXPECT_NEAR(size.height(), A4Short, 1);
  }
}

TEST_F(PrintingTest, EachDocumentBeginsAnew) {
  page.SetOrientation(2);
  page.Print("first");
  page.EndDoc();
  EXPECT_EQ(Pages().size(), 1U);
  page.SetOrientation(1);
  page.Print("second");
  page.EndDoc();
  const auto pages = Pages();
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_NEAR(pages[0].width(), A4Short, 1);
}

TEST_F(PrintingTest, EndingWithoutADocumentDoesNothing) {
  page.EndDoc();
  EXPECT_FALSE(QFile::exists(Path()));
}

TEST_F(PrintingTest, TextExtentsAreTwipsAndPrintingMovesDownALine) {
  page.SetFontName("Arial");
  page.SetFontSize(12);
  const double height = page.TextHeight("X");
  EXPECT_GE(height, 12 * 20);
  EXPECT_LE(height, 12 * 20 * 1.6);
  const double width = page.TextWidth("Photograph");
  page.SetFontSize(24);
  EXPECT_NEAR(page.TextWidth("Photograph"), width * 2, width * 0.05);
  page.SetFontBold(true);
  EXPECT_GT(page.TextWidth("Photograph"), width * 2);
}

TEST_F(PrintingTest, PartOfAPictureIsStretchedAndABoxDrawn) {
  Bitmap bitmap(20, 10, PixelFormat::Bgr24);
  bitmap.Fill(0x0000FF);
  const Picture picture(std::move(bitmap));
  page.SetOrientation(2);
  page.SetForeColor(0);
  page.SetDrawWidth(3);
  page.SetFillStyle(1);
  page.Box(1440, 1440, 2880, 2880, 0);
  page.PaintPicture(picture, 1440, 1440, 1440, 1440, 75, 0, 150, 150);
  page.EndDoc();
  EXPECT_EQ(Pages().size(), 1U);
  EXPECT_TRUE(File().contains("/Subtype /Image"));
}

// A page of 72 dots to the inch: 20 twips a pixel, the printable area beginning 18 pixels from the edges.
TEST_F(PrintingTest, WhatIsPrintedStandsWhereItShould) {
  if (QStandardPaths::findExecutable("gs").isEmpty()) GTEST_SKIP() << "no program here renders pages";
  Bitmap halves(20, 10, PixelFormat::Bgr24);
  halves.Fill(0x0000FF);
  for (int y = 0; y < 10; ++y) {
    for (int x = 10; x < 20; ++x) halves.Row(y)[3 * x + 1] = 0xFF;
  }
  page.SetOrientation(2);
  page.SetDrawWidth(static_cast<int>(110 / page.TwipsPerPixelX()));
  page.SetFillStyle(1);
  page.Box(2000, 1000, 6000, 4000, 0x00FF00);
  page.PaintPicture(Picture(std::move(halves)), 8000, 1000, 4000, 3000, 150, 0, 150, 150);
  page.SetFontName("Arial");
  page.SetFontSize(20);
  page.SetCurrentX(2000);
  page.SetCurrentY(8000);
  page.Print("HHHHHHHH");
  page.EndDoc();
  const QString image = folder.filePath("page.png");
  ASSERT_EQ(QProcess::execute(
                "gs", {"-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=png16m", "-r72", "-sOutputFile=" + image, Path()}),
            0);
  const QImage shown(image);
  ASSERT_EQ(shown.size(), QSize(842, 595));
  const auto at = [&](double x, double y) { return shown.pixelColor(18 + qRound(x / 20), 18 + qRound(y / 20)); };
  EXPECT_EQ(at(2000, 2500), QColor(Qt::green));
  EXPECT_EQ(at(6000, 2500), QColor(Qt::green));
  EXPECT_EQ(at(4000, 4000), QColor(Qt::green));
  EXPECT_EQ(at(4000, 2500), QColor(Qt::white)) << "a box is hollow";
  EXPECT_EQ(at(1800, 2500), QColor(Qt::white));
  EXPECT_EQ(at(7900, 2500), QColor(Qt::white));
  EXPECT_NEAR(at(8200, 2500).green(), 255, 12) << "the picture's right half alone is printed";
  EXPECT_NEAR(at(11800, 3800).red(), 255, 12);
  EXPECT_EQ(at(12200, 2500), QColor(Qt::white));
  int inked = 0;
  for (double x = 2000; x < 4000; x += 20) inked += at(x, 8250).lightness() < 128 ? 1 : 0;
  EXPECT_GT(inked, 10) << "the text's upper edge is where it was set";
  for (double x = 2000; x < 4000; x += 20) EXPECT_EQ(at(x, 7900), QColor(Qt::white));
}

TEST_F(PrintingTest, NothingCannotBePainted) {
  EXPECT_EQ(ErrorOf([&] { page.PaintPicture(Picture(), 0, 0, 10, 10, 0, 0, 10, 10); }), error::BadPicture);
}

TEST_F(PrintingTest, ADroppedDocumentLeavesNothing) {
  page.Print("a page");
  page.NewPage();
  page.Print("another");
  page.KillDoc();
  page.EndDoc();
  EXPECT_TRUE(Left().isEmpty()) << Left().join(' ').toStdString();
}

TEST_F(PrintingTest, TheProgramsEndDropsWhatWasNotEnded) {
  {
    QtPrinting brief(backend);
    brief.PrintToFile(Path().toStdString());
    brief.Printer().Print("never ended");
  }
  EXPECT_TRUE(Left().isEmpty()) << Left().join(' ').toStdString();
}

TEST_F(PrintingTest, UntilItsEndADocumentIsNotThereAndAnEarlierOneStays) {
  page.Print("first");
  EXPECT_FALSE(QFile::exists(Path()));
  page.EndDoc();
  const QByteArray first = File();
  EXPECT_TRUE(first.endsWith("%%EOF\n"));
  page.Print("second");
  page.NewPage();
  EXPECT_EQ(File(), first);
  page.KillDoc();
  EXPECT_EQ(File(), first);
  EXPECT_EQ(Left(), QStringList("out.pdf"));
}

TEST_F(PrintingTest, ADocumentOfBlanksAloneDoesNotComeOut) {
  page.Print(" ");
  page.EndDoc();
  EXPECT_TRUE(Left().isEmpty()) << Left().join(' ').toStdString();
}

TEST_F(PrintingTest, ADocumentHasItsTitle) {
  page.SetDocumentName("Photos of June");
  page.Print("a page");
  page.EndDoc();
  QByteArray title = "/Title (\xfe\xff";
  for (const char letter : std::string("Photos of June")) title.append('\0').append(letter);
  EXPECT_TRUE(File().contains(title));
}

TEST_F(PrintingTest, ADocumentThatCannotBeWrittenIsAPrinterError) {
  printing.PrintToFile(folder.filePath("no/such/folder/out.pdf").toStdString());
  EXPECT_EQ(ErrorOf([&] { page.Print(" "); }), error::Printer);
  page.EndDoc();
}

TEST_F(QtTest, APrinterThatMakesPdfFilesIsAlwaysThere) {
  QtPrinting printing(backend);
  EXPECT_EQ(printing.PrinterNames().back(), "Save as PDF");
  EXPECT_TRUE(printing.IsReady("Save as PDF"));
  printing.SetCurrentPrinter("Save as PDF");
  PrintSurface& page = printing.Printer();
  EXPECT_EQ(page.DeviceName(), "Save as PDF");
  EXPECT_EQ(page.PaperSize(), 9) << "the paper of this country";
  page.SetOrientation(2);
  EXPECT_GT(page.ScaleWidth(), page.ScaleHeight());
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }), error::None);
  EXPECT_FALSE(printing.IsReady("NoSuchPrinter"));
  EXPECT_FALSE(printing.ShowProperties("NoSuchPrinter"));
  EXPECT_EQ(ErrorOf([&] { printing.SetCurrentPrinter("NoSuchPrinter"); }), error::Printer);
}

}  // namespace
}  // namespace pixorra
