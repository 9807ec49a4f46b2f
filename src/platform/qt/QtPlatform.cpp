#include "platform/qt/QtPlatform.h"

#include <QApplication>
#include <QIcon>

#include "platform/controls/Toolkit.h"
#include "platform/qt/QtArtwork.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtDialogs.h"

namespace pixorra {

struct QtPlatform::Parts {
  Parts(int& argc, char** argv) : application(argc, argv) {}

  QApplication application;
  QtBackend backend;
  QtDialogs dialogs{backend};
  QtClipboard clipboard;
  QtArtwork artwork{backend.Art()};
};

QtPlatform::QtPlatform(int& argc, char** argv) {
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QGuiApplication::setDesktopFileName(QStringLiteral("pixorra"));
  QCoreApplication::setApplicationName(QStringLiteral("pixorra"));
  QGuiApplication::setApplicationDisplayName(QString());
  parts_ = std::make_unique<Parts>(argc, argv);
  QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/pixorra.svg")));
  parts_->backend.SetErrorHandler([this](int number, const std::string& description) {
    const std::string text = "Error " + std::to_string(number) + ": " + description;
    parts_->dialogs.MsgBox(text, BoxIcon::Critical, BoxButtons::Ok, "Pixorra");
  });
}

QtPlatform::~QtPlatform() = default;

Backend& QtPlatform::GetBackend() {
  return parts_->backend;
}

void QtPlatform::Attach(Toolkit& toolkit) {
  parts_->backend.Attach(toolkit);
}

void QtPlatform::Run() {
  parts_->backend.Run();
}

Dialogs& QtPlatform::GetDialogs() {
  return parts_->dialogs;
}

Clipboard& QtPlatform::GetClipboard() {
  return parts_->clipboard;
}

Artwork& QtPlatform::GetArtwork() {
  return parts_->artwork;
}

}  // namespace pixorra
