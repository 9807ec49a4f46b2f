// Proof sheets as they lie on paper: the printed file is rendered and measured, and held against the sums.
#include <QImage>
#include <cmath>

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/ScrollBar.h"
#include "platform/runtime/Numbers.h"
#include "printing/ProofSheets.h"
#include "tests/pages/PagesTest.h"
#include "tests/pages/PrintedFile.h"
#include "tests/support/TestPictures.h"
#include "window/CoreState.h"

namespace pixorra {
namespace {

constexpr double Point = 1;
const QColor Ink(0xB0, 0x20, 0x30);
constexpr Colour InkOfPhotos = 0x003020B0;

// Where the sums put things, in points of the sheet.
struct ProofSums {
  ProofSums(const TurnedPaper& sheet, int photosAcross) : paper(sheet), across(photosAcross) {
    cellHeight = CLng((sheet.ScaleHeight - 700) / photosAcross);
    cellWidth = CLng(80.0 / 60 * cellHeight);
  }
  QRectF Picture(int photo) const {
    return At(photo % across * cellWidth + 600, photo / across * cellHeight + 600, cellWidth - 600, cellHeight - 600);
  }
  // The middle of its upper edge.
  QPointF Caption(int photo) const {
    const QRectF picture = Picture(photo);
    return {picture.center().x(), picture.bottom() + 110 * Twip};
  }
  QRectF At(double x, double y, double width, double height) const {
    return {x * Twip + paper.MarginX, y * Twip + paper.MarginY, width * Twip, height * Twip};
  }

  TurnedPaper paper;
  int across;
  int cellHeight = 0;
  int cellWidth = 0;
};

class ProofPagesTest : public PagesTest {
 protected:
  static constexpr const char* Strip = "C:\\Strip";

