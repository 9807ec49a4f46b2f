#include "platform/qt/ReadNotices.h"

#include <QSocketNotifier>
#include <utility>

#include "platform/controls/Toolkit.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

void NoticeWhenReadable(QtBackend& backend, QObject& owner, int descriptor, std::function<void()> function) {
  if (descriptor < 0) return;
  auto* const notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, &owner);
  QObject::connect(notifier, &QSocketNotifier::activated, notifier, [&backend, notifier, run = std::move(function)] {
    const Toolkit& toolkit = backend.GetToolkit();
    if (toolkit.EndAsked() || toolkit.Ended()) {
      notifier->setEnabled(false);
    } else {
      backend.Dispatch(run);
    }
  });
}

}  // namespace pixorra
