// What a form paints is read back from its client area.
#include <QPainter>
#include <QPalette>

#include "platform/controls/ControlArray.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Shape.h"
#include "platform/qt/Drawn.h"
#include "platform/qt/QtArtwork.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

constexpr Colour Red = 0x0000FF;
constexpr Colour Green = 0x00FF00;
constexpr Colour Blue = 0xFF0000;

Picture Plain(int width, int height, Colour colour, PixelFormat format = PixelFormat::Bgr24) {
  Bitmap bitmap(width, height, format);
  bitmap.Fill(colour);
  return Picture(std::move(bitmap));
}

int CountOf(const QImage& image, const QRect& within, const QColor& colour) {
  int count = 0;
  for (int y = within.top(); y <= within.bottom(); ++y) {
    for (int x = within.left(); x <= within.right(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
  }
  return count;
}

class PaintTest : public QtTest {
 protected:
  PaintTest() {
    form.SetClientSize(200, 150);
    form.SetBackColor(Blue);
  }
  Form form{toolkit, "PaintForm"};
};

TEST_F(PaintTest, TheGroundHasTheFormsColour) {
  form.Show();
  const QImage shot = Shot(form);
  EXPECT_EQ(shot.size(), QSize(200, 150));
  EXPECT_EQ(CountOf(shot, shot.rect(), Qt::blue), 200 * 150);
}

TEST_F(PaintTest, SystemColoursFollowThePalette) {
  form.SetBackColor(ButtonFace);
  form.Show();
  EXPECT_EQ(Shot(form).pixel(5, 5), ClientOf(form).palette().color(QPalette::Window).rgb());
}

TEST_F(PaintTest, AnImageStandsAtItsOwnSizeWithoutStretch) {
  ImageBox image(form, "Image");
  image.Move(10, 20);
  image.SetPicture(Plain(30, 15, Red));
  form.Show();
  const QImage shot = Shot(form);
  EXPECT_EQ(CountOf(shot, shot.rect(), Qt::red), 30 * 15);
  EXPECT_EQ(shot.pixelColor(10, 20), Qt::red);
  EXPECT_EQ(shot.pixelColor(39, 34), Qt::red);
}

TEST_F(PaintTest, AStretchedImageFillsItsRectangle) {
  ImageBox image(form, "Image");
  image.SetStretch(true);
  image.SetPicture(Plain(3, 5, Red, PixelFormat::Bgra32));
  image.Move(10, 20, 40, 50);
  form.Show();
  EXPECT_EQ(CountOf(Shot(form), QRect(0, 0, 200, 150), Qt::red), 40 * 50);
}

TEST_F(PaintTest, APressedImageShowsItsPressedPictureOrASunkenEdge) {
  ImageBox image(form, "Image");
  image.SetPicture(Plain(20, 20, Red));
  image.SetBorderStyle(1);
  form.Show();
  const QImage sunken = Shot(form);
  EXPECT_EQ(sunken.pixel(0, 10), ClientOf(form).palette().color(QPalette::Dark).rgb());
  EXPECT_EQ(sunken.pixelColor(10, 10), Qt::red);
  image.SetPressedPicture(Plain(20, 20, Green));
  image.SetBorderStyle(0);
  EXPECT_EQ(Shot(form).pixelColor(10, 10), Qt::red);
  image.SetBorderStyle(1);
  const QImage pressed = Shot(form);
  EXPECT_EQ(pressed.pixelColor(10, 10), Qt::green);
  EXPECT_EQ(pressed.pixelColor(0, 10), Qt::green);
}

TEST_F(PaintTest, TheControlInFrontIsPaintedLast) {
  ImageBox first(form, "First");
  ImageBox second(form, "Second");
  first.SetPicture(Plain(20, 20, Red));
  second.SetPicture(Plain(20, 20, Green));
  form.Show();
  EXPECT_EQ(Shot(form).pixelColor(10, 10), Qt::green);
  first.BringToFront();
  EXPECT_EQ(Shot(form).pixelColor(10, 10), Qt::red);
}

TEST_F(PaintTest, WhatStandsOutOfItsContainerIsCutOff) {
  PictureBox box(form, "Box");
  box.Move(50, 50, 20, 20);
  box.SetBackColor(Green);
  ImageBox image(box, "Image");
  image.SetPicture(Plain(40, 40, Red));
  image.Move(10, 10);
  form.Show();
  const QImage shot = Shot(form);
  EXPECT_EQ(CountOf(shot, shot.rect(), Qt::red), 10 * 10);
  EXPECT_EQ(CountOf(shot, shot.rect(), Qt::green), 20 * 20 - 10 * 10);
}

TEST_F(PaintTest, ABoxShowsItsPictureAndThenItsDrawingOverIt) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 40, 40);
  box.SetBackColor(Green);
  box.SetPicture(Plain(20, 20, Red));
  form.Show();
  EXPECT_EQ(Shot(form).pixelColor(10, 10), Qt::red);
  EXPECT_EQ(Shot(form).pixelColor(30, 30), Qt::green);
  box.Box(25, 25, 39, 39, Blue, true);
  const QImage drawn = Shot(form);
  EXPECT_EQ(drawn.pixelColor(10, 10), Qt::red);
  EXPECT_EQ(drawn.pixelColor(22, 22), Qt::green);
  EXPECT_EQ(drawn.pixelColor(30, 30), Qt::blue);
}

