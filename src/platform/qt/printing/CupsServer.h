// The print system's server: its queues, what state they are in, and documents for them. Every answer is waited for a
// few seconds at most, but for that to a document.
#pragma once

#include <functional>
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

// How long the server is waited for, and how long its list of queues is good.
struct CupsPatience {
  int ConnectMilliseconds = 3000;
  double AnswerSeconds = 5;
  // For room for more of a document, and for the answer to a whole one.
  double DocumentSeconds = 60;
  double ListSeconds = 2;
};

class CupsServer {
 public:
  // Null where none answers.
  static std::unique_ptr<CupsServer> Reach(const CupsPatience& patience = {});
  virtual ~CupsServer() = default;

  // Nothing where the server does not list them.
  virtual std::optional<std::vector<CupsQueue>> Queues() = 0;
  virtual QueueState StateOf(const std::string& queue) = 0;
  // Gives the number of the job. `idle` runs every now and then until the document is there. Raises Printer with a
  // reason: the job is cancelled then, unless the server does not answer any more, which the reason says. No other
  // question can be asked after that.
  virtual int Submit(const std::string& queue, const std::string& title, const PrintOptions& options,
                     QIODevice& document, const std::function<void()>& idle) = 0;
};

// Why a queue takes no document, for a person; empty where it takes one.
std::string ReasonAgainst(const std::string& queue, const QueueState& state);

}  // namespace pixorra
