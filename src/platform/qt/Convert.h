// Between the program's values and the toolkit's: texts, rectangles, colours, fonts, pixels, keys and buttons.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPalette>
#include <QRect>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "platform/controls/Events.h"
#include "platform/controls/Geometry.h"
#include "platform/controls/Label.h"
#include "platform/pixels/Picture.h"
#include "platform/services/TextDrawing.h"

class QKeyEvent;
class QWheelEvent;

namespace pixorra {

QString ToQString(const std::string& text);
std::string ToUtf8(const QString& text);
// Lines joined by CR LF become lines joined by LF.
QString ToLines(const std::string& text);
// Those lines, at least one.
QStringList ToLineList(const std::string& text);
// A tool tip that is shown as it stands, whatever marks it holds.
QString ToToolTip(const std::string& text);

Qt::Alignment ToQt(Alignment alignment);
QRect ToQRect(const Rect& rect);
Rect ToRect(const QRect& rect);

// A desktop of light letters on dark ground.
bool IsDark(const QPalette& palette);
// System colours follow the palette.
QColor ToQColor(Colour colour, const QPalette& palette);
Colour ToColour(const QColor& colour);
// Sized in whole pixels, 96 to the inch: places on forms are pixels too.
QFont ToQFont(const Font& font);
// The same, or smaller where one line of text needs more than width pixels and a little air; not under half the size.
QFont FittedFont(const Font& font, const QString& text, int width);

// The bitmap's own pixels, not copied: it must outlive the image.
QImage SharedImage(const Bitmap& bitmap);
QImage SharedImage(Bitmap& bitmap);
// A copy, three bytes a pixel; nothing for a null image.
Picture ToPicture(const QImage& image);
// A copy with alpha.
Bitmap ToAlphaBitmap(const QImage& image);

// The key's code (Events.h), 0 for keys that have none.
int ToKeyCode(const QKeyEvent& event);
int ToShift(Qt::KeyboardModifiers modifiers);
int ToButton(Qt::MouseButton button);
int ToButtons(Qt::MouseButtons buttons);
// Nothing is turned where the event only begins or ends a stroke.
std::optional<WheelArgs> ToWheel(const QWheelEvent& event);

}  // namespace pixorra
