#include "platform/qt/KnownQueues.h"

#include <algorithm>
#include <utility>

namespace pixorra {

namespace {

// Milliseconds. A server that hangs costs a few seconds each time.
constexpr qint64 AnswerHolds = 2000;
constexpr qint64 SilenceHolds = 60000;

}  // namespace

const std::vector<CupsQueue>& KnownQueues::Look() {
  if (since_.isValid() && since_.elapsed() < holds_) return queues_;
  QElapsedTimer took;
  took.start();
  const auto server = CupsServer::Reach();
  auto listed = server != nullptr ? server->Queues() : std::nullopt;
  answers_ = listed.has_value();
  if (listed) queues_ = std::move(*listed);
  const bool hangs = !answers_ && took.elapsed() > AnswerHolds;
  holds_ = hangs ? SilenceHolds : AnswerHolds;
  since_.start();
  return queues_;
}

std::string KnownQueues::Default() {
  const std::vector<CupsQueue>& queues = Look();
  const auto chosen = std::find_if(queues.begin(), queues.end(), [](const CupsQueue& each) { return each.IsDefault; });
  return chosen != queues.end() ? chosen->Name : std::string();
}

std::string KnownQueues::DefaultOrFirst() {
  const std::string chosen = Default();
  return chosen.empty() && !queues_.empty() ? queues_.front().Name : chosen;
}

bool KnownQueues::Has(const std::string& name) {
  const std::vector<CupsQueue>& queues = Look();
  return std::any_of(queues.begin(), queues.end(), [&](const CupsQueue& each) { return each.Name == name; });
}

}  // namespace pixorra
