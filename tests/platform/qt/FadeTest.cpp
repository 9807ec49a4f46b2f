// Pictures that fade are read back from the screen, and forms that cover one of several screens.
#include <QPainter>
#include <QProcess>
#include <QProcessEnvironment>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <ctime>

#include "platform/controls/FadeBox.h"
#include "platform/controls/FineSurface.h"
#include "platform/qt/Drawn.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

constexpr Colour FadeRed = 0x000000FF;
constexpr Colour FadeBlue = 0x00FF0000;

Picture Opaque(int width, int height, Colour colour) {
  Bitmap bitmap(width, height, PixelFormat::Bgra32);
  bitmap.Fill(colour);
  return Picture(std::move(bitmap));
}

class FadeTest : public QtTest {
 protected:
  FadeTest() {
    form.SetClientSize(100, 80);
    form.SetBackColor(0x0000FF00);
    box.Move(0, 0, 100, 80);
    form.Show();
  }
  QColor Seen(int x = 50, int y = 40) { return Shot(form).pixelColor(x, y); }

  Form form{toolkit, "FadeForm"};
  FadeBox box{form, "Box"};
};

TEST_F(FadeTest, TheUpperPictureIsSeenMoreAndMore) {
  const Picture red = Opaque(100, 80, FadeRed);
  const Picture blue = Opaque(100, 80, FadeBlue);
  box.Show(red, blue, 0);
  EXPECT_EQ(Seen(), QColor(255, 0, 0));
  box.Show(red, blue, 0.5);
  EXPECT_NEAR(Seen().red(), 128, 2);
  EXPECT_NEAR(Seen().blue(), 128, 2);
  EXPECT_EQ(Seen().green(), 0) << "the ground is never seen through both";
  box.Show(red, blue, 1);
  EXPECT_EQ(Seen(), QColor(0, 0, 255));
}

TEST_F(FadeTest, NothingIsBlack) {
  box.Show({}, {}, 1);
  EXPECT_EQ(Seen(), QColor(0, 0, 0));
  box.Show({}, Opaque(100, 80, FadeRed), 0.5);
  EXPECT_NEAR(Seen().red(), 128, 2);
  EXPECT_EQ(Seen().green(), 0);
}

TEST_F(FadeTest, APictureOfAnotherSizeIsStretched) {
  box.Show({}, Opaque(10, 8, FadeBlue), 1);
  EXPECT_EQ(Seen(2, 2), QColor(0, 0, 255));
  EXPECT_EQ(Seen(97, 77), QColor(0, 0, 255));
}

// Screens and their scale are a process's own from its start: a test runs once more in one that has others.
class ScreensTest : public QtTest {
 protected:
  static constexpr const char* TwoScreens = R"({"screens": [
      {"name": "One", "x": 0, "y": 0, "width": 640, "height": 480, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
      {"name": "Two", "x": 640, "y": 0, "width": 800, "height": 600, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}
    ]})";
  static constexpr const char* WideScreen = R"({"screens": [
      {"name": "Wide", "x": 0, "y": 0, "width": 2560, "height": 1440, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}
    ]})";

  void OnTwoScreens(const std::function<void()>& test) {
    if (QGuiApplication::screens().size() == 2) {
      test();
    } else {
      RunAgainOn(TwoScreens, 1);
    }
  }
  // 2560 x 1440 pixels of its own, one and a half of them to a pixel's side.
  void OnABrokenScale(const std::function<void()>& test) {
    if (qGuiApp->devicePixelRatio() == BrokenScale) {
      test();
    } else {
      RunAgainOn(WideScreen, BrokenScale);
    }
  }
  static constexpr double BrokenScale = 1.5;
};

TEST_F(ScreensTest, AFormCoversTheScreenThatItIsToldTo) {
  OnTwoScreens([this] {
    EXPECT_EQ(toolkit.ScreenCount(), 2);
    EXPECT_EQ(toolkit.GetScreen(1).Width, 800 * 15);
    Form first(toolkit, "First");
    Form second(toolkit, "Second");
    second.SetFullScreenOn(1);
    for (Form* form : {&first, &second}) {
      form->SetFullScreen(true);
      form->Show();
    }
    Settle();
    EXPECT_EQ(second.ScaleWidth(), 800);
    EXPECT_EQ(second.ScaleHeight(), 600);
    EXPECT_EQ(WindowOf(first).geometry(), QRect(0, 0, 640, 480));
    EXPECT_EQ(WindowOf(second).geometry(), QRect(640, 0, 800, 600));
    EXPECT_EQ(WindowOf(second).windowHandle()->screen()->name(), "Two");
  });
}

