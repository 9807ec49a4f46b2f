// Calls that come into the program's thread by the event loop.
#pragma once

#include <QObject>

#include "platform/services/Posting.h"

namespace pixorra {

class QtBackend;

class QtPosting final : public Posting {
 public:
  explicit QtPosting(QtBackend& backend) : backend_(backend) {}
  void Post(std::function<void()> call) override;

 private:
  QtBackend& backend_;
  QObject receiver_;
};

}  // namespace pixorra
