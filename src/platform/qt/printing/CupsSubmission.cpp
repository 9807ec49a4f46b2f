#include "platform/qt/printing/CupsSubmission.h"

#include <QElapsedTimer>
#include <QIODevice>
#include <array>
#include <poll.h>
#include <utility>

#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr int TurnMilliseconds = 20;  // after which what is idle runs

class Options {
 public:
  explicit Options(const PrintOptions& options) {
    for (const auto& [name, value] : options) count_ = cupsAddOption(name.c_str(), value.c_str(), count_, &all_);
  }
  ~Options() { cupsFreeOptions(count_, all_); }
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;
  int Count() const { return count_; }
  cups_option_t* All() const { return all_; }

 private:
  int count_ = 0;
  cups_option_t* all_ = nullptr;
};

std::string LastReason() {
  const char* const said = cupsLastErrorString();
  return said != nullptr ? said : std::string();
}

[[noreturn]] void Refuse(const std::string& queue) {
  std::string reason = "The printer \"" + queue + "\" did not take the document";
  if (const std::string said = LastReason(); !said.empty()) reason.append(": ").append(said);
  throw RuntimeError(error::Printer, reason);
}

bool Cancel(http_t* connection, int job) {
  return IsCupsYes(CupsStatusOf(AskCups(connection, CupsJobQuestion(IPP_OP_CANCEL_JOB, job), "/jobs/")));
}

enum class ServerHas { All, Nothing, Unknown };

// Cancels a job that still waits for its document: a server keeps nothing of one that did not arrive whole.
ServerHas TakeBack(http_t* connection, int job) {
  const auto answer = AskCups(connection, CupsJobQuestion(IPP_OP_GET_JOB_ATTRIBUTES, job), "/jobs/");
  if (!IsCupsYes(CupsStatusOf(answer))) return ServerHas::Unknown;
  ipp_attribute_t* const documents = ippFindAttribute(answer.get(), "number-of-documents", IPP_TAG_INTEGER);
  if (documents != nullptr && ippGetInteger(documents, 0) > 0) return ServerHas::All;
  ipp_attribute_t* const state = ippFindAttribute(answer.get(), "job-state", IPP_TAG_ENUM);
  switch (state != nullptr ? ippGetInteger(state, 0) : 0) {
    // Done with it, a server may have thrown it away.
    case IPP_JSTATE_PENDING:
    case IPP_JSTATE_PROCESSING:
    case IPP_JSTATE_STOPPED:
    case IPP_JSTATE_COMPLETED:
      return ServerHas::All;
    // It waits for its document.
    case IPP_JSTATE_HELD:
      return Cancel(connection, job) ? ServerHas::Nothing : ServerHas::Unknown;
    case IPP_JSTATE_CANCELED:
    case IPP_JSTATE_ABORTED:
      return ServerHas::Nothing;
    default:
      return ServerHas::Unknown;
  }
}

}  // namespace

// For its lifetime whatever the library waits for, between the parts of a piece too, is waited for with what is idle
// running, and as long as a document may take.
class CupsSubmission::IdleWaits {
 public:
  IdleWaits(http_t* connection, const CupsPatience& patience, const std::function<void()>& idle)
      : connection_(connection), patience_(patience), idle_(idle) {
    waited_.start();
    turn_.start();
    httpSetTimeout(
        connection_, TurnMilliseconds / 1000.0,
        [](http_t*, void* waits) { return static_cast<IdleWaits*>(waits)->Turn() ? 1 : 0; }, this);
  }
  ~IdleWaits() { LimitCupsAnswers(connection_, patience_); }
  IdleWaits(const IdleWaits&) = delete;
  IdleWaits& operator=(const IdleWaits&) = delete;

  // Something has arrived at the server: the time for more begins anew.
  void GetsOn() { waited_.start(); }
  // False where it has taken too long.
  bool Turn() {
    idle_();
    turn_.start();
    return static_cast<double>(waited_.elapsed()) <= patience_.DocumentSeconds * 1000;
  }
  bool IsTurnDue() const { return turn_.elapsed() >= TurnMilliseconds; }

 private:
  http_t* connection_;
  const CupsPatience& patience_;
  const std::function<void()>& idle_;
  QElapsedTimer waited_;
  QElapsedTimer turn_;
};

CupsSubmission::CupsSubmission(http_t* connection, const CupsPatience& patience, std::string queue,
                               std::function<void()> idle)
    : connection_(connection), patience_(patience), queue_(std::move(queue)), idle_(std::move(idle)) {}

int CupsSubmission::Send(const std::string& title, const PrintOptions& options, QIODevice& document) {
  const int job = CreateJob(title, options);
  const Told told = SendDocument(job, title, document);
  if (told == Told::Whole) return job;
  if (told == Told::Nothing) {
    FindOut(job);
    return job;
  }
  const std::string reason = LastReason();
  Cancel(connection_, job);
  RaiseNotReached(reason);
}

