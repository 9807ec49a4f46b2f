#include "platform/qt/KeptSize.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace pixorra {

namespace {

// From the last move until a window counts as left where it is, in milliseconds: one that changed its size under a
// person's hand could be on the other screen again by that.
constexpr int RestTime = 300;

QRect Within(const QRect& room, QRect window) {
  window.moveRight(std::min(window.right(), room.right()));
  window.moveBottom(std::min(window.bottom(), room.bottom()));
  window.moveLeft(std::max(window.left(), room.left()));
  window.moveTop(std::max(window.top(), room.top()));
  return window;
}

QMargins FrameOf(const QWidget& window) {
  const QRect inside = window.geometry();
  const QRect frame = window.frameGeometry();
  return {inside.left() - frame.left(), inside.top() - frame.top(), frame.right() - inside.right(),
          frame.bottom() - inside.bottom()};
}

}  // namespace

KeptSize::KeptSize(QWidget& window, std::function<void()> restored) : window_(window), restored_(std::move(restored)) {
  rest_.setSingleShot(true);
  rest_.setInterval(RestTime);
  QObject::connect(&rest_, &QTimer::timeout, &rest_, [this] { Restore(); });
}

void KeptSize::Follow() {
  const Qt::WindowStates own = Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
  const bool hasOwnSize = window_.isVisible() && (window_.windowState() & own) == 0;
  const double fineness = window_.devicePixelRatioF();
  // It may come to the other screen in that state, too, and has its own size again when the state ends.
  if (!hasOwnSize) return rest_.stop();
  if (fineness_ > 0 && fineness != fineness_) return rest_.start();
  rest_.stop();
  fineness_ = fineness;
  size_ = window_.size();
}

void KeptSize::Restore() {
  fineness_ = window_.devicePixelRatioF();
  if (window_.size() != size_) {
    const QRect room = window_.screen()->availableGeometry().marginsRemoved(FrameOf(window_));
    const QSize least = window_.minimumSize();
    const QSize most = window_.maximumSize();
    const QSize size = least == most ? size_ : size_.boundedTo(room.size());
    // The window system has the bounds in the other screen's pixels until they are told anew.
    window_.setMinimumSize(0, 0);
    window_.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window_.setGeometry(Within(room, QRect(window_.geometry().topLeft(), size)));
    window_.setMinimumSize(least);
    window_.setMaximumSize(most);
    size_ = size;
  }
  restored_();
}

}  // namespace pixorra
