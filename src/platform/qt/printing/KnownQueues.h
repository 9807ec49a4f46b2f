// The queues of the print system as they were a moment ago.
#pragma once

#include <QElapsedTimer>
#include <string>
#include <vector>

#include "platform/qt/printing/CupsServer.h"

namespace pixorra {

class KnownQueues {
 public:
  explicit KnownQueues(const CupsPatience& patience) : patience_(patience) {}

  // Asks the print system, unless it has been asked a moment ago, or did not answer not long ago. While it does not
  // answer, or does not list them, they are those of the last answer.
  const std::vector<CupsQueue>& Look();
  // Did it list them when it was last asked?
  bool Answered() const { return answers_; }
  // The system's default; empty where it has none. Looks.
  std::string Default();
  // The default, or else the first one. Empty without queues. Looks.
  std::string DefaultOrFirst();
  bool Has(const std::string& name);

 private:
  CupsPatience patience_;
  std::vector<CupsQueue> queues_;
  QElapsedTimer since_;
  bool answers_ = false;
  double holds_ = 0;  // seconds
};

}  // namespace pixorra
