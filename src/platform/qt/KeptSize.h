// A window that has come to a screen of another fineness keeps its size in the program's pixels, and is moved so that
// all of it is on that screen. Where the window system keeps the size in the screen's pixels, it would be several times
// as large there, or as small.
#pragma once

#include <QSize>
#include <QTimer>
#include <functional>

class QWidget;

namespace pixorra {

class KeptSize {
 public:
  // `restored` is called when the window has its size again. The window must outlive this.
  KeptSize(QWidget& window, std::function<void()> restored);
  KeptSize(const KeptSize&) = delete;
  KeptSize& operator=(const KeptSize&) = delete;

  // To be called when the window's size, place, state or screen may have changed.
  void Follow();
  // It has come to another screen and has not its size yet: it may still be moved.
  bool IsAway() const { return rest_.isActive(); }

 private:
  void Restore();

  QWidget& window_;
  std::function<void()> restored_;
  QTimer rest_;
  QSize size_;
  double fineness_ = 0;  // that it has this size at; 0: none yet
};

}  // namespace pixorra
