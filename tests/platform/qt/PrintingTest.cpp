// Documents printed to a PDF file, whose pages are read back: their number and size, and what stands on them where.
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "platform/qt/Convert.h"
#include "platform/qt/QtPrinting.h"
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

TEST_F(PrintingTest, NothingCannotBePainted) {
  EXPECT_EQ(ErrorOf([&] { page.PaintPicture(Picture(), 0, 0, 10, 10, 0, 0, 10, 10); }), error::BadPicture);
}

TEST_F(PrintingTest, ADocumentThatCannotBeWrittenIsAPrinterError) {
  printing.PrintToFile(folder.filePath("no/such/folder/out.pdf").toStdString());
  EXPECT_EQ(ErrorOf([&] { page.Print(" "); }), error::Printer);
  page.EndDoc();
}

TEST_F(QtTest, WithoutAPrinterDrawingIsAPrinterErrorAndFiguresAreStillThere) {
  QtPrinting printing(backend);
  if (!printing.PrinterNames().empty()) GTEST_SKIP() << "this machine has a printer";
  PrintSurface& page = printing.Printer();
  page.SetScaleMode(1);
  page.SetOrientation(2);
  EXPECT_GT(page.ScaleWidth(), page.ScaleHeight());
  EXPECT_EQ(ErrorOf([&] { page.Print(" "); }), error::Printer);
  EXPECT_EQ(ErrorOf([&] { page.NewPage(); }), error::Printer);
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }), error::None);
  EXPECT_EQ(printing.CurrentPrinterName(), "");
  EXPECT_FALSE(printing.IsReady("NoSuchPrinter"));
  EXPECT_FALSE(printing.ShowProperties("NoSuchPrinter"));
  EXPECT_EQ(ErrorOf([&] { printing.SetCurrentPrinter("NoSuchPrinter"); }), error::Printer);
}

}  // namespace
}  // namespace pixorra
