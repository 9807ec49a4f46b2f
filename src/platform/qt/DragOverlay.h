// What follows the pointer while something is dragged: a picture, or the outline of the source. It is a child of the
// window, so that moving it repaints no more than it covers.
#pragma once

#include <QPixmap>
#include <QWidget>

#include "platform/controls/Toolkit.h"

namespace pixorra {

class ArtStore;

class DragOverlay final : public QWidget {
 public:
  DragOverlay(QWidget& window, ArtStore& art);
  // `origin` is where the form's client area begins in the window.
  void Follow(const Toolkit::DragShown& drag, QPoint origin);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ArtStore& art_;
  Picture icon_;
};

}  // namespace pixorra
