// Photos as they lie on paper, one a page: the printed file is rendered and measured, and held against the sums.
#include <QImage>
#include <algorithm>
#include <cmath>
#include <ostream>
#include <tuple>
#include <utility>

#include "platform/controls/Buttons.h"
#include "platform/controls/ScrollBar.h"
#include "platform/runtime/Numbers.h"
#include "printing/PrintPhotos.h"
#include "tests/pages/PagesTest.h"
#include "tests/pages/PrintedFile.h"
#include "tests/support/TestPictures.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

constexpr double Near = 1;  // points
constexpr double HalfOutline = 55 * Twip;
const QColor Ground(0xB0, 0x20, 0x30);
const QColor Band(0x20, 0x30, 0xC0);

struct PhotoShape {
  const char* Name;
  int Width;
  int Height;
};

void PrintTo(const PhotoShape& shape, std::ostream* out) {
  *out << shape.Name;
}

// Where the sums put a photo, in points of the sheet.
struct PhotoPlace {
  PhotoPlace(const TurnedPaper& paper, const PhotoShape& photo, double zoom) {
    const double ratio = photo.Width / static_cast<double>(photo.Height);
    w = CLng(ratio < 1 ? paper.ScaleHeight * zoom * ratio : paper.ScaleWidth * zoom);
    h = CLng(ratio < 1 ? paper.ScaleHeight * zoom : paper.ScaleWidth * zoom / ratio);
    x = CLng(ratio < 1 ? (paper.ScaleWidth - paper.ScaleHeight * zoom * ratio) / 2
                       : (paper.ScaleWidth - paper.ScaleWidth * zoom) / 2);
    y = CLng(ratio < 1 ? (paper.ScaleHeight - paper.ScaleHeight * zoom) / 2
                       : (paper.ScaleHeight - paper.ScaleWidth * zoom / ratio) / 2);
    partWidth = photo.Width * 15.0;
    partHeight = photo.Height * 15.0;
    const double whole = partHeight;
    if (x < 0) {
      partX = std::floor(-x / w * partWidth);
      partWidth -= 2 * partX;
      w += 2 * x;
    }
    if (y < 0) {
      partY = std::floor(-y / h * partWidth);  // by the width, as it is
      partHeight -= 2 * partY;
      h += 2 * y;
    }
    const QRectF area(paper.MarginX, paper.MarginY, paper.ScaleWidth * Twip, paper.ScaleHeight * Twip);
    At = QRectF(x * Twip + paper.MarginX, y * Twip + paper.MarginY, w * Twip, h * Twip);
    Seen = At.intersected(area);
    const auto down = [&](double part) { return At.top() + (part * whole - partY) / partHeight * At.height(); };
    BandTop = std::max(down(0.4), Seen.top());
    BandBottom = std::min(down(0.6), Seen.bottom());
  }

  QRectF At;    // as far as it is painted
  QRectF Seen;  // as far as it is on paper
  double BandTop = 0;
  double BandBottom = 0;

 private:
  double x = 0, y = 0, w = 0, h = 0, partX = 0, partY = 0, partWidth = 0, partHeight = 0;
};

class PhotoPagesTest : public PagesTest, public ::testing::WithParamInterface<std::tuple<MeasuredPaper, PhotoShape>> {
 protected:
  static constexpr const char* Strip = "C:\\Strip";

