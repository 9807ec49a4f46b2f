// What the plain style leaves hard to see stands out, on light and on dark desktops.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyleFactory>
#include <QStyleOptionSlider>
#include <QTreeWidget>

#include "platform/qt/Convert.h"
#include "platform/qt/LookStyle.h"
#include "tests/platform/qt/QtTest.h"
#include "tests/support/Contrast.h"

namespace pixorra {
namespace {

double Contrast(const QColor& one, const QColor& other) {
  return pixorra::Contrast(ToColour(one), ToColour(other));
}

// Something of its pixels in this column does.
bool StandsOut(QWidget& widget, int x, double contrast) {
  widget.resize(200, 24);
  const QImage shot = widget.grab().toImage();
  const QColor ground = QApplication::palette().color(QPalette::Window);
  for (int y = 0; y < shot.height(); ++y)
    if (Contrast(shot.pixelColor(x, y), ground) >= contrast) return true;
  return false;
}

class LookStyleTest : public ::testing::TestWithParam<int> {
 protected:
  LookStyleTest() : before_(QApplication::palette()) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    InstallLook();
    QApplication::setPalette(QPalette(QColor(GetParam(), GetParam(), GetParam())));
  }
  ~LookStyleTest() override {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QApplication::setPalette(before_);
  }

 private:
  QPalette before_;
};

TEST_P(LookStyleTest, TheThumbOfAScrollBarStandsOut) {
  QScrollBar bar(Qt::Horizontal);
  bar.setRange(0, 100);
  bar.resize(300, 17);
  QStyleOptionSlider option;
  option.initFrom(&bar);
  option.orientation = Qt::Horizontal;
  option.maximum = 100;
  option.pageStep = bar.pageStep();
  option.subControls = QStyle::SC_All;
  const QRect thumb = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
  const QImage shot = bar.grab().toImage();
  EXPECT_GE(Contrast(shot.pixelColor(thumb.center()), shot.pixelColor(250, 8)), 2.9);
}

TEST_P(LookStyleTest, TheEdgeOfATextBoxStandsOut) {
  QLineEdit box;
  box.resize(100, 28);
  const QImage shot = box.grab().toImage();
  EXPECT_GE(Contrast(shot.pixelColor(50, 0), box.palette().color(QPalette::Base)), 2.9);
}

TEST_P(LookStyleTest, TheGrooveOfASliderStandsOutOnBothSidesOfItsHandle) {
  QSlider slider(Qt::Horizontal);
  slider.setValue(50);
  for (const int x : {20, 180}) EXPECT_TRUE(StandsOut(slider, x, 2.9)) << x;
  EXPECT_TRUE(StandsOut(slider, 100, 2.9)) << "the handle";
}

TEST_P(LookStyleTest, ACaptionStandsNearItsMark) {
  const QRadioButton option(QStringLiteral("All"));
  const QCheckBox box(QStringLiteral("All"));
  EXPECT_EQ(option.style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, &option), 4);
  EXPECT_EQ(box.style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &box), 4);
}

TEST_P(LookStyleTest, TheIconsOfBoxesHaveTheScreensPixels) {
  for (const auto which : {QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion,
                           QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical}) {
    const QIcon icon = QApplication::style()->standardIcon(which);
    for (const double scale : {1.25, 1.75, 3.0}) {
      const QPixmap drawn = icon.pixmap(QSize(32, 32), scale);
      EXPECT_EQ(drawn.width(), qRound(32 * scale)) << which;
      EXPECT_GT(drawn.toImage().pixelColor(drawn.rect().center()).alpha(), 250) << which;
    }
  }
}

class BlackAndWhiteTest : public LookStyleTest {
 protected:
  // Something of its uppermost pixels in the middle stands out from the desktop's ground.
  static bool HasEdge(QWidget& widget) {
    widget.resize(120, 40);
    const QImage shot = widget.grab().toImage();
    const QColor ground = QApplication::palette().color(QPalette::Window);
    for (int y = 0; y < 3; ++y)
      if (Contrast(shot.pixelColor(60, y), ground) >= 4.5) return true;
    return false;
  }
};

TEST_P(BlackAndWhiteTest, TheEdgesOfAllThatCanBeWorkedStandOut) {
  QPushButton button(QStringLiteral("Help"));
  EXPECT_TRUE(HasEdge(button));
  QListWidget list;
  EXPECT_TRUE(HasEdge(list));
  QTreeWidget tree;
  EXPECT_TRUE(HasEdge(tree));
  QComboBox combo;
  EXPECT_TRUE(HasEdge(combo));
  QLineEdit text;
  EXPECT_TRUE(HasEdge(text));
  QProgressBar progress;
  EXPECT_TRUE(HasEdge(progress));
}

TEST_P(BlackAndWhiteTest, AListKeepsItsEdgeWhileItHasTheFocus) {
  QListWidget list;
  list.resize(120, 40);
  QImage shot(list.size(), QImage::Format_RGB32);
  const QColor ground = QApplication::palette().color(QPalette::Window);
  shot.fill(ground);
  QStyleOptionFrame option;
  option.initFrom(&list);
  option.lineWidth = 1;
  option.state |= QStyle::State_HasFocus | QStyle::State_Sunken;
  QPainter painter(&shot);
  list.style()->drawPrimitive(QStyle::PE_Frame, &option, &painter, &list);
  painter.end();
  EXPECT_GE(Contrast(shot.pixelColor(60, 0), ground), 4.5);
}

TEST_P(BlackAndWhiteTest, SlidersAndMarksAreSeen) {
  constexpr double Seen = 4.5;
  QSlider slider(Qt::Horizontal);
  slider.setValue(50);
  EXPECT_TRUE(StandsOut(slider, 180, Seen)) << "the groove";
  EXPECT_TRUE(StandsOut(slider, 100, Seen)) << "the handle";
  QCheckBox box;
  EXPECT_TRUE(StandsOut(box, 6, Seen));
  QRadioButton option;
  EXPECT_TRUE(StandsOut(option, 6, Seen));
}

INSTANTIATE_TEST_SUITE_P(Desktops, LookStyleTest, ::testing::Values(0xEF, 0x35));
INSTANTIATE_TEST_SUITE_P(Desktops, BlackAndWhiteTest, ::testing::Values(0xFF, 0x00));

}  // namespace
}  // namespace pixorra