int CupsSubmission::CreateJob(const std::string& title, const PrintOptions& options) {
  auto question = CupsQueueQuestion(IPP_OP_CREATE_JOB, queue_);
  ippAddString(question.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, title.c_str());
  const Options chosen(options);
  for (const ipp_tag_t part : {IPP_TAG_OPERATION, IPP_TAG_JOB, IPP_TAG_SUBSCRIPTION}) {
    cupsEncodeOptions2(question.get(), chosen.Count(), chosen.All(), part);
  }
  const auto answer = AskCups(connection_, std::move(question), CupsQueueResource(queue_));
  const ipp_status_t status = CupsStatusOf(answer);
  if (status == IPP_STATUS_ERROR_NOT_FOUND) return CreateJobOnTheNetwork(title, options);
  if (!IsCupsYes(status)) Refuse(queue_);
  ipp_attribute_t* const number = ippFindAttribute(answer.get(), "job-id", IPP_TAG_INTEGER);
  if (number == nullptr) Refuse(queue_);
  return ippGetInteger(number, 0);
}

// A printer that was found on the network: the print system makes a queue for it.
int CupsSubmission::CreateJobOnTheNetwork(const std::string& title, const PrintOptions& options) {
  const auto to = FindCupsQueue(connection_, queue_);
  if (to == nullptr) Refuse(queue_);
  const CupsOwned<cups_dinfo_t> info(cupsCopyDestInfo(connection_, to.get()));
  if (info == nullptr) Refuse(queue_);
  const Options chosen(options);
  int job = 0;
  if (!IsCupsYes(
          cupsCreateDestJob(connection_, to.get(), info.get(), &job, title.c_str(), chosen.Count(), chosen.All()))) {
    Refuse(queue_);
  }
  return job;
}

CupsSubmission::Told CupsSubmission::SendDocument(int job, const std::string& title, QIODevice& document) {
  const auto question = CupsJobQuestion(IPP_OP_SEND_DOCUMENT, job);
  ippAddString(question.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "document-name", nullptr, title.c_str());
  ippAddString(question.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", nullptr, CUPS_FORMAT_PDF);
  ippAddBoolean(question.get(), IPP_TAG_OPERATION, "last-document", 1);
  const std::string resource = CupsQueueResource(queue_);
  IdleWaits waits(connection_, patience_, idle_);
  const http_status_t begun = cupsSendRequest(connection_, question.get(), resource.c_str(), CUPS_LENGTH_VARIABLE);
  if (begun != HTTP_STATUS_CONTINUE || !SendBytes(document, waits)) return Told::Nothing;
  // Its end.
  if (httpWrite2(connection_, "", 0) < 0 || !WaitForAnswer(waits)) return Told::Nothing;
  const CupsOwned<ipp_t> answer(cupsGetResponse(connection_, resource.c_str()));
  if (answer == nullptr) return Told::Nothing;
  return IsCupsYes(CupsStatusOf(answer)) ? Told::Whole : Told::Refused;
}

bool CupsSubmission::SendBytes(QIODevice& document, IdleWaits& waits) {
  std::array<char, 16384> piece{};
  while (true) {
    const qint64 count = document.read(piece.data(), static_cast<qint64>(piece.size()));
    if (count <= 0) return count == 0;
    if (cupsWriteRequestData(connection_, piece.data(), static_cast<std::size_t>(count)) != HTTP_STATUS_CONTINUE) {
      return false;
    }
    if (waits.IsTurnDue()) waits.Turn();
    waits.GetsOn();
  }
}

bool CupsSubmission::WaitForAnswer(IdleWaits& waits) {
  waits.GetsOn();
  // The library's own way to wait takes what is left of earlier answers for this one.
  pollfd line{httpGetFd(connection_), POLLIN, 0};
  while (poll(&line, 1, TurnMilliseconds) == 0) {
    if (!waits.Turn()) return false;
  }
  return true;
}

void CupsSubmission::FindOut(int job) {
  httpShutdown(connection_);
  if (const auto anew = ConnectToCups(patience_)) {
    const ServerHas has = TakeBack(anew.get(), job);
    if (has == ServerHas::All) return;
    if (has == ServerHas::Nothing) RaiseNotReached("the connection broke off");
  }
  throw RuntimeError(error::Printer, "The print system does not answer any more. The printer \"" + queue_ +
                                         "\" may print the document all the same");
}

void CupsSubmission::RaiseNotReached(const std::string& reason) {
  throw RuntimeError(error::Printer, "The document did not reach the printer \"" + queue_ + "\": " + reason);
}

}  // namespace pixorra
