// A box of the host on the screen: no form takes input, and what was being dragged is let go.
#pragma once

#include <QDialog>
#include <QPointer>

namespace pixorra {

class QtBackend;
class Toolkit;

class BoxGuard {
 public:
  explicit BoxGuard(QtBackend& backend);
  ~BoxGuard();
  BoxGuard(const BoxGuard&) = delete;
  BoxGuard& operator=(const BoxGuard&) = delete;

 private:
  Toolkit& toolkit_;
};

// A dialog made with new, that goes at the end of a call unless its window has taken it along before.
class OwnedBox {
 public:
  explicit OwnedBox(QDialog* dialog);
  ~OwnedBox();
  OwnedBox(const OwnedBox&) = delete;
  OwnedBox& operator=(const OwnedBox&) = delete;

  // Shows it until it is answered. False where it was put away in another way; it may be gone then. None is shown once
  // the program has ended or has been asked to.
  bool Run(QtBackend& backend);

 private:
  QPointer<QDialog> dialog_;
};

}  // namespace pixorra
