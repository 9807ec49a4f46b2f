// A connection to the print system's server, and questions that are asked over it.
#pragma once

#include <cups/cups.h>
#include <memory>
#include <string>

#include "platform/qt/printing/CupsServer.h"

namespace pixorra {

struct FreeCups {
  void operator()(http_t* connection) const { httpClose(connection); }
  void operator()(ipp_t* message) const { ippDelete(message); }
  void operator()(cups_dest_t* queue) const { cupsFreeDests(1, queue); }
  void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
template <typename Thing>
using CupsOwned = std::unique_ptr<Thing, FreeCups>;

// Null where none answers.
CupsOwned<http_t> ConnectToCups(const CupsPatience& patience);
// No answer is waited for any longer than that. So is every connection at first.
void LimitCupsAnswers(http_t* connection, const CupsPatience& patience);

// "queue/instance", as the toolkit spells a queue with settings of its own.
struct CupsName {
  explicit CupsName(const std::string& name);
  std::string Queue;
  std::string Instance;
};
// Null where there is no such queue, nor a printer of that name on the network.
CupsOwned<cups_dest_t> FindCupsQueue(http_t* connection, const std::string& name);

// Where questions about a queue of the server's own go to.
std::string CupsQueueResource(const std::string& name);
// A question about a queue, or about a job.
CupsOwned<ipp_t> CupsQueueQuestion(ipp_op_t operation, const std::string& name);
CupsOwned<ipp_t> CupsJobQuestion(ipp_op_t operation, int job);

// Null where there is no answer.
CupsOwned<ipp_t> AskCups(http_t* connection, CupsOwned<ipp_t> question, const std::string& resource);
// An error where there is no answer.
ipp_status_t CupsStatusOf(const CupsOwned<ipp_t>& answer);
bool IsCupsYes(ipp_status_t status);

}  // namespace pixorra
