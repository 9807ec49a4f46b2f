// A box of the host on the screen: no form takes input, and what was being dragged is let go.
#pragma once

#include <QDialog>
#include <QPointer>

#include "platform/controls/Toolkit.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

class BoxGuard {
 public:
  explicit BoxGuard(QtBackend& backend) : toolkit_(backend.GetToolkit()) {
    if (toolkit_.Drag().Source != nullptr) toolkit_.CancelDrag();
    toolkit_.PushBox();
  }
  ~BoxGuard() { toolkit_.PopBox(); }
  BoxGuard(const BoxGuard&) = delete;
  BoxGuard& operator=(const BoxGuard&) = delete;

 private:
  Toolkit& toolkit_;
};

// A dialog that goes at the end of a call, unless its window has taken it along before.
template <typename Dialog>
class OwnedBox {
 public:
  explicit OwnedBox(Dialog* dialog) : dialog_(dialog) {}
  ~OwnedBox() { delete dialog_.data(); }
  OwnedBox(const OwnedBox&) = delete;
  OwnedBox& operator=(const OwnedBox&) = delete;

  Dialog* operator->() const { return dialog_.data(); }
  // Shows it until it is answered. False where it was put away in another way; it may be gone then.
  bool Run(QtBackend& backend) {
    if (backend.GetToolkit().Ended()) return false;
    const BoxGuard guard(backend);
    return dialog_->exec() == QDialog::Accepted && dialog_ != nullptr;
  }

 private:
  QPointer<Dialog> dialog_;
};

}  // namespace pixorra
