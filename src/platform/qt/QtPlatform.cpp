#include "platform/qt/QtPlatform.h"

#include <QApplication>
#include <QIcon>
#include <QSessionManager>
#include <QWidget>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/HostWindow.h"
#include "platform/qt/LookStyle.h"
#include "platform/qt/QtArtwork.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtPosting.h"
#include "platform/qt/QtShipped.h"
#include "platform/qt/ReadNotices.h"
#include "platform/qt/printing/QtPrinting.h"
#include "platform/runtime/ErrorReport.h"

namespace pixorra {

namespace {

// The sizes that task bars and title bars ask for; each is read when it is wanted.
QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64}) {
    icon.addFile(QStringLiteral(":/icons/hicolor/%1x%1/apps/pixorra.png").arg(size), QSize(size, size));
  }
  return icon;
}

// The session manager, and others that end a program from outside, ask the application to quit: no window's own close
// is to answer them.
class QuitRequests final : public QObject {
 public:
  explicit QuitRequests(QtBackend& backend) : backend_(backend) { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != qApp || event->type() != QEvent::Quit) return false;
    backend_.Dispatch([this] { backend_.GetToolkit().AskToEnd(); });
    return true;
  }

 private:
  QtBackend& backend_;
};

}  // namespace

struct QtPlatform::Parts {
  Parts(int& argc, char** argv) : application(argc, argv) {
    InstallLook();
    const auto tell = [this](QSessionManager& session) { TellHowToRestart(session); };
    QObject::connect(&application, &QGuiApplication::saveStateRequest, &application, tell);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &application, tell);
  }

  // The next session begins with this program as it began by itself, without what the toolkit would add, or without it.
  void TellHowToRestart(QSessionManager& session) const {
    session.setRestartHint(comesBack ? QSessionManager::RestartIfRunning : QSessionManager::RestartNever);
    session.setRestartCommand({QCoreApplication::applicationFilePath()});
  }

  QApplication application;
  bool comesBack = false;
  QtBackend backend;
  Toolkit toolkit{backend};
  QtArtwork artwork{backend.Art()};
  QtDialogs dialogs{backend};
  QtPrinting printing{backend};
  QtClipboard clipboard;
  QtShipped shipped{backend.Art()};
  QtPosting posting{backend};
  QuitRequests quitRequests{backend};
};

QtPlatform::QtPlatform(int& argc, char** argv)
    : parts_(std::make_unique<Parts>(argc, argv)),
      toolkit(parts_->toolkit),
      artwork(parts_->artwork),
      dialogs(parts_->dialogs),
      printing(parts_->printing),
      clipboard(parts_->clipboard),
      shipped(parts_->shipped),
      posting(parts_->posting) {
  // The name of the desktop entry, by which a desktop tells whose windows these are.
  QGuiApplication::setDesktopFileName(QStringLiteral("pixorra"));
  QGuiApplication::setWindowIcon(ProgramIcon());
  InstallAccessibility();
  parts_->backend.Attach(parts_->toolkit);
  parts_->backend.SetErrorHandler([this](int number, const std::string& description) {
    dialogs.MsgBox(ErrorReport(RuntimeError(number, description)), BoxIcon::Critical, BoxButtons::Ok, "Pixorra");
  });
}

QtPlatform::~QtPlatform() = default;

int QtPlatform::Run(const std::function<void()>& startUp) {
  parts_->backend.Run(startUp);
  return 0;
}

void QtPlatform::OnReadable(int descriptor, std::function<void()> function) {
  NoticeWhenReadable(parts_->backend, parts_->application, descriptor, std::move(function));
}

void QtPlatform::OnSessionSaves(std::function<void()> function) {
  parts_->comesBack = true;
  QObject::connect(&parts_->application, &QGuiApplication::commitDataRequest, &parts_->application,
                   [this, save = std::move(function)] { parts_->backend.Dispatch(save); });
}

void QtPlatform::ComeToFront() {
  QWidget* last = nullptr;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    const bool shown = window->isVisible() && window->windowType() != Qt::ToolTip && window->windowType() != Qt::Popup;
    if (!shown) continue;
    if (window->isMinimized()) window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    if (last == nullptr || window->isModal()) last = window;
  }
  QWidget* const modal = QApplication::activeModalWidget();
  QWidget* const front = modal != nullptr ? modal : last;
  if (front == nullptr) return;
  front->raise();
  front->activateWindow();
}

bool QtPlatform::HasXServer() {
  return HostWindow::HasServer();
}

bool QtPlatform::ShowInside(std::uint64_t window) {
  return parts_->backend.ShowInside(window);
}

void QtPlatform::SharpenThumbnailsBy(ThumbnailTwins* twins) {
  parts_->backend.Sharp().MakeBy(twins);
}

void QtPlatform::PrintToFile(const std::string& hostPath) {
  parts_->printing.PrintToFile(hostPath);
}

}  // namespace pixorra
