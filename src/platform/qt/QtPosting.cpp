#include "platform/qt/QtPosting.h"

#include <utility>

#include "platform/qt/QtBackend.h"

namespace pixorra {

void QtPosting::Post(std::function<void()> call) {
  QMetaObject::invokeMethod(
      &receiver_, [this, call = std::move(call)] { backend_.Dispatch(call); }, Qt::QueuedConnection);
}

}  // namespace pixorra
