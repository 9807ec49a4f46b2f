#include "platform/qt/DragOverlay.h"

#include <QPainter>

#include "platform/qt/Convert.h"
#include "platform/qt/Drawn.h"

namespace pixorra {

DragOverlay::DragOverlay(QWidget& window, ArtStore& art) : QWidget(&window), art_(art) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setFocusPolicy(Qt::NoFocus);
}

void DragOverlay::Follow(const Toolkit::DragShown& drag, QPoint origin) {
  const Picture& icon = drag.Source->DragIcon();
  if (!(icon == icon_)) {
    icon_ = icon;
    update();
  }
  QRect place = ToQRect(drag.Outline);
  if (!icon.IsNothing()) {
    place = QRect(drag.X - icon.Width() / 2, drag.Y - icon.Height() / 2, icon.Width(), icon.Height());
  }
  setGeometry(place.translated(origin));
  if (isVisible()) return;
  raise();
  show();
}

void DragOverlay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!icon_.IsNothing()) {
    DrawPicture(painter, rect(), icon_, art_);
    return;
  }
  // Dark and light dashes in turn show on any ground.
  const QRectF edge = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(QPen(Qt::white, 1));
  painter.drawRect(edge);
  painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
  painter.drawRect(edge);
}

}  // namespace pixorra