TEST_F(ScreensTest, AFormThatCoversAScreenHearsThatTheScreenIsNotAsItWas) {
  Form covers(toolkit, "Covers");
  Form plain(toolkit, "Plain");
  covers.SetFullScreen(true);
  covers.Show();
  plain.Show();
  Settle();
  int heard = 0;
  covers.On().Resize = [&](Control&) { ++heard; };
  plain.On().Resize = [](Control&) { FAIL() << "it covers none"; };
  QScreen* const screen = QGuiApplication::primaryScreen();
  Q_EMIT screen->logicalDotsPerInchChanged(192);
  Q_EMIT screen->geometryChanged(screen->geometry());
  Settle();
  EXPECT_EQ(heard, 1) << "once, however much has changed";
  Q_EMIT qGuiApp->screenAdded(screen);
  Settle();
  EXPECT_EQ(heard, 2);
  QEvent moved(QEvent::ScreenChangeInternal);
  QCoreApplication::sendEvent(&WindowOf(covers), &moved);
  Settle();
  EXPECT_EQ(heard, 3);
}

TEST_F(ScreensTest, TheScreenWithThePointerIsKnown) {
  OnTwoScreens([this] {
    QCursor::setPos(700, 100);
    EXPECT_EQ(toolkit.ScreenOfPointer(), 1);
    QCursor::setPos(10, 10);
    EXPECT_EQ(toolkit.ScreenOfPointer(), 0);
  });
}

// Black and white pixels in turn: whatever is stretched by even one of them is grey somewhere.
Picture Chequered(const Rect& size) {
  Bitmap bitmap(size.Width, size.Height, PixelFormat::Bgra32);
  bitmap.Fill(0);
  for (int y = 0; y < size.Height; ++y) {
    for (int x = y % 2; x < size.Width; x += 2) std::fill_n(bitmap.Row(y) + std::ptrdiff_t{4} * x, 3, 0xFF);
  }
  return Picture(std::move(bitmap));
}

TEST_F(ScreensTest, APictureOfTheScreensOwnPixelsIsSeenPixelForPixelAtABrokenScale) {
  OnABrokenScale([this] {
    Form form(toolkit, "Wide");
    FadeBox box(form, "Box");
    form.SetFullScreen(true);
    ASSERT_EQ(form.ScaleWidth(), 1707) << "half a pixel more than the screen has";
    box.Move(0, 0, form.ScaleWidth(), form.ScaleHeight());
    form.Show();
    Settle();
    const Rect own = FineRect({0, 0, form.ScaleWidth(), form.ScaleHeight()}, toolkit.GetScreen().Fineness);
    const Picture chequered = Chequered(own);
    for (const double share : {1.0, 0.5}) {
      box.Show({}, chequered, share);
      const QImage shot = Shot(form);
      ASSERT_GE(shot.width(), 2560);
      ASSERT_GE(shot.height(), 1440);
      const int bright = share == 1 ? 255 : 128;
      for (int y = 0; y < 1440; y += 7) {
        for (int x = 0; x < 2560; ++x) {
          ASSERT_NEAR(shot.pixelColor(x, y).red(), (x + y) % 2 == 0 ? bright : 0, 1) << x << " " << y;
        }
      }
    }
  });
}

// The least processor time of many tries, seconds, for an image that covers a screen of that scale.
double CpuOfDrawing(double scale) {
  constexpr int Side = 1200;
  constexpr int Tries = 20;
  QImage screen(Side, Side, QImage::Format_RGB32);
  screen.fill(Qt::black);
  screen.setDevicePixelRatio(scale);
  QImage image(Side, Side, QImage::Format_RGB32);
  image.fill(Qt::white);
  const int logical = qRound(Side / scale);
  double least = 1e9;
  for (int i = 0; i < Tries; ++i) {
    QPainter painter(&screen);
    painter.setOpacity(0.5);
    const std::clock_t before = std::clock();
    DrawImage(painter, QRect(0, 0, logical, logical), image);
    painter.end();
    least = std::min(least, static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC);
  }
  return least;
}

TEST(DrawnImage, OneOfTheScreensOwnPixelsTakesNoLongerAtABrokenScale) {
  EXPECT_LT(CpuOfDrawing(1.5), 1.5 * CpuOfDrawing(1));
}

}  // namespace
}  // namespace pixorra
