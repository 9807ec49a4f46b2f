// The print system's server: its queues, what state they are in, and documents for them. Every answer is waited for a
// few seconds at most.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QIODevice;

namespace pixorra {

struct CupsQueue {
  std::string Name;
  bool IsDefault = false;
};

struct QueueState {
  bool Answers = true;  // the server did, when it was asked
  bool Exists = false;
  bool Stopped = false;
  bool Accepts = true;
  std::string Message;  // of the printer, in its own words; often empty
  std::string Model;
  int DotsPerInch = 0;  // 0 where it does not say
};

using PrintOptions = std::vector<std::pair<std::string, std::string>>;

class CupsServer {
 public:
  // Null where none answers.
  static std::unique_ptr<CupsServer> Reach();
  virtual ~CupsServer() = default;

  // Nothing where the server does not list them.
  virtual std::optional<std::vector<CupsQueue>> Queues() = 0;
  virtual QueueState StateOf(const std::string& queue) = 0;
  // Gives the number of the job. Raises Printer with the server's reason; the job is cancelled then.
  virtual int Submit(const std::string& queue, const std::string& title, const PrintOptions& options,
                     QIODevice& document) = 0;
};

// Why a queue takes no document, for a person; empty where it takes one.
std::string ReasonAgainst(const std::string& queue, const QueueState& state);

}  // namespace pixorra
