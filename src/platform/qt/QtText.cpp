#include "platform/qt/QtText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "platform/qt/Convert.h"

namespace pixorra {

TextExtent QtText::Measure(const Font& font, const std::string& text) {
  const QFontMetricsF metrics(ToQFont(font));
  const QStringList lines = ToLines(text).split(QLatin1Char('\n'));
  TextExtent extent;
  for (const QString& line : lines) extent.Width = std::max(extent.Width, metrics.horizontalAdvance(line));
  extent.Height = metrics.height() * static_cast<double>(lines.size());
  return extent;
}

void QtText::Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text, Colour colour) {
  if (target.IsEmpty()) return;
  QImage image = SharedImage(target);
  QPainter painter(&image);
  painter.setFont(ToQFont(font));
  painter.setPen(ToQColor(colour, QPalette(Qt::lightGray)));
  const QFontMetricsF metrics(painter.font());
  double baseline = top + metrics.ascent();
  for (const QString& line : ToLines(text).split(QLatin1Char('\n'))) {
    painter.drawText(QPointF(left, baseline), line);
    baseline += metrics.height();
  }
}

}  // namespace pixorra
