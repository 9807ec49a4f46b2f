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

// Shows a dialog until it is answered; false where it was put away in another way. The dialog must have been made with
// new: it goes when its window goes, or with the pointer that was given.
inline bool RunBox(QtBackend& backend, const QPointer<QDialog>& dialog) {
  if (backend.GetToolkit().Ended()) return false;
  const BoxGuard guard(backend);
  return dialog->exec() == QDialog::Accepted && dialog != nullptr;
}

}  // namespace pixorra
