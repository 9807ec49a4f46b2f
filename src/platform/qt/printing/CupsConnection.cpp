#include "platform/qt/printing/CupsConnection.h"

#include <array>

namespace pixorra {

namespace {

CupsOwned<ipp_t> Question(ipp_op_t operation, const char* subject, const std::string& resource) {
  std::array<char, HTTP_MAX_URI> uri{};
  httpAssembleURI(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr, "localhost", ippPort(),
                  resource.c_str());
  CupsOwned<ipp_t> question(ippNewRequest(operation));
  ippAddString(question.get(), IPP_TAG_OPERATION, IPP_TAG_URI, subject, nullptr, uri.data());
  ippAddString(question.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
  return question;
}

}  // namespace

CupsOwned<http_t> ConnectToCups(const CupsPatience& patience) {
  CupsOwned<http_t> connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                            patience.ConnectMilliseconds, nullptr));
  if (connection != nullptr) LimitCupsAnswers(connection.get(), patience);
  return connection;
}

void LimitCupsAnswers(http_t* connection, const CupsPatience& patience) {
  httpSetTimeout(
      connection, patience.AnswerSeconds, [](http_t*, void*) { return 0; }, nullptr);
}

CupsName::CupsName(const std::string& name) : Queue(name) {
  const std::size_t slash = name.find('/');
  if (slash == std::string::npos) return;
  Queue = name.substr(0, slash);
  Instance = name.substr(slash + 1);
}

CupsOwned<cups_dest_t> FindCupsQueue(http_t* connection, const std::string& name) {
  const CupsName parts(name);
  return CupsOwned<cups_dest_t>(
      cupsGetNamedDest(connection, parts.Queue.c_str(), parts.Instance.empty() ? nullptr : parts.Instance.c_str()));
}

std::string CupsQueueResource(const std::string& name) {
  return "/printers/" + CupsName(name).Queue;
}

CupsOwned<ipp_t> CupsQueueQuestion(ipp_op_t operation, const std::string& name) {
  return Question(operation, "printer-uri", CupsQueueResource(name));
}

CupsOwned<ipp_t> CupsJobQuestion(ipp_op_t operation, int job) {
  return Question(operation, "job-uri", "/jobs/" + std::to_string(job));
}

CupsOwned<ipp_t> AskCups(http_t* connection, CupsOwned<ipp_t> question, const std::string& resource) {
  return CupsOwned<ipp_t>(cupsDoRequest(connection, question.release(), resource.c_str()));
}

ipp_status_t CupsStatusOf(const CupsOwned<ipp_t>& answer) {
  return answer != nullptr ? ippGetStatusCode(answer.get()) : IPP_STATUS_ERROR_INTERNAL;
}

bool IsCupsYes(ipp_status_t status) {
  return status <= IPP_STATUS_OK_CONFLICTING;
}

}  // namespace pixorra
