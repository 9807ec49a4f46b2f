// Surfaces on a high-density screen.
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/qt/Convert.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class FineScreenTest : public QtTest {
 protected:
  FineScreenTest() {
    form.SetClientSize(200, 150);
    box.Move(20, 30, 60, 40);
    box.SetBackColor(0x00FFFFFF);
  }
  // What is seen of the box, in device pixels.
  QImage BoxShot() {
    const QRect at(box.Left(), box.Top(), box.Width(), box.Height());
    return Shot(form).copy(QRect(at.topLeft() * Fineness, at.size() * Fineness));
  }

  Form form{toolkit, "FineForm"};
  PictureBox box{form, "Box"};
};

TEST_F(FineScreenTest, APaintedPictureShowsAllOfItsPixels) {
  OnAFineScreen([this] {
    Bitmap chequered(40, 20, PixelFormat::Bgr24);
    chequered.Fill(0);
    for (int y = 0; y < 20; ++y) {
      for (int x = y % 2; x < 40; x += 2) chequered.Row(y)[3 * x + 2] = 0xFF;
    }
    box.PaintPicture(Picture(std::move(chequered)), 10, 5, 20, 10);
    form.Show();
    const QImage shot = BoxShot();
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 40; ++x) {
        ASSERT_EQ(shot.pixelColor(20 + x, 10 + y), (x + y) % 2 == 0 ? QColor(Qt::red) : QColor(Qt::black))
            << x << " " << y;
      }
    }
    EXPECT_EQ(shot.pixelColor(19, 10), Qt::white);
    EXPECT_EQ(box.Image().Width(), 60) << "the model's pixels stay those of the program";
    EXPECT_EQ(box.Point(15, 10) & 0xFFU, 0x80U);
  });
}

TEST_F(FineScreenTest, APictureOnTheFormItselfShowsAllOfItsPixels) {
  OnAFineScreen([this] {
    box.SetVisible(false);
    Bitmap chequered(400, 300, PixelFormat::Bgr24);
    chequered.Fill(0);
    for (int y = 0; y < 300; ++y) {
      for (int x = y % 2; x < 400; x += 2) chequered.Row(y)[3 * x + 2] = 0xFF;
    }
    form.PaintPicture(Picture(std::move(chequered)), 0, 0, 200, 150);
    form.Show();
    const QImage shot = Shot(form);
    ASSERT_EQ(shot.size(), QSize(400, 300));
    for (int y = 0; y < 300; ++y) {
      for (int x = 0; x < 400; ++x) {
        ASSERT_EQ(shot.pixelColor(x, y), (x + y) % 2 == 0 ? QColor(Qt::red) : QColor(Qt::black)) << x << " " << y;
      }
    }
  });
}

TEST_F(FineScreenTest, PrintedLettersHaveTheScreensPixels) {
  OnAFineScreen([this] {
    form.SetBackColor(0x00FFFFFF);
    Label label(form, "Label");
    label.Move(123, 32, 50, 30);
    label.SetForeColor(0);
    label.SetCaption("Photo");
    box.SetFont(label.GetFont());
    box.PrintAt(3, 2, "Photo");
    form.Show();
    const QSize size = QSize(50, 30) * Fineness;
    const QImage shot = Shot(form);
    const QImage printed = shot.copy(QRect(QPoint(23, 32) * Fineness, size));
    EXPECT_EQ(printed, shot.copy(QRect(QPoint(123, 32) * Fineness, size))) << "as a label's are";
    QImage blank(printed.size(), printed.format());
    blank.fill(Qt::white);
    EXPECT_NE(printed, blank);
  });
}

TEST_F(FineScreenTest, LinesAndPointsAreAsThickAsOnAnyScreen) {
  OnAFineScreen([this] {
    box.Box(10, 10, 30, 20, 0x000000FF, false);
    box.PSet(40, 30, 0x00FF0000);
    form.Show();
    const QImage shot = BoxShot();
    for (const QPoint red : {QPoint(20, 20), QPoint(21, 21), QPoint(61, 41), QPoint(40, 20), QPoint(40, 21)}) {
      EXPECT_EQ(shot.pixelColor(red), Qt::red) << red.x() << " " << red.y();
    }
    EXPECT_EQ(shot.pixelColor(40, 22), Qt::white);
    EXPECT_EQ(shot.pixelColor(62, 30), Qt::white);
    EXPECT_EQ(shot.copy(80, 60, 2, 2).convertToFormat(QImage::Format_RGB32), [] {
      QImage blue(2, 2, QImage::Format_RGB32);
      blue.fill(Qt::blue);
      return blue;
    }());
  });
}

TEST_F(FineScreenTest, WhatIsClearedOrResizedIsDrawnAnew) {
  OnAFineScreen([this] {
    box.Box(0, 0, 59, 39, 0x000000FF, true);
    form.Show();
    EXPECT_EQ(BoxShot().pixelColor(119, 79), Qt::red);
    box.Cls();
    EXPECT_EQ(BoxShot().pixelColor(50, 50), Qt::white);
    box.Box(0, 0, 100, 100, 0x000000FF, true);
    box.SetWidth(50);
    EXPECT_EQ(BoxShot().pixelColor(50, 50), Qt::white);
    EXPECT_TRUE(box.FineSurface().IsEmpty());
  });
}

TEST_F(FineScreenTest, ALabelOverADrawnBoxIsAsSharpAsOneOnTheForm) {
  OnAFineScreen([this] {
    box.Box(0, 0, 59, 39, 0x00FFFFFF, true);
    form.SetBackColor(0x00FFFFFF);
    Label over(box, "Over");
    Label beside(form, "Beside");
    over.Move(5, 5, 50, 20);
    beside.Move(120, 35, 50, 20);
    for (Label* label : {&over, &beside}) {
      label->SetForeColor(0);
      label->SetCaption("Photo");
    }
    form.Show();
    const QImage shot = Shot(form);
    const QSize size = QSize(50, 20) * Fineness;
    EXPECT_EQ(shot.copy(QRect(QPoint(25, 35) * Fineness, size)), shot.copy(QRect(QPoint(120, 35) * Fineness, size)));
  });
}

}  // namespace
}  // namespace pixorra
