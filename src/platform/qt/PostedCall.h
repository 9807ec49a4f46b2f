// A call that is put off until control is back in the event loop.
#pragma once

#include <QObject>
#include <functional>

namespace pixorra {

class PostedCall final : public QObject {
 public:
  explicit PostedCall(std::function<void()> call) : call_(std::move(call)) {}
  // Once, however often it is asked for before it runs; not at all when this has gone by then.
  void Post();
  bool event(QEvent* event) override;

 private:
  std::function<void()> call_;
  bool posted_ = false;
};

}  // namespace pixorra
