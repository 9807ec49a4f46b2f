#include "platform/qt/LightPainter.h"

#include <QPainter>
#include <QWidget>

#include "platform/controls/FadeBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Painting.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Shape.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/Convert.h"
#include "platform/qt/Drawn.h"
#include "platform/qt/SharpThumbnails.h"

namespace pixorra {

namespace {

// How much of a frame's line is of its text's colour.
constexpr double FrameLine = 0.4;

QColor Blend(const QColor& over, const QColor& ground, double share) {
  const auto mix = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
  return {mix(over.red(), ground.red()), mix(over.green(), ground.green()), mix(over.blue(), ground.blue())};
}

// Of a whole screen, painted sixty times a second, the ground alone would take a third of the time.
bool HidesGround(const std::vector<PaintItem>& items, const Rect& exposed) {
  return !items.empty() && items.front().Source->GetKind() == Kind::FadeBox && items.front().Clip == exposed;
}

}  // namespace

void LightPainter::PaintForm(const Form& form, const Rect& exposed) {
  toolkit_ = &form.GetToolkit();
  painter_.setLayoutDirection(on_.layoutDirection());  // a painter begins with the application's
  const std::vector<PaintItem> items = ItemsToPaint(form, exposed);
  if (!HidesGround(items, exposed)) {
    Fill(ToQRect(exposed), form.BackColor());
    const PixelSize drawn = form.DrawingSize();
    DrawImage(painter_, QRect(0, 0, drawn.Width, drawn.Height), SharedImage(form.Drawing()));
  }
  for (const PaintItem& item : items) {
    if (item.Clip.IsEmpty()) continue;
    painter_.setClipRect(ToQRect(item.Clip));
    Paint(*item.Source, ToQRect(item.At));
    if (item.Source->HasFocus()) PaintFocus(ToQRect(item.At));
  }
}

void LightPainter::Paint(const Control& control, const QRect& at) {
  switch (control.GetKind()) {
    case Kind::ImageBox:
      PaintImage(static_cast<const ImageBox&>(control), at);
      break;
    case Kind::Label:
      PaintLabel(static_cast<const Label&>(control), at);
      break;
    case Kind::Shape:
      PaintShape(static_cast<const Shape&>(control), at);
      break;
    case Kind::FadeBox:
      PaintFade(static_cast<const FadeBox&>(control), at);
      break;
    case Kind::Frame:
      PaintFrame(static_cast<const Frame&>(control), at);
      break;
    case Kind::PictureBox:
      PaintPictureBox(static_cast<const PictureBox&>(control), at);
      break;
    default:
      break;
  }
}

// Lines of two colours, so that they are seen on any picture.
void LightPainter::PaintFocus(const QRect& at) {
  const QPalette palette = on_.palette();
  const auto frame = [this, &at](int inset, const QColor& colour) {
    const QRect outer = at.adjusted(inset, inset, -inset, -inset);
    painter_.fillRect(outer.x(), outer.y(), outer.width(), 1, colour);
    painter_.fillRect(outer.x(), outer.bottom(), outer.width(), 1, colour);
    painter_.fillRect(outer.x(), outer.y(), 1, outer.height(), colour);
    painter_.fillRect(outer.right(), outer.y(), 1, outer.height(), colour);
  };
  frame(0, palette.color(QPalette::HighlightedText));
  frame(1, palette.color(QPalette::Highlight));
  frame(2, palette.color(QPalette::Highlight));
  frame(3, palette.color(QPalette::HighlightedText));
}

void LightPainter::Fill(const QRect& at, Colour colour) {
  painter_.fillRect(at, Shown(colour));
}

QColor LightPainter::Shown(Colour colour) const {
  return ToQColor(toolkit_->PlainColour(colour, IsDark(on_.palette())), on_.palette());
}

// One pixel, dark at the top and left as if sunk.
void LightPainter::Edge(const QRect& at) {
  const QPalette palette = on_.palette();
  DrawOutline(painter_, at, 1, palette.color(QPalette::Dark), palette.color(QPalette::Light));
}

void LightPainter::PaintImage(const ImageBox& image, const QRect& at) {
  const bool pressed = image.BorderStyle() == 1;
  const bool hasPressed = pressed && !image.PressedPicture().IsNothing();
  const Picture& picture = hasPressed ? image.PressedPicture() : image.GetPicture();
  const QRect own(at.topLeft(), QSize(picture.Width(), picture.Height()));
  const Picture sharp = image.ShowsPhotoOfTag() ? sharp_.InPlaceOf(image, on_.devicePixelRatioF()) : Picture();
  DrawPicture(painter_, image.Stretch() ? at : own, sharp.IsNothing() ? picture : sharp, art_);
  if (pressed && !hasPressed) Edge(at);
}

void LightPainter::PaintLabel(const Label& label, const QRect& room) {
  if (label.Opaque()) Fill(room, label.BackColor());
  if (label.Caption().empty()) return;
  QString text = ToLines(label.Caption());
  painter_.setFont(ToQFont(label.GetFont()));
  QRect at = room;
  if (label.Shrinks() && !label.WordWrap()) {
    // Smaller letters stand in the middle of the line that they would have had.
    const int line = painter_.fontMetrics().height();
    painter_.setFont(FittedFont(label.GetFont(), text, at.width()));
    at.translate(0, (line - painter_.fontMetrics().height()) / 2);
  }
  if (label.ShortensInMiddle() && !label.WordWrap()) {
    text = painter_.fontMetrics().elidedText(text, Qt::ElideMiddle, at.width());
  }
  int flags = (ToQt(label.GetAlignment()) | Qt::AlignTop).toInt();
  if (label.WordWrap()) flags |= Qt::TextWordWrap;
  if (label.HasHalo()) DrawHalo(at, flags, text, Shown(label.BackColor()));
  painter_.setPen(label.Enabled() ? Shown(label.ForeColor())
                                  : on_.palette().color(QPalette::Disabled, QPalette::WindowText));
  painter_.drawText(at, flags, text);
}

// The letters once in each direction, a pixel away.
void LightPainter::DrawHalo(const QRect& at, int flags, const QString& text, const QColor& colour) {
  painter_.setPen(colour);
  for (const QPoint step : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1), QPoint(-1, -1), QPoint(1, 1),
                            QPoint(-1, 1), QPoint(1, -1)}) {
    painter_.drawText(at.translated(step), flags, text);
  }
}