TEST_F(PaintTest, ALabelIsTransparentUnlessOpaque) {
  Label label(form, "Label");
  label.Move(0, 0, 100, 20);
  label.SetBackColor(Green);
  label.SetForeColor(Red);
  form.Show();
  EXPECT_EQ(Shot(form).pixelColor(90, 15), Qt::blue);
  label.SetOpaque(true);
  EXPECT_EQ(Shot(form).pixelColor(90, 15), Qt::green);
}

TEST_F(PaintTest, ALabelsAlignmentMovesItsText) {
  Label label(form, "Label");
  label.Move(0, 0, 200, 20);
  label.SetForeColor(Red);
  label.SetFont({"", 12, true});
  label.SetCaption("II");
  form.Show();
  const QRect left(0, 0, 40, 20);
  const QRect middle(80, 0, 40, 20);
  const QRect right(160, 0, 40, 20);
  const auto inked = [this](const QRect& within) {
    return CountOf(Shot(form), within, Qt::blue) < within.width() * within.height();
  };
  EXPECT_TRUE(inked(left));
  EXPECT_FALSE(inked(middle));
  label.SetAlignment(Alignment::Center);
  EXPECT_TRUE(inked(middle));
  EXPECT_FALSE(inked(left));
  label.SetAlignment(Alignment::Right);
  EXPECT_TRUE(inked(right));
  EXPECT_FALSE(inked(middle));
}

TEST_F(PaintTest, AnAmpersandInALabelStandsAsItIs) {
  Label plain(form, "Plain");
  Label with(form, "With");
  plain.Move(0, 0, 200, 20);
  with.Move(0, 40, 200, 20);
  plain.SetCaption("ab");
  with.SetCaption("a&b");
  form.Show();
  const QImage shot = Shot(form);
  EXPECT_LT(CountOf(shot, QRect(0, 40, 200, 20), Qt::blue), CountOf(shot, QRect(0, 0, 200, 20), Qt::blue));
}

TEST_F(PaintTest, ACaptionThatShortensKeepsBothItsEnds) {
  Label label(form, "Label");
  label.Move(0, 0, 100, 20);
  label.SetForeColor(Red);
  label.SetShortensInMiddle(true);
  label.SetCaption("WWWWWWWWWWWWWWWWWWWWWWWWWWWWW|");
  form.Show();
  // The last letter, a thin stroke, comes close to the right edge.
  const QImage shot = Shot(form);
  EXPECT_EQ(CountOf(shot, QRect(100, 0, 100, 20), Qt::blue), 100 * 20);
  EXPECT_LT(CountOf(shot, QRect(80, 0, 20, 20), Qt::blue), 20 * 20);
}

TEST_F(PaintTest, ACaptionThatShrinksIsShownWhole) {
  Label label(form, "Label");
  label.Move(50, 40, 100, 60);
  label.SetForeColor(Red);
  label.SetAlignment(Alignment::Center);
  label.SetFont({"", 30, false});
  label.SetCaption("WWWWW");
  form.Show();
  // Too wide: the letters are cut at both edges.
  EXPECT_LT(CountOf(Shot(form), QRect(50, 40, 2, 60), Qt::blue), 2 * 60);
  EXPECT_LT(CountOf(Shot(form), QRect(148, 40, 2, 60), Qt::blue), 2 * 60);
  label.SetShrinks(true);
  Settle();
  label.SetCaption("MMMMM");
  Settle();
  const QImage shot = Shot(form);
  EXPECT_EQ(CountOf(shot, QRect(50, 40, 2, 60), Qt::blue), 2 * 60);
  EXPECT_EQ(CountOf(shot, QRect(148, 40, 2, 60), Qt::blue), 2 * 60);
  EXPECT_LT(CountOf(shot, QRect(50, 40, 25, 60), Qt::blue), 25 * 60);
  EXPECT_LT(CountOf(shot, QRect(125, 40, 25, 60), Qt::blue), 25 * 60);
}

