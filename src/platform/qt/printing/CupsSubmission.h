// A document on its way to a queue of the print system.
#pragma once

#include <functional>
#include <string>

#include "platform/qt/printing/CupsConnection.h"
#include "platform/qt/printing/CupsServer.h"

class QIODevice;

namespace pixorra {

class CupsSubmission {
 public:
  // Over a connection that outlives it, and is of no use after a failure.
  CupsSubmission(http_t* connection, const CupsPatience& patience, std::string queue, std::function<void()> idle);

  // As CupsServer::Submit.
  int Send(const std::string& title, const PrintOptions& options, QIODevice& document);

 private:
  enum class Told { Whole, Refused, Nothing };  // by the server, of the document
  class IdleWaits;

  int CreateJob(const std::string& title, const PrintOptions& options);
  int CreateJobOnTheNetwork(const std::string& title, const PrintOptions& options);
  Told SendDocument(int job, const std::string& title, QIODevice& document);
  bool SendBytes(QIODevice& document, IdleWaits& waits);
  bool WaitForAnswer(IdleWaits& waits);
  // The server has said nothing: asks it anew what it has of the job. Raises unless it has all of it.
  void FindOut(int job);
  [[noreturn]] void RaiseNotReached(const std::string& reason);

  http_t* connection_;
  CupsPatience patience_;
  std::string queue_;
  std::function<void()> idle_;
};

}  // namespace pixorra
