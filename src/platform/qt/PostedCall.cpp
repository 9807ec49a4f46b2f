#include "platform/qt/PostedCall.h"

#include <QCoreApplication>
#include <QEvent>

namespace pixorra {

void PostedCall::Post() {
  if (posted_) return;
  posted_ = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool PostedCall::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  posted_ = false;
  // A copy: this may go while it runs.
  const std::function<void()> call = call_;
  call();
  return true;
}

}  // namespace pixorra