  static std::string NameOf(int photo) { return "p" + std::to_string(1001 + photo) + ".jpg"; }
  void MakePhotos(int count, int width, int height) {
    drive.MakeFolder(Strip);
    const std::string photo = JpegOf(PlainBitmap(width, height, InkOfPhotos));
    for (int i = 0; i < count; ++i) drive.Write(std::string(Strip) + "\\" + NameOf(i), photo);
    ShowStrip(Strip);
  }
  void Print(int across, int page = 0) {
    run.platform.person.ExpectForm("PrintProofForm", [=](auto& hand, Form& form) {
      hand.MoveBar(Find<ScrollBar>(form, "ProofSizeBar"), across);
      hand.Choose(Find<ComboBox>(form, "PagesBox"), page);
      hand.Click(Find<CommandButton>(form, "PrintButton"));
    });
    PrintProofSheets(main, BatchSource::FilmStrip);
  }
  static void ExpectNear(const QRectF& shown, const QRectF& wanted, const std::string& what) {
    EXPECT_NEAR(shown.left(), wanted.left(), Point) << what;
    EXPECT_NEAR(shown.top(), wanted.top(), Point) << what;
    EXPECT_NEAR(shown.right(), wanted.right(), Point) << what;
    EXPECT_NEAR(shown.bottom(), wanted.bottom(), Point) << what;
  }
  // `count` photos on that page of the file, the first of them being the `first` of all; what runs over the sheet's
  // right edge is cut there.
  static void ExpectCells(const PrintedFile& file, int page, const ProofSums& sums, int first, int count) {
    const QImage shown = file.Rendered(page);
    const std::vector<PrintedWord> words = file.WordsOf(page);
    const double right = sums.paper.Width - sums.paper.MarginX;
    for (int i = 0; i < count; ++i) {
      const std::string name = NameOf(first + i);
      QRectF picture = sums.Picture(i);
      if (picture.left() + 8 > right) continue;
      picture.setRight(std::min(picture.right(), right));
      ExpectNear(ExtentOf(shown, picture.center(), Ink), picture, name);
      const QRectF caption = PlaceOf(words, name, name);
      if (sums.Picture(i).right() > right) continue;
      ASSERT_FALSE(caption.isNull()) << name;
      EXPECT_NEAR(caption.center().x(), sums.Caption(i).x(), Point) << name;
      EXPECT_NEAR(caption.top(), sums.Caption(i).y(), Point) << name;
    }
  }
  void ExpectHeader(const PrintedFile& file, int page, const TurnedPaper& paper, const std::string& pages) {
    const std::vector<PrintedWord> words = file.WordsOf(page);
    const QRectF folder = PlaceOf(words, Shown(Strip), Shown(Strip));
    EXPECT_NEAR(folder.left(), paper.MarginX + 400 * Twip, Point);
    EXPECT_NEAR(folder.top(), paper.MarginY + 150 * Twip, Point);
    const QRectF number = PlaceOf(words, pages.substr(0, pages.find(' ')), "pages");
    EXPECT_NEAR(number.right(), paper.Width - paper.MarginX - 400 * Twip, Point);
    EXPECT_NEAR(number.top(), paper.MarginY + 150 * Twip, Point);
    const QRectF company = PlaceOf(words, "Printed", "Kestrelia");
    EXPECT_NEAR(company.right(), paper.Width - paper.MarginX - 400 * Twip, Point);
    EXPECT_NEAR(company.top(), paper.Height - paper.MarginY - 300 * Twip, Point);
  }
  std::string Shown(const std::string& path) { return main.host.files.ShownPath(path); }
};

class ProofGridTest : public ProofPagesTest, public ::testing::WithParamInterface<MeasuredPaper> {};

TEST_P(ProofGridTest, PicturesNamesAndHeaderLieWhereTheSumsPutThem) {
  if (!PrintedFile::CanBeRead()) GTEST_SKIP() << "no program here reads PDF files";
  main.core.CompanyNameLabel.SetCaption("Kestrelia");
  MakePhotos(37, 320, 240);
  SetPaper(GetParam().Size);
  const TurnedPaper paper = Paper();
  for (int across = 2; across <= 6; ++across) {
    SCOPED_TRACE(across);
    Print(across);
    const PrintedFile file(File());
    const int perPage = across * across;
    const int pages = 36 / perPage + 1;
    ASSERT_EQ(file.PageCount(), pages);
    const ProofSums sums(paper, across);
    for (const int page : {1, pages}) {
      EXPECT_NEAR(file.SizeOf(page).width(), paper.Width, Point);
      EXPECT_NEAR(file.SizeOf(page).height(), paper.Height, Point);
      const int first = (page - 1) * perPage;
      ExpectCells(file, page, sums, first, std::min(perPage, 37 - first));
      ExpectHeader(file, page, paper, std::to_string(page) + " of");
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Papers, ProofGridTest, ::testing::ValuesIn(MeasuredPapers),
                         [](const auto& paper) { return std::string(paper.param.Name); });

TEST_F(ProofPagesTest, PastTheLastPhotoThePageIsWhite) {
  if (!PrintedFile::CanBeRead()) GTEST_SKIP() << "no program here reads PDF files";
  MakePhotos(10, 320, 240);
  Print(3, 2);
  const PrintedFile file(File());
  ASSERT_EQ(file.PageCount(), 1);
  const ProofSums sums(Paper(), 3);
  ExpectCells(file, 1, sums, 9, 1);
  const QImage shown = file.Rendered(1);
  for (int i = 1; i < 9; ++i) {
    const QRect cell =
        QRectF(sums.Picture(i).topLeft() * PrintedFile::Scale, sums.Picture(i).bottomRight() * PrintedFile::Scale)
            .toRect();
    for (int y = cell.top(); y < cell.bottom(); ++y) {
      for (int x = cell.left(); x < cell.right(); ++x) ASSERT_EQ(shown.pixel(x, y), qRgb(255, 255, 255)) << i;
    }
  }
}

TEST_F(ProofPagesTest, APhotoOnItsEndStandsInTheMiddleOfItsCell) {
  if (!PrintedFile::CanBeRead()) GTEST_SKIP() << "no program here reads PDF files";
  MakePhotos(4, 300, 400);
  // Larger than any cell is rendered: an upright one that is smaller would give its shape to all.
  drive.Write(std::string(Strip) + "\\" + NameOf(0), JpegOf(PlainBitmap(2200, 1650, InkOfPhotos)));
  for (const int across : {2, 6}) {
    Print(across);
    const PrintedFile file(File());
    const ProofSums sums(Paper(), across);
    const QImage shown = file.Rendered(1);
    for (int i = 1; i < 4; ++i) {
      QRectF wanted = sums.Picture(i);
      const double width = wanted.width() * 9 / 16;
      wanted = QRectF(wanted.center().x() - width / 2, wanted.top(), width, wanted.height());
      ExpectNear(ExtentOf(shown, wanted.center(), Ink), wanted, NameOf(i));
    }
  }
}

TEST_F(ProofPagesTest, OnePhotoAndNoneMore) {
  if (!PrintedFile::CanBeRead()) GTEST_SKIP() << "no program here reads PDF files";
  MakePhotos(1, 64, 48);
  Print(2);
  const PrintedFile file(File());
  ASSERT_EQ(file.PageCount(), 1);
  ExpectCells(file, 1, ProofSums(Paper(), 2), 0, 1);
}

}  // namespace
}  // namespace pixorra
