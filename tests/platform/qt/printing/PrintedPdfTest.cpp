// What other programs find in a document: its letters and where they are, and its pictures and how fine they are.
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include "platform/qt/printing/QtPrinting.h"
#include "tests/platform/qt/QtTest.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

using ::testing::SizeIs;

constexpr double Margin = 18;  // of a file's page, points
constexpr double TwipsPerPoint = 20;

struct FoundPicture {
  int Width = 0;
  int Height = 0;
  QString Encoding;
  int DotsPerInch = 0;
};

class PrintedPdfTest : public QtTest {
 protected:
  void SetUp() override {
    for (const char* tool : {"pdftotext", "pdfimages", "pdffonts"}) {
      if (QStandardPaths::findExecutable(QLatin1String(tool)).isEmpty()) GTEST_SKIP() << "there is no " << tool;
    }
    printing.PrintToFile(Path().toStdString());
    page.SetOrientation(2);
    page.SetFontName("Arial");
  }
  QString Path() const { return folder.filePath("out.pdf"); }
  QString Output(const QString& program, QStringList arguments, bool toOutput = false) const {
    QProcess process;
    arguments << Path();
    if (toOutput) arguments << "-";
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
  }
  // Of the first word, points of the sheet.
  QRectF Word(const QString& word) const {
    const QRegularExpression entry(
        QStringLiteral("<word xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\" yMax=\"([0-9.]+)\">%1<")
            .arg(word));
    const auto match = entry.match(Output("pdftotext", {"-bbox"}, true));
    if (!match.hasMatch()) return {};
    return {QPointF(match.captured(1).toDouble(), match.captured(2).toDouble()),
            QPointF(match.captured(3).toDouble(), match.captured(4).toDouble())};
  }
  std::vector<FoundPicture> Pictures() const {
    std::vector<FoundPicture> found;
    for (const QString& line : Output("pdfimages", {"-list"}).split('\n').mid(2)) {
      const QStringList fields = line.simplified().split(' ');
      if (fields.size() > 12) {
        found.push_back({fields[3].toInt(), fields[4].toInt(), fields[8], fields[12].toInt()});
      }
    }
    return found;
  }
  void Paint(const Picture& picture, double width, double height) {
    page.PaintPicture(picture, 1000, 1000, width, height, 0, 0, 15.0 * picture.Width(), 15.0 * picture.Height());
  }

  QTemporaryDir folder;
  QtPrinting printing{backend};
  PrintSurface& page = printing.Printer();
};

// Arial's own figures: H is 1479 of 2048 units wide, i 455.
TEST_F(PrintedPdfTest, TextMeasuresAsArialDoes) {
  page.SetFontSize(12);
  EXPECT_NEAR(page.TextWidth("HHHHHHHHHH"), 10 * 240 * 1479.0 / 2048, 1);
  EXPECT_NEAR(page.TextWidth("iiiiiiiiii"), 10 * 240 * 455.0 / 2048, 1);
  EXPECT_NEAR(page.TextHeight("H"), 240 * (1854 + 434) / 2048.0, 4);
  page.SetFontSize(8);
  EXPECT_NEAR(page.TextWidth("HHHHHHHHHH"), 10 * 160 * 1479.0 / 2048, 1);
  page.SetFontBold(true);
  EXPECT_NEAR(page.TextWidth("iiiiiiiiii"), 10 * 160 * 569.0 / 2048, 1);
}

TEST_F(PrintedPdfTest, TextMeasuresTheSameOnAFineScreen) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=PrintedPdfTest.TextMeasuresAsArialDoes")});
  ASSERT_TRUE(process.waitForFinished(60000));
  const std::string output = process.readAll().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << output;
  EXPECT_THAT(output, ::testing::HasSubstr("[  PASSED  ] 1 test"));
}

