#include "platform/qt/LookStyle.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionSlider>
#include <QSvgRenderer>
#include <array>

#include "platform/qt/ArtStore.h"

namespace pixorra {

namespace {

// How much of a part is of the text's colour, the rest being the ground's: 3 : 1 against the ground, and more.
constexpr double Edge = 0.45;
constexpr double Thumb = 0.45;
constexpr double ThumbUnderPointer = 0.55;
constexpr double ThumbHeld = 0.65;
// Pixels between a mark and its caption: less than between two options of a row.
constexpr int CaptionGap = 4;

QColor Mixed(const QPalette& palette, double share) {
  const QColor over = palette.color(QPalette::WindowText);
  const QColor ground = palette.color(QPalette::Window);
  const auto mix = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
  return {mix(over.red(), ground.red()), mix(over.green(), ground.green()), mix(over.blue(), ground.blue())};
}

// A desktop of black and white alone, for people who need that: the edges of all that can be worked stand out as its
// letters do.
bool IsBlackAndWhite(const QPalette& palette) {
  constexpr int NearlyAll = 250;  // of 255
  const int text = palette.color(QPalette::WindowText).lightness();
  return qAbs(text - palette.color(QPalette::Window).lightness()) >= NearlyAll;
}

// An icon of a box: what desktops call it, and the program's own drawing.
struct BoxArt {
  QStyle::StandardPixmap Which;
  QLatin1String OfDesktop;
  QLatin1String Drawing;
};
constexpr std::array<BoxArt, 4> BoxArts = {
    {{QStyle::SP_MessageBoxInformation, QLatin1String("dialog-information"), QLatin1String(":/art/Information.svg")},
     {QStyle::SP_MessageBoxQuestion, QLatin1String("dialog-question"), QLatin1String(":/art/Question.svg")},
     {QStyle::SP_MessageBoxWarning, QLatin1String("dialog-warning"), QLatin1String(":/art/Warning.svg")},
     {QStyle::SP_MessageBoxCritical, QLatin1String("dialog-error"), QLatin1String(":/art/Critical.svg")}}};

// In the pixels of each scale that screens usually have.
QIcon DrawnIcon(const QString& drawing) {
  constexpr int Side = 32;
  QSvgRenderer source(drawing);
  QIcon icon;
  for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0}) {
    const int side = qRound(Side * scale);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    source.render(&painter, QRectF(image.rect()));
    painter.end();
    icon.addPixmap(QPixmap::fromImage(image));
  }
  return icon;
}

class LookStyle final : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar != nullptr) DrawThumb(*bar, *painter, widget);
    if (control == CC_Slider) DrawSlider(*option, *painter, widget);
    if (control == CC_ComboBox && IsBlackAndWhite(option->palette)) DrawRoundEdge(*option, option->rect, *painter);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_ProgressBarGroove && IsBlackAndWhite(option->palette))
      DrawRoundEdge(*option, option->rect, *painter);
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_PanelMenu) DrawEdge(*option, *painter);
    const bool isWorked = element == PE_PanelButtonCommand || element == PE_Frame || element == PE_IndicatorCheckBox;
    if (element == PE_IndicatorRadioButton && IsBlackAndWhite(option->palette)) DrawRing(*option, *painter);
    // One with the focus has the colour of that around it already, except for lists and trees.
    if ((option->state & State_HasFocus) != 0 && element != PE_Frame) return;
    if (element == PE_FrameLineEdit || (isWorked && IsBlackAndWhite(option->palette)))
      DrawRoundEdge(*option, option->rect, *painter);
  }

  // The style's own for boxes have 32 pixels to the side, too few for fine screens.
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override {
    for (const BoxArt& art : BoxArts)
      if (art.Which == which && !QIcon::hasThemeIcon(art.OfDesktop)) return DrawnIcon(art.Drawing);
    return QProxyStyle::standardIcon(which, option, widget);
  }

  // A shadow behind pale letters makes them hard to read. The style's icons of buttons have 16 pixels to the side, too
  // few for fine screens, and the program's own buttons have none either.
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override {
    if (hint == SH_EtchDisabledText || hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    if (metric == PM_RadioButtonLabelSpacing || metric == PM_CheckBoxLabelSpacing) return CaptionGap;
    return QProxyStyle::pixelMetric(metric, option, widget);
  }

 private:
  static void DrawEdge(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setPen(Mixed(option.palette, Edge));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
  }

  static void DrawRoundEdge(const QStyleOption& option, const QRect& at, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(Mixed(option.palette, IsBlackAndWhite(option.palette) ? 1 : Edge));
    painter.drawRoundedRect(QRectF(at).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
  }

  // Over the edges that its parts have, of which the handle covers that of the groove.
  void DrawSlider(const QStyleOptionComplex& slider, QPainter& painter, const QWidget* widget) const {
    const auto edgeOf = [&](SubControl part) {
      return subControlRect(CC_Slider, &slider, part, widget).adjusted(1, 1, -1, -1);
    };
    const QRect handle = edgeOf(SC_SliderHandle);
    painter.save();
    painter.setClipRegion(QRegion(slider.rect).subtracted(handle), Qt::IntersectClip);
    DrawRoundEdge(slider, edgeOf(SC_SliderGroove), painter);
    painter.restore();
    DrawRoundEdge(slider, handle, painter);
  }

  static void DrawRing(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(option.palette.color(QPalette::WindowText));
    painter.drawEllipse(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
  }

  void DrawThumb(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const {
    if ((bar.subControls & SC_ScrollBarSlider) == 0 || (bar.state & State_Enabled) == 0) return;
    const QRect thumb = subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget);
    double share = Thumb;
    if ((bar.activeSubControls & SC_ScrollBarSlider) != 0) {
      if ((bar.state & State_MouseOver) != 0) share = ThumbUnderPointer;
      if ((bar.state & State_Sunken) != 0) share = ThumbHeld;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Mixed(bar.palette, share));
    painter.drawRoundedRect(QRectF(thumb).adjusted(2, 2, -2, -2), 3, 3);
    painter.restore();
  }
};

}  // namespace

void InstallLook() {
  ArtStore::InitArt();
  if (QApplication::style()->name() == QLatin1String("fusion")) QApplication::setStyle(new LookStyle);
}

}  // namespace pixorra
