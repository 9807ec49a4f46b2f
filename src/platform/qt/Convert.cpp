#include "platform/qt/Convert.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cstring>

#include "platform/controls/Events.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

QString ToQString(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

QString ToLines(const std::string& text) {
  return ToQString(text)
      .replace(QLatin1String("\r\n"), QLatin1String("\n"))
      .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

QStringList ToLineList(const std::string& text) {
  return ToLines(text).split(QLatin1Char('\n'));
}

QString ToToolTip(const std::string& text) {
  if (text.empty()) return {};
  return QLatin1String("<p style='white-space:pre'>") + ToLines(text).toHtmlEscaped() + QLatin1String("</p>");
}

Qt::Alignment ToQt(Alignment alignment) {
  switch (alignment) {
    case Alignment::Right:
      return Qt::AlignRight;
    case Alignment::Center:
      return Qt::AlignHCenter;
    default:
      return Qt::AlignLeft;
  }
}

QRect ToQRect(const Rect& rect) {
  return {rect.Left, rect.Top, rect.Width, rect.Height};
}

Rect ToRect(const QRect& rect) {
  return {rect.left(), rect.top(), rect.width(), rect.height()};
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor ToQColor(Colour colour, const QPalette& palette) {
  switch (colour) {
    case ButtonFace:
      return palette.color(QPalette::Window);
    case WindowBackground:
      return palette.color(QPalette::Base);
    case ButtonText:
      return palette.color(QPalette::WindowText);
    default:
      return {static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8 & 0xFFU),
              static_cast<int>(colour >> 16 & 0xFFU)};
  }
}

Colour ToColour(const QColor& colour) {
  return static_cast<Colour>(colour.red()) | static_cast<Colour>(colour.green()) << 8 |
         static_cast<Colour>(colour.blue()) << 16;
}

QFont ToQFont(const Font& font) {
  QFont result;
  if (!font.Name.empty()) result.setFamily(ToQString(font.Name));
  result.setPixelSize(std::max(1, qRound(font.Size * 96 / 72)));
  result.setBold(font.Bold);
  return result;
}

QFont FittedFont(const Font& font, const QString& text, int width) {
  QFont result = ToQFont(font);
  const int whole = result.pixelSize();
  // Letters are set on whole pixels: a line is not quite as long as its size tells.
  for (int size = whole; size >= std::max(1, whole / 2); --size) {
    result.setPixelSize(size);
    if (QFontMetrics(result).horizontalAdvance(text) + size / 2 <= width) break;
  }
  return result;
}

namespace {

QImage::Format FormatOf(const Bitmap& bitmap) {
  return bitmap.Format() == PixelFormat::Bgr24 ? QImage::Format_BGR888 : QImage::Format_ARGB32_Premultiplied;
}

// Some rows at a time, so that a large picture is not held once more while it is copied.
Bitmap CopyRows(const QImage& image, PixelFormat format) {
  constexpr int Rows = 64;
  Bitmap bitmap(image.width(), image.height(), format);
  const auto bytes = static_cast<std::size_t>(bitmap.Width()) * static_cast<std::size_t>(bitmap.BytesPerPixel());
  for (int y = 0; y < bitmap.Height(); y += Rows) {
    const int count = std::min(Rows, bitmap.Height() - y);
    QImage part(image.constScanLine(y), image.width(), count, image.bytesPerLine(), image.format());
    if (image.colorCount() > 0) part.setColorTable(image.colorTable());
    part.convertTo(FormatOf(bitmap));
    if (part.isNull()) throw RuntimeError(error::OutOfMemory);
    for (int row = 0; row < count; ++row) std::memcpy(bitmap.Row(y + row), part.constScanLine(row), bytes);
  }
  return bitmap;
}

// There are keyboards whose top row makes digits only with Shift: without it, the key's place on the keyboard counts.
// The codes are those of X11, which its successor has taken over.
int TopRowDigit(const QKeyEvent& event) {
  constexpr quint32 KeyOfOne = 10;
  const quint32 place = event.nativeScanCode() - KeyOfOne;
  const bool plain = (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) == Qt::NoModifier;
  return plain && event.nativeScanCode() >= KeyOfOne && place < 9 ? '1' + static_cast<int>(place) : 0;
}

}  // namespace

QImage SharedImage(const Bitmap& bitmap) {
  if (bitmap.IsEmpty()) return {};
  return {bitmap.Row(0), bitmap.Width(), bitmap.Height(), static_cast<qsizetype>(bitmap.Stride()), FormatOf(bitmap)};
}

QImage SharedImage(Bitmap& bitmap) {
  if (bitmap.IsEmpty()) return {};
  return {bitmap.Row(0), bitmap.Width(), bitmap.Height(), static_cast<qsizetype>(bitmap.Stride()), FormatOf(bitmap)};
}

Picture ToPicture(const QImage& image) {
  if (image.isNull()) return {};
  return Picture(CopyRows(image, PixelFormat::Bgr24));
}

Bitmap ToAlphaBitmap(const QImage& image) {
  if (image.isNull()) return {};
  return CopyRows(image, PixelFormat::Bgra32);
}

int ToKeyCode(const QKeyEvent& event) {
  const int qtKey = event.key();
  if ((qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) || (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)) return qtKey;
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return key::F1 + (qtKey - Qt::Key_F1);
  switch (qtKey) {
    case Qt::Key_Backspace:
      return key::Back;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return key::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return key::Return;
    case Qt::Key_Escape:
      return key::Escape;
    case Qt::Key_Space:
      return key::Space;
    case Qt::Key_PageUp:
      return key::PageUp;
    case Qt::Key_PageDown:
      return key::PageDown;
    case Qt::Key_End:
      return key::End;
    case Qt::Key_Home:
      return key::Home;
    case Qt::Key_Left:
      return key::Left;
    case Qt::Key_Up:
      return key::Up;
    case Qt::Key_Right:
      return key::Right;
    case Qt::Key_Down:
      return key::Down;
    case Qt::Key_Insert:
      return key::Insert;
    case Qt::Key_Delete:
      return key::Delete;
    default:
      return TopRowDigit(event);
  }
}

int ToShift(Qt::KeyboardModifiers modifiers) {
  int result = shift::None;
  if (modifiers.testFlag(Qt::ShiftModifier)) result |= shift::Shift;
  if (modifiers.testFlag(Qt::ControlModifier)) result |= shift::Ctrl;
  if (modifiers.testFlag(Qt::AltModifier)) result |= shift::Alt;
  return result;
}

int ToButton(Qt::MouseButton mouseButton) {
  switch (mouseButton) {
    case Qt::LeftButton:
      return button::Left;
    case Qt::RightButton:
      return button::Right;
    case Qt::MiddleButton:
      return button::Middle;
    default:
      return 0;
  }
}

int ToButtons(Qt::MouseButtons buttons) {
  int result = 0;
  for (const Qt::MouseButton one : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    if (buttons.testFlag(one)) result |= ToButton(one);
  }
  return result;
}

// Pixels count only from a device that says when it is stroked: some drivers give them for a plain wheel too, in units
// of their own. Qt counts upwards and to the left.
std::optional<WheelArgs> ToWheel(const QWheelEvent& event) {
  constexpr double Notch = QWheelEvent::DefaultDeltasPerStep;
  WheelArgs turn;
  turn.Shift = ToShift(event.modifiers());
  if (event.phase() != Qt::NoScrollPhase && !event.pixelDelta().isNull()) {
    turn.PixelsX = -event.pixelDelta().x();
    turn.PixelsY = -event.pixelDelta().y();
    return turn;
  }
  if (event.angleDelta().isNull()) return std::nullopt;
  turn.NotchesX = -event.angleDelta().x() / Notch;
  turn.NotchesY = -event.angleDelta().y() / Notch;
  return turn;
}

}  // namespace pixorra
