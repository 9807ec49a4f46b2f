#include "platform/qt/BoxGuard.h"

#include "platform/controls/Toolkit.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

BoxGuard::BoxGuard(QtBackend& backend) : toolkit_(backend.GetToolkit()) {
  if (toolkit_.Drag().Source != nullptr) toolkit_.CancelDrag();
  toolkit_.PushBox();
}

BoxGuard::~BoxGuard() {
  toolkit_.PopBox();
}

OwnedBox::OwnedBox(QDialog* dialog) : dialog_(dialog) {}

OwnedBox::~OwnedBox() {
  delete dialog_.data();
}

bool OwnedBox::Run(QtBackend& backend) {
  if (backend.GetToolkit().Ended() || backend.GetToolkit().EndAsked()) return false;
  const BoxGuard guard(backend);
  return dialog_->exec() == QDialog::Accepted && dialog_ != nullptr;
}

}  // namespace pixorra
