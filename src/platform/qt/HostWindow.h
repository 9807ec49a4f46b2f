// A window of another program on the X server, such as a screen saver's daemon, that this program shows itself in.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QSize>
#include <cstdint>
#include <functional>
#include <memory>

class QWindow;

namespace pixorra {

class HostWindow final : public QAbstractNativeEventFilter {
 public:
  // Whether the X server that the environment names answers.
  static bool HasServer();
  // Null where there is no such window, or no X server.
  static std::unique_ptr<HostWindow> Of(std::uint64_t number);
  ~HostWindow() override;
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  QWindow& Window() { return *window_; }
  // Logical pixels; as many as cover it, where it has no whole number of them.
  QSize Size() const;
  double Fineness() const;
  // When it has another size, and when it has gone.
  void OnResized(std::function<void()> handler) { resized_ = std::move(handler); }
  void OnGone(std::function<void()> handler) { gone_ = std::move(handler); }

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  HostWindow(std::uint32_t number, QWindow& window);
  std::uint32_t number_;
  std::unique_ptr<QWindow> window_;
  QSize size_;  // the server's pixels
  std::function<void()> resized_;
  std::function<void()> gone_;
};

}  // namespace pixorra
