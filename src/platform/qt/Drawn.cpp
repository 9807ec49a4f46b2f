#include "platform/qt/Drawn.h"

#include <QPainter>

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
  if (pixels.width() < deviceSize.width() || pixels.height() < deviceSize.height()) return pixels;
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

void DrawPicture(QPainter& painter, const QRect& at, const Picture& picture, ArtStore& art) {
  if (picture.IsNothing() || at.isEmpty()) return;
  const QTransform toDevice = painter.deviceTransform();
  const QRectF exact = toDevice.mapRect(QRectF(at));
  const QPoint from(qRound(exact.left()), qRound(exact.top()));
  const QRect device(from, QSize(qRound(exact.right()) - from.x(), qRound(exact.bottom()) - from.y()));
  const QImage image = DrawnAt(picture, device.size(), art);
  if (image.isNull()) return;
  painter.setRenderHint(QPainter::SmoothPixmapTransform, image.size() != device.size());
  painter.drawImage(toDevice.inverted().mapRect(QRectF(device)), image, QRectF(image.rect()));
}

}  // namespace pixorra
