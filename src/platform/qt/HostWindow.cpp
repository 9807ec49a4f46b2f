#include "platform/qt/HostWindow.h"

#include <QGuiApplication>
#include <QWindow>
#include <QtMath>
#include <cstdlib>
#include <limits>
#include <xcb/xcb.h>

namespace pixorra {

namespace {

xcb_connection_t* Server() {
  auto* const application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return application != nullptr ? application->connection() : nullptr;
}

struct Release {
  void operator()(void* reply) const { std::free(reply); }
};

}  // namespace

bool HostWindow::HasServer() {
  xcb_connection_t* const server = xcb_connect(nullptr, nullptr);
  const bool answers = xcb_connection_has_error(server) == 0;
  xcb_disconnect(server);
  return answers;
}

std::unique_ptr<HostWindow> HostWindow::Of(std::uint64_t number) {
  xcb_connection_t* const server = Server();
  if (server == nullptr || number == 0 || number > std::numeric_limits<std::uint32_t>::max()) return nullptr;
  const auto id = static_cast<std::uint32_t>(number);
  const std::unique_ptr<xcb_get_geometry_reply_t, Release> geometry(
      xcb_get_geometry_reply(server, xcb_get_geometry(server, id), nullptr));
  QWindow* const window = geometry != nullptr ? QWindow::fromWinId(id) : nullptr;
  if (window == nullptr) return nullptr;
  std::unique_ptr<HostWindow> host(new HostWindow(id, *window));
  host->size_ = QSize(geometry->width, geometry->height);
  return host;
}

// It is no window of this program's own: its changes of size are sent only to those who select them.
HostWindow::HostWindow(std::uint32_t number, QWindow& window) : number_(number), window_(&window) {
  const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(Server(), number_, XCB_CW_EVENT_MASK, &events);
  xcb_flush(Server());
  qGuiApp->installNativeEventFilter(this);
}

HostWindow::~HostWindow() {
  qGuiApp->removeNativeEventFilter(this);
  // The windows in it are their forms' own.
  const QObjectList inside = window_->children();
  for (QObject* child : inside) {
    if (auto* window = qobject_cast<QWindow*>(child)) window->setParent(nullptr);
  }
}

double HostWindow::Fineness() const {
  return window_->devicePixelRatio();
}

QSize HostWindow::Size() const {
  const QSizeF exact = QSizeF(size_) / Fineness();
  return {qCeil(exact.width()), qCeil(exact.height())};
}

bool HostWindow::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (eventType != "xcb_generic_event_t") return false;
  const auto* const event = static_cast<xcb_generic_event_t*>(message);
  constexpr int SentByAnother = 0x80;
  const int kind = event->response_type & ~SentByAnother;
  if (kind == XCB_CONFIGURE_NOTIFY) {
    const auto& configured = *reinterpret_cast<const xcb_configure_notify_event_t*>(event);
    const QSize before = size_;
    if (configured.window == number_) size_ = QSize(configured.width, configured.height);
    if (size_ != before && resized_) resized_();
  } else if (kind == XCB_DESTROY_NOTIFY) {
    const auto& destroyed = *reinterpret_cast<const xcb_destroy_notify_event_t*>(event);
    if (destroyed.window == number_ && gone_) gone_();
  }
  return false;
}

}  // namespace pixorra
