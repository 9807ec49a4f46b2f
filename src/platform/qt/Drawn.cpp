#include "platform/qt/Drawn.h"

#include <QPainter>
#include <cmath>

#include "platform/controls/FineSurface.h"
#include "platform/qt/Convert.h"

namespace pixorra {

QImage DrawnAt(const Picture& picture, QSize deviceSize, ArtStore& art) {
  if (picture.IsNothing() || deviceSize.isEmpty()) return {};
  if (!picture.ArtName().empty()) {
    QImage drawing = art.Render(picture.ArtName(), deviceSize);
    if (!drawing.isNull()) return drawing;
  }
  QImage pixels = SharedImage(picture.Pixels());
  if (pixels.size() == deviceSize) return pixels;
  // Fewer pixels are averaged beforehand; where more are needed the painter itself blends well enough.
  if (pixels.width() <= deviceSize.width() && pixels.height() <= deviceSize.height()) return pixels;
  return art.Reduce(picture, deviceSize);
}

QPixmap DrawnPixmap(const Picture& picture, double devicePixelRatio, ArtStore& art) {
  const QSize size = (QSizeF(picture.Width(), picture.Height()) * devicePixelRatio).toSize();
  const QImage image = DrawnAt(picture, size, art);
  if (image.isNull()) return {};
  QPixmap pixmap = QPixmap::fromImage(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  pixmap.setDevicePixelRatio(devicePixelRatio);
  return pixmap;
}

namespace {

// The device pixels that a rectangle of logical ones covers, its edges moved to the nearest.
QRect DeviceRect(const QPainter& painter, const QRect& at) {
  const QRectF exact = painter.deviceTransform().mapRect(QRectF(at));
  const QPoint from(FinePixel(exact.left()), FinePixel(exact.top()));
  return {from, QSize(FinePixel(exact.right()) - from.x(), FinePixel(exact.bottom()) - from.y())};
}

}  // namespace

void DrawImage(QPainter& painter, const QRect& at, const QImage& image) {
  if (image.isNull() || at.isEmpty()) return;
  const QRect device = DeviceRect(painter, at);
  if (image.size() == device.size()) {
    // In the screen's own pixels: by way of a scale, even one that comes out even, it takes several times as long.
    const QTransform before = painter.worldTransform();
    painter.setWorldTransform(painter.deviceTransform().inverted(), true);
    painter.drawImage(device.topLeft(), image);
    painter.setWorldTransform(before);
    return;
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(painter.deviceTransform().inverted().mapRect(QRectF(device)), image, QRectF(image.rect()));
}

void DrawOutline(QPainter& painter, const QRect& at, int width, const QColor& topLeft, const QColor& bottomRight) {
  const QRect device = DeviceRect(painter, at);
  const double scale = painter.deviceTransform().m11();
  const int thick = static_cast<int>(std::lround(width * scale));
  const QTransform back = painter.deviceTransform().inverted();
  const auto fill = [&](int x, int y, int across, int down, const QColor& colour) {
    painter.fillRect(back.mapRect(QRectF(x, y, across, down)), colour);
  };
  fill(device.x(), device.y(), device.width(), thick, topLeft);
  fill(device.x(), device.y(), thick, device.height(), topLeft);
  fill(device.x(), device.bottom() + 1 - thick, device.width(), thick, bottomRight);
  fill(device.right() + 1 - thick, device.y(), thick, device.height(), bottomRight);
}

void DrawPicture(QPainter& painter, const QRect& at, const Picture& picture, ArtStore& art) {
  if (picture.IsNothing() || at.isEmpty()) return;
  DrawImage(painter, at, DrawnAt(picture, DeviceRect(painter, at).size(), art));
}

}  // namespace pixorra
