#include "platform/qt/QtText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/qt/Convert.h"

namespace pixorra {

namespace {

// A font of the toolkit below has a whole number of pixels. From this size on the nearest is near enough, and the
// letters are sharp; smaller sizes are drawn large and made smaller, so that each half point counts.
constexpr double SmallestRounded = 8;
constexpr int LargeSize = 32;

struct Face {
  QFont Drawn;
  double Scale = 1;
};

Face FaceOf(const Font& font) {
  Face face{ToQFont(font), 1};
  const double pixels = font.Size * 96 / 72;
  if (pixels >= SmallestRounded || pixels == std::floor(pixels)) return face;
  face.Drawn.setPixelSize(LargeSize);
  face.Scale = pixels / LargeSize;
  return face;
}

}  // namespace

TextExtent QtText::Measure(const Font& font, const std::string& text) {
  const Face face = FaceOf(font);
  const QFontMetricsF metrics(face.Drawn);
  const QStringList lines = ToLineList(text);
  TextExtent extent;
  for (const QString& line : lines) extent.Width = std::max(extent.Width, metrics.horizontalAdvance(line) * face.Scale);
  extent.Height = metrics.height() * face.Scale * static_cast<double>(lines.size());
  return extent;
}

void QtText::Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text, Colour colour) {
  DrawFine(target, 1, font, left, top, text, colour);
}

void QtText::DrawFine(Bitmap& target, double fineness, const Font& font, double left, double top,
                      const std::string& text, Colour colour) {
  if (target.IsEmpty()) return;
  QImage image = SharedImage(target);
  QPainter painter(&image);
  const Face face = FaceOf(font);
  const double scale = fineness * face.Scale;
  painter.scale(scale, scale);
  painter.setFont(face.Drawn);
  painter.setPen(ToQColor(colour, QPalette(Qt::lightGray)));
  const QFontMetricsF metrics(painter.font());
  double baseline = top / face.Scale + metrics.ascent();
  for (const QString& line : ToLineList(text)) {
    painter.drawText(QPointF(left / face.Scale, baseline), line);
    baseline += metrics.height();
  }
}

}  // namespace pixorra
