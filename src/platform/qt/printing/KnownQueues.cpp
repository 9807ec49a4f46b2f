#include "platform/qt/printing/KnownQueues.h"

#include <algorithm>
#include <utility>

namespace pixorra {

namespace {

// Seconds. A server that hangs costs a few of them each time.
constexpr double SilenceHolds = 60;

double SecondsOf(const QElapsedTimer& timer) {
  return static_cast<double>(timer.elapsed()) / 1000;
}

}  // namespace

const std::vector<CupsQueue>& KnownQueues::Look() {
  if (since_.isValid() && SecondsOf(since_) < holds_) return queues_;
  QElapsedTimer took;
  took.start();
  const auto server = CupsServer::Reach(patience_);
  auto listed = server != nullptr ? server->Queues() : std::nullopt;
  answers_ = listed.has_value();
  if (listed) queues_ = std::move(*listed);
  const bool hangs = !answers_ && SecondsOf(took) > patience_.AnswerSeconds / 2;
  holds_ = hangs ? SilenceHolds : patience_.ListSeconds;
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