void LightPainter::PaintShape(const Shape& shape, const QRect& at) {
  if (shape.Filled()) Fill(at, shape.FillColor());
  const int width = shape.BorderWidth();
  if (width <= 0) return;
  // Whole pixels: half of the width lies outside the rectangle, the odd one inside.
  const QRect outer = at.adjusted(-(width / 2), -(width / 2), width / 2, width / 2);
  const QColor colour = Shown(shape.BorderColor());
  DrawOutline(painter_, outer, width, colour, colour);
}

// The upper picture is laid over the whole lower one: where each was weighed by itself, what is below both would be
// seen through them.
void LightPainter::PaintFade(const FadeBox& box, const QRect& at) {
  if (box.Share() < 1) PaintOpaque(box.Lower(), at);
  painter_.setOpacity(box.Share());
  if (box.Share() > 0) PaintOpaque(box.Upper(), at);
  painter_.setOpacity(1);
}

// Without a look at the alpha of each pixel, which takes several times as long.
void LightPainter::PaintOpaque(const Picture& picture, const QRect& at) {
  if (picture.IsNothing() || picture.Pixels().Format() != PixelFormat::Bgra32) {
    painter_.fillRect(at, Qt::black);
    return;
  }
  const Bitmap& pixels = picture.Pixels();
  DrawImage(painter_, at,
            QImage(pixels.Row(0), pixels.Width(), pixels.Height(), static_cast<qsizetype>(pixels.Stride()),
                   QImage::Format_RGB32));
}

// A line around, broken by the caption.
void LightPainter::PaintFrame(const Frame& frame, const QRect& at) {
  Fill(at, frame.BackColor());
  painter_.setFont(on_.font());
  const QString caption = ToQString(frame.Caption()).remove(QLatin1Char('&'));
  const QFontMetrics metrics = painter_.fontMetrics();
  const QColor text =
      frame.Enabled() ? Shown(frame.ForeColor()) : on_.palette().color(QPalette::Disabled, QPalette::WindowText);
  const int top = caption.isEmpty() ? at.y() : at.y() + metrics.height() / 2;
  const QRect line(at.x(), top, at.width(), at.bottom() + 1 - top);
  const QColor colour = Blend(text, Shown(frame.BackColor()), FrameLine);
  DrawOutline(painter_, line, 1, colour, colour);
  if (caption.isEmpty()) return;
  const QRect gap(at.x() + 6, at.y(), metrics.horizontalAdvance(caption) + 6, metrics.height());
  Fill(gap, frame.BackColor());
  painter_.setPen(text);
  painter_.drawText(gap, Qt::AlignCenter, caption);
}

// What is in sight of it: the row may be as long as a strip of thousands.
void LightPainter::PaintRow(const Picture& picture, const QRect& at) {
  const QRect seen = painter_.clipBoundingRect().toAlignedRect().intersected(at);
  if (picture.IsNothing() || seen.isEmpty()) return;
  const int width = picture.Width();
  for (int x = at.x() + (seen.x() - at.x()) / width * width; x <= seen.right(); x += width) {
    DrawPicture(painter_, QRect(x, at.y(), width, picture.Height()), picture, art_);
  }
}

void LightPainter::PaintPictureBox(const PictureBox& box, const QRect& at) {
  Fill(at, box.BackColor());
  PaintRow(box.RowPicture(), at);
  if (box.HasDrawing()) {
    const QRect whole(at.topLeft(), QSize(box.Surface().Width(), box.Surface().Height()));
    DrawImage(painter_, whole, SharedImage(box.FineSurface().IsEmpty() ? box.Surface() : box.FineSurface()));
  } else if (!box.GetPicture().IsNothing()) {
    DrawPicture(painter_, QRect(at.topLeft(), QSize(box.GetPicture().Width(), box.GetPicture().Height())),
                box.GetPicture(), art_);
  }
  if (box.BorderStyle() == 1) Edge(at);
}

}  // namespace pixorra