TEST_F(PaintTest, AShapesBorderLiesOverItsEdge) {
  Shape shape(form, "Shape");
  shape.Move(50, 50, 40, 40);
  shape.SetBorder(Red, 4);
  shape.SetFill(Green);
  form.Show();
  const QImage shot = Shot(form);
  EXPECT_EQ(shot.pixelColor(47, 70), Qt::blue);
  EXPECT_EQ(shot.pixelColor(48, 70), Qt::red);
  EXPECT_EQ(shot.pixelColor(51, 70), Qt::red);
  EXPECT_EQ(shot.pixelColor(52, 70), Qt::green);
  EXPECT_EQ(shot.pixelColor(91, 70), Qt::red);
  EXPECT_EQ(shot.pixelColor(92, 70), Qt::blue);
}

TEST_F(PaintTest, HiddenControlsAreNotPainted) {
  ImageBox image(form, "Image");
  image.SetPicture(Plain(20, 20, Red));
  form.Show();
  EXPECT_EQ(Shot(form).pixelColor(10, 10), Qt::red);
  image.SetVisible(false);
  EXPECT_EQ(Shot(form).pixelColor(10, 10), Qt::blue);
}

TEST_F(PaintTest, MovingThirtyThousandLightControlsCostsOneRepaint) {
  PictureBox strip(form, "Strip");
  strip.Move(0, 0, 200, 100);
  ControlArray<ImageBox> cells(strip, "Slot");
  const Picture picture = Plain(10, 10, Red);
  for (int i = 1; i <= 30000; ++i) {
    ImageBox& slot = cells.Load(i);
    slot.SetPicture(picture);
    slot.Move(i * 12, 10);
    slot.SetVisible(true);
  }
  form.Show();
  Settle();
  PaintCounter counter(ClientOf(form));
  for (int i = 1; i <= 30000; ++i) cells(i).SetLeft(i * 12 - 240);
  EXPECT_EQ(counter.Count, 0);
  Settle();
  EXPECT_EQ(counter.Count, 1);
}

TEST_F(PaintTest, OnlyWhatHasChangedIsRepainted) {
  ImageBox image(form, "Image");
  image.SetPicture(Plain(20, 20, Red));
  image.Move(100, 100);
  form.Show();
  Settle();
  PaintCounter counter(ClientOf(form));
  image.SetBorderStyle(1);
  Settle();
  EXPECT_EQ(counter.Count, 1);
  EXPECT_EQ(counter.Last, QRect(100, 100, 20, 20));
}

TEST_F(PaintTest, AChangeOutOfSightRepaintsNothing) {
  ImageBox image(form, "Image");
  image.SetPicture(Plain(20, 20, Red));
  image.Move(300, 100);
  form.Show();
  Settle();
  PaintCounter counter(ClientOf(form));
  image.SetBorderStyle(1);
  image.SetPicture(Plain(20, 20, Green));
  Settle();
  EXPECT_EQ(counter.Count, 0);
}

TEST_F(PaintTest, ArtIsDrawnAtTheSizeItIsShown) {
  QtArtwork artwork(backend.Art());
  ImageBox image(form, "Image");
  image.SetStretch(true);
  image.SetPicture(artwork.Drawing("ClosedFolder", 138, 95));
  image.Move(0, 0, 69, 47);
  form.Show();
  const QImage wanted = backend.Art().Render("ClosedFolder", QSize(69, 47));
  QImage expected(69, 47, QImage::Format_RGB32);
  expected.fill(Qt::blue);
  QPainter(&expected).drawImage(0, 0, wanted);
  EXPECT_EQ(Shot(form).copy(0, 0, 69, 47), expected);
}

TEST_F(PaintTest, ADrawingHasTheSizeAskedForAndAnUnknownOneRaises) {
  QtArtwork artwork(backend.Art());
  const Picture drawing = artwork.Drawing("Logo", 120, 90);
  EXPECT_EQ(drawing.Width(), 120);
  EXPECT_EQ(drawing.Height(), 90);
  EXPECT_EQ(drawing.ArtName(), "Logo");
  EXPECT_EQ(drawing.Pixels().Format(), PixelFormat::Bgra32);
  try {
    artwork.Drawing("NoSuchDrawing", 10, 10);
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.Number(), error::FileNotFound);
  }
}

// Puts the desktop's colours back.
class OnDarkDesktop {
 public:
  OnDarkDesktop() : before_(QApplication::palette()) { QApplication::setPalette(QPalette(QColor(0x35, 0x35, 0x35))); }
  ~OnDarkDesktop() { QApplication::setPalette(before_); }

 private:
  QPalette before_;
};