  // A band lies across the photo, from four tenths of its height to six.
  static Bitmap BandedPhoto(const PhotoShape& shape) {
    Bitmap photo = PlainBitmap(shape.Width, shape.Height, 0x003020B0);
    const Bitmap band = PlainBitmap(shape.Width, 1, 0x00C03020);
    for (int y = shape.Height * 4 / 10; y < shape.Height * 6 / 10; ++y)
      std::copy_n(band.Row(0), 3 * shape.Width, photo.Row(y));
    return photo;
  }
  void Print(int percent, bool info) {
    run.platform.person.Click(main.strip.SrcThumbnail(1));
    run.platform.person.ExpectForm("PrintPhotoForm", [=](auto& hand, Form& form) {
      hand.MoveBar(Find<ScrollBar>(form, "ZoomFactorBar"), percent);
      auto& header = Find<CheckBox>(form, "PrintHeaderCheckbox");
      if (header.Enabled() && (header.Value() == 1) != info) hand.Click(header);
      hand.Click(Find<CommandButton>(form, "PrintButton"));
    });
    PrintSelectedPhoto(main);
  }
  static void ExpectPicture(const QImage& page, const PhotoPlace& place) {
    // Beside the band, above or below it, wherever more of the photo's ground is seen.
    const double above = place.BandTop - place.Seen.top();
    const double below = place.Seen.bottom() - place.BandBottom;
    const double y = above > below ? place.Seen.top() + above / 2 : place.BandBottom + below / 2;
    if (std::max(above, below) > 2) {
      const QRectF ground = ExtentOf(page, {place.Seen.center().x(), y}, Ground);
      EXPECT_NEAR(ground.left(), place.Seen.left(), Near);
      EXPECT_NEAR(ground.right(), place.Seen.right(), Near);
      const bool isAbove = above > below;
      EXPECT_NEAR(isAbove ? ground.top() : ground.bottom(), isAbove ? place.Seen.top() : place.Seen.bottom(), Near);
    }
    if (place.BandBottom - place.BandTop < 2) return;
    const QRectF band = ExtentOf(page, {place.Seen.center().x(), (place.BandTop + place.BandBottom) / 2}, Band);
    EXPECT_NEAR(band.left(), place.Seen.left(), Near);
    EXPECT_NEAR(band.right(), place.Seen.right(), Near);
    EXPECT_NEAR(band.top(), place.BandTop, Near);
    EXPECT_NEAR(band.bottom(), place.BandBottom, Near);
  }
  static void ExpectOutline(const QImage& page, const QRectF& at, bool there) {
    const QColor wanted = there ? Qt::black : Qt::white;
    const QRectF left = ExtentOf(page, {at.left() - HalfOutline / 2, at.center().y()}, wanted);
    const QRectF top = ExtentOf(page, {at.center().x(), at.top() - HalfOutline / 2}, wanted);
    EXPECT_NEAR(left.right(), at.left(), Near);
    EXPECT_NEAR(top.bottom(), at.top(), Near);
    if (!there) return;
    EXPECT_NEAR(left.left(), at.left() - HalfOutline, Near);
    EXPECT_NEAR(left.top(), at.top() - HalfOutline, Near);
    EXPECT_NEAR(left.bottom(), at.bottom() + HalfOutline, Near);
    EXPECT_NEAR(top.top(), at.top() - HalfOutline, Near);
    EXPECT_NEAR(top.left(), at.left() - HalfOutline, Near);
    EXPECT_NEAR(top.right(), at.right() + HalfOutline, Near);
  }
  static void ExpectLines(const PrintedFile& file, const PhotoShape& photo, const TurnedPaper& paper,
                          const QRectF& at) {
    constexpr double BlankOfInfo = 0.278 * 12;  // points; the line begins with one
    const std::vector<PrintedWord> words = file.WordsOf(1);
    const QRectF info = PlaceOf(words, "W" + std::to_string(photo.Width), "");
    ASSERT_FALSE(info.isNull());
    EXPECT_NEAR(info.bottom(), at.top() - 110 * Twip, Near);
    const bool isWhole = info.width() < paper.Width - 40;  // on a card the line runs over the paper
    if (isWhole) {
      EXPECT_NEAR(info.center().x(), paper.Width / 2 + BlankOfInfo / 2, Near);
    }
    const QRectF company = PlaceOf(words, "Printed", "Kestrelia");
    ASSERT_FALSE(company.isNull());
    EXPECT_NEAR(company.top(), at.bottom() + 110 * Twip, Near);
    EXPECT_NEAR(company.center().x(), paper.Width / 2, Near);
  }
};

TEST_P(PhotoPagesTest, PictureOutlineAndLinesLieWhereTheSumsPutThem) {
  if (!PrintedFile::CanBeRead()) GTEST_SKIP() << "no program here reads PDF files";
  const auto& [paperShape, shape] = GetParam();
  main.core.CompanyNameLabel.SetCaption("Kestrelia");
  drive.MakeFolder(Strip);
  drive.Write(std::string(Strip) + "\\photo.bmp", BmpOf(BandedPhoto(shape)));
  ShowStrip(Strip);
  SetPaper(paperShape.Size);
  const TurnedPaper paper = Paper();
  for (const auto& [percent, info] :
       {std::pair{10, false}, {10, true}, {78, true}, {78, false}, {100, false}, {150, false}}) {
    SCOPED_TRACE(std::to_string(percent) + (info ? " with info" : ""));
    Print(percent, info);
    const PrintedFile file(File());
    ASSERT_EQ(file.PageCount(), 1);
    EXPECT_NEAR(file.SizeOf(1).width(), paper.Width, Near);
    EXPECT_NEAR(file.SizeOf(1).height(), paper.Height, Near);
    const QImage page = file.Rendered(1);
    const PhotoPlace place(paper, shape, percent / 100.0);
    ExpectPicture(page, place);
    if (place.At == place.Seen) ExpectOutline(page, place.At, main.core.PrintPhotoInfo);
    if (main.core.PrintPhotoInfo) ExpectLines(file, shape, paper, place.At);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Photos, PhotoPagesTest,
    ::testing::Combine(::testing::ValuesIn(MeasuredPapers),
                       ::testing::Values(PhotoShape{"Landscape", 900, 600}, PhotoShape{"Portrait", 600, 900},
                                         PhotoShape{"Square", 700, 700})),
    [](const auto& photo) { return std::string(std::get<0>(photo.param).Name) + std::get<1>(photo.param).Name; });

}  // namespace
}  // namespace pixorra