TEST_F(PrintedPdfTest, TextIsWhereItWasSetAndAsWideAsItMeasures) {
  page.SetFontSize(12);
  const double width = page.TextWidth("Photograph");
  page.SetCurrentX(4000);
  page.SetCurrentY(3000);
  page.Print("Photograph");
  page.EndDoc();
  const QRectF word = Word("Photograph");
  ASSERT_FALSE(word.isEmpty());
  EXPECT_NEAR(word.left(), Margin + 4000 / TwipsPerPoint, 0.5);
  EXPECT_NEAR(word.width(), width / TwipsPerPoint, 0.5);
  EXPECT_NEAR(word.top(), Margin + 3000 / TwipsPerPoint, 1);
  EXPECT_TRUE(Output("pdffonts", {}).contains("yes")) << "the letters are in the file";
}

TEST_F(PrintedPdfTest, LargePhotoIsReducedToThreeHundredDotsAndIsAJpeg) {
  Paint(Picture(SmoothBitmap(4000, 3000)), 5760, 4320);  // 4 x 3 inches
  page.EndDoc();
  const auto pictures = Pictures();
  ASSERT_THAT(pictures, SizeIs(1));
  EXPECT_EQ(pictures[0].Width, 1200);
  EXPECT_EQ(pictures[0].Height, 900);
  EXPECT_NEAR(pictures[0].DotsPerInch, 300, 1);
  EXPECT_EQ(pictures[0].Encoding, "jpeg");
}

TEST_F(PrintedPdfTest, SmallPhotoKeepsItsPixels) {
  Paint(Picture(SmoothBitmap(400, 300)), 5760, 4320);
  page.EndDoc();
  const auto pictures = Pictures();
  ASSERT_THAT(pictures, SizeIs(1));
  EXPECT_EQ(pictures[0].Width, 400);
  EXPECT_EQ(pictures[0].Height, 300);
}

TEST_F(PrintedPdfTest, PartThatIsCutOffIsNotInTheFile) {
  page.PaintPicture(Picture(SmoothBitmap(4000, 3000)), 1000, 1000, 5760, 4320, 15.0 * 1000, 15.0 * 600, 15.0 * 2000,
                    15.0 * 1500);
  page.PaintPicture(Picture(SmoothBitmap(400, 300)), 1000, 6000, 1440, 1440, 15.0 * 100, 0, 15.0 * 200, 15.0 * 300);
  page.EndDoc();
  const auto pictures = Pictures();
  ASSERT_THAT(pictures, SizeIs(2));
  EXPECT_EQ(pictures[0].Width, 1200);
  EXPECT_EQ(pictures[1].Width, 200);
  EXPECT_EQ(pictures[1].Height, 300);
}

TEST_F(PrintedPdfTest, DrawingKeepsItsColoursExactly) {
  Bitmap drawing(60, 40, PixelFormat::Bgr24);
  drawing.Fill(0x00123456);
  Paint(Picture(std::move(drawing)), 2880, 1920);
  page.EndDoc();
  const auto pictures = Pictures();
  ASSERT_THAT(pictures, SizeIs(1));
  EXPECT_EQ(pictures[0].Encoding, "image") << "not a JPEG";
}

// Noise is the worst of all photos.
TEST_F(PrintedPdfTest, PageOfALargePhotoStaysUnderTwoMegabytes) {
  Bitmap noise(3000, 2000, PixelFormat::Bgr24);
  unsigned seed = 1;
  for (int y = 0; y < noise.Height(); ++y) {
    std::uint8_t* row = noise.Row(y);
    for (int x = 0; x < 3 * noise.Width(); ++x) {
      row[x] = static_cast<std::uint8_t>((seed = seed * 1103515245 + 12345) >> 16);
    }
  }
  page.PaintPicture(Picture(std::move(noise)), 0, 0, page.ScaleWidth(), page.ScaleWidth() * 2 / 3, 0, 0, 45000, 30000);
  page.EndDoc();
  EXPECT_LT(QFile(Path()).size(), 2'000'000);
  EXPECT_GT(QFile(Path()).size(), 500'000);
}

}  // namespace
}  // namespace pixorra