TEST_F(PaintTest, TonesFollowTheDesktopAtOnce) {
  static constexpr Tone tones[] = {{0x0000FF00, 0x000000FF}};
  toolkit.SetTones(tones);
  form.SetBackColor(ToneColour(0));
  form.Show();
  EXPECT_EQ(Shot(form).pixelColor(5, 5), QColor(Qt::green));
  const OnDarkDesktop dark;
  EXPECT_EQ(Shot(form).pixelColor(5, 5), QColor(Qt::red));
}

TEST_F(PaintTest, TheLinesAroundARectangleAreEquallyThickAtEveryScale) {
  for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
    for (int left = 0; left < 4; ++left) {
      SCOPED_TRACE(std::to_string(scale) + " from " + std::to_string(left));
      QImage image(400, 400, QImage::Format_RGB32);
      image.fill(Qt::white);
      image.setDevicePixelRatio(scale);
      QPainter painter(&image);
      DrawOutline(painter, QRect(left, 5 - left, 51, 42 + left), 1, Qt::black, Qt::black);
      painter.end();
      const auto black = [&](QPoint from, QPoint step) {
        int count = 0;
        for (QPoint at = from; image.rect().contains(at); at += step)
          count += image.pixelColor(at) == Qt::black ? 1 : 0;
        return count;
      };
      const int middle = static_cast<int>(25 * scale);
      const int thick = qRound(scale);
      EXPECT_EQ(black({middle, 0}, {0, 1}), 2 * thick);
      EXPECT_EQ(black({0, middle}, {1, 0}), 2 * thick);
    }
  }
}

TEST_F(PaintTest, TheLinesAboveAndOnTheLeftOfARectangleHaveAColourOfTheirOwn) {
  QImage image(40, 40, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  DrawOutline(painter, QRect(10, 10, 20, 20), 2, Qt::black, Qt::red);
  painter.end();
  EXPECT_EQ(image.pixelColor(15, 11), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(11, 15), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(15, 28), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(28, 15), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(12, 12), QColor(Qt::white));
}

TEST_F(PaintTest, SomeDrawingsHaveATwinForDarkDesktops) {
  const QSize size(60, 40);
  const QImage light = backend.Art().Render("Logo", size);
  const QImage folder = backend.Art().Render("ClosedFolder", size);
  const OnDarkDesktop dark;
  EXPECT_EQ(backend.Art().Render("Logo", size), backend.Art().Render("LogoDark", size));
  EXPECT_NE(backend.Art().Render("Logo", size), light);
  EXPECT_EQ(backend.Art().Render("ClosedFolder", size), folder);
}

TEST_F(PaintTest, APhotographIsDrawnAtTheSizeItIsShown) {
  const QImage clouds = backend.Art().Render("Clouds", QSize(80, 60));
  EXPECT_EQ(clouds.size(), QSize(80, 60));
  // The sky is bluer above than below.
  EXPECT_GT(clouds.pixelColor(40, 2).blue(), clouds.pixelColor(40, 2).red() + 60);
}

TEST_F(PaintTest, LettersWithAHaloHaveAnEdgeOfTheBackColour) {
  Label label(form, "Label");
  label.Move(10, 10, 60, 20);
  label.SetCaption("Il");
  label.SetForeColor(0);
  label.SetBackColor(Green);
  form.Show();
  const auto greens = [this] {
    const QImage shot = Shot(form);
    int count = 0;
    for (int y = 10; y < 30; ++y) {
      for (int x = 10; x < 70; ++x) count += shot.pixelColor(x, y).green() > 200 ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(greens(), 0);
  label.SetHalo(true);
  EXPECT_GT(greens(), 20);
}

TEST_F(PaintTest, ARowOfPicturesFillsTheBoxFromItsLeftToItsRight) {
  PictureBox box(form, "Box");
  box.Move(10, 10, 50, 30);
  box.SetBackColor(0);
  Bitmap half(20, 20, PixelFormat::Bgr24);
  half.Fill(0);
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 10; ++x) half.Row(y)[3 * x + 1] = 255;
  }
  box.SetRowPicture(Picture(std::move(half)));
  form.Show();
  const QImage shot = Shot(form);
  for (const int x : {10, 19, 30, 39, 50, 59}) EXPECT_EQ(shot.pixelColor(x, 20), QColor(Qt::green)) << x;
  for (const int x : {20, 29, 40, 49}) EXPECT_EQ(shot.pixelColor(x, 20), QColor(Qt::black)) << x;
  // One row of them, and none beside the box.
  EXPECT_EQ(shot.pixelColor(15, 35), QColor(Qt::black));
  EXPECT_NE(shot.pixelColor(60, 20), QColor(Qt::green));
}

}  // namespace
}  // namespace pixorra
