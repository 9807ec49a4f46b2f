#include "platform/qt/CupsServer.h"

#include <QIODevice>
#include <array>
#include <cups/cups.h>

#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr int ConnectMilliseconds = 3000;
constexpr double AnswerSeconds = 5;

struct Free {
  void operator()(http_t* connection) const { httpClose(connection); }
  void operator()(ipp_t* message) const { ippDelete(message); }
  void operator()(cups_dest_t* queue) const { cupsFreeDests(1, queue); }
  void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
template <typename Thing>
using Owned = std::unique_ptr<Thing, Free>;

// "queue/instance", as the toolkit spells a queue with settings of its own.
std::pair<std::string, std::string> Parts(const std::string& name) {
  const std::size_t slash = name.find('/');
  if (slash == std::string::npos) return {name, {}};
  return {name.substr(0, slash), name.substr(slash + 1)};
}

std::string TextOf(ipp_t* answer, const char* name) {
  ipp_attribute_t* const attribute = ippFindAttribute(answer, name, IPP_TAG_ZERO);
  const char* const text = attribute != nullptr ? ippGetString(attribute, 0, nullptr) : nullptr;
  return text != nullptr ? text : std::string();
}

int DotsOf(ipp_t* answer) {
  ipp_attribute_t* const attribute = ippFindAttribute(answer, "printer-resolution-default", IPP_TAG_RESOLUTION);
  if (attribute == nullptr) return 0;
  int down = 0;
  ipp_res_t unit = IPP_RES_PER_INCH;
  const int across = ippGetResolution(attribute, 0, &down, &unit);
  constexpr double InchInCentimetres = 2.54;
  return unit == IPP_RES_PER_CM ? static_cast<int>(across * InchInCentimetres) : across;
}

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

[[noreturn]] void Refuse(const std::string& queue) {
  const char* const said = cupsLastErrorString();
  std::string reason = "The printer \"" + queue + "\" did not take the document";
  if (said != nullptr && *said != '\0') reason.append(": ").append(said);
  throw RuntimeError(error::Printer, reason);
}

class HttpCupsServer final : public CupsServer {
 public:
  explicit HttpCupsServer(Owned<http_t> connection) : connection_(std::move(connection)) {
    httpSetTimeout(
        connection_.get(), AnswerSeconds, [](http_t*, void*) { return 0; }, nullptr);
  }

  bool Answers() {
    const Owned<ipp_t> answer(cupsDoRequest(connection_.get(), ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"));
    return answer != nullptr;
  }

  std::optional<std::vector<CupsQueue>> Queues() override {
    cups_dest_t* all = nullptr;
    const int count = cupsGetDests2(connection_.get(), &all);
    // A server without printers calls that "not found".
    if (count == 0 && cupsLastError() > IPP_STATUS_OK_CONFLICTING && cupsLastError() != IPP_STATUS_ERROR_NOT_FOUND) {
      return std::nullopt;
    }
    std::vector<CupsQueue> queues;
    for (int i = 0; i < count; ++i) {
      const cups_dest_t& each = all[i];
      const std::string instance = each.instance != nullptr ? std::string("/") + each.instance : std::string();
      queues.push_back({each.name + instance, each.is_default != 0});
    }
    cupsFreeDests(count, all);
    return queues;
  }

  QueueState StateOf(const std::string& queue) override {
    constexpr std::array Wanted = {"printer-state", "printer-state-message", "printer-is-accepting-jobs",
                                   "printer-make-and-model", "printer-resolution-default"};
    std::array<char, HTTP_MAX_URI> uri{};
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr, "localhost",
                     ippPort(), "/printers/%s", Parts(queue).first.c_str());
    ipp_t* const question = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    ippAddString(question, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    ippAddStrings(question, IPP_TAG_OPERATION, IPP_CONST_TAG(IPP_TAG_KEYWORD), "requested-attributes",
                  static_cast<int>(Wanted.size()), nullptr, Wanted.data());
    const Owned<ipp_t> answer(cupsDoRequest(connection_.get(), question, "/"));
    QueueState state;
    const ipp_status_t status = answer != nullptr ? ippGetStatusCode(answer.get()) : IPP_STATUS_ERROR_INTERNAL;
    if (status > IPP_STATUS_OK_CONFLICTING) {
      // One that was found on the network has no queue yet; it gets one with its first document. Any further question
      // to a server that hangs takes minutes.
      state.Answers = status == IPP_STATUS_ERROR_NOT_FOUND;
      state.Exists = state.Answers && Find(queue) != nullptr;
      return state;
    }
    state.Exists = true;
    if (ipp_attribute_t* const is = ippFindAttribute(answer.get(), "printer-state", IPP_TAG_ENUM)) {
      state.Stopped = ippGetInteger(is, 0) == IPP_PSTATE_STOPPED;
    }
    if (ipp_attribute_t* const is = ippFindAttribute(answer.get(), "printer-is-accepting-jobs", IPP_TAG_BOOLEAN)) {
      state.Accepts = ippGetBoolean(is, 0) != 0;
    }
    state.Message = TextOf(answer.get(), "printer-state-message");
    state.Model = TextOf(answer.get(), "printer-make-and-model");
    state.DotsPerInch = DotsOf(answer.get());
    return state;
  }

  int Submit(const std::string& queue, const std::string& title, const PrintOptions& options,
             QIODevice& document) override {
    const Owned<cups_dest_t> to = Find(queue);
    if (to == nullptr) Refuse(queue);
    const Owned<cups_dinfo_t> info(cupsCopyDestInfo(connection_.get(), to.get()));
    if (info == nullptr) Refuse(queue);
    const Options chosen(options);
    int job = 0;
    if (cupsCreateDestJob(connection_.get(), to.get(), info.get(), &job, title.c_str(), chosen.Count(), chosen.All()) >
        IPP_STATUS_OK_CONFLICTING) {
      Refuse(queue);
    }
    if (!Send(to.get(), info.get(), job, title, document)) {
      const std::string reason = cupsLastErrorString();
      cupsCancelDestJob(connection_.get(), to.get(), job);
      throw RuntimeError(error::Printer, "The document did not reach the printer \"" + queue + "\": " + reason);
    }
    return job;
  }

 private:
  Owned<cups_dest_t> Find(const std::string& queue) {
    const auto [name, instance] = Parts(queue);
    return Owned<cups_dest_t>(
        cupsGetNamedDest(connection_.get(), name.c_str(), instance.empty() ? nullptr : instance.c_str()));
  }

  bool Send(cups_dest_t* to, cups_dinfo_t* info, int job, const std::string& title, QIODevice& document) {
    http_status_t status =
        cupsStartDestDocument(connection_.get(), to, info, job, title.c_str(), CUPS_FORMAT_PDF, 0, nullptr, 1);
    std::array<char, 65536> piece{};
    while (status == HTTP_STATUS_CONTINUE) {
      const qint64 count = document.read(piece.data(), static_cast<qint64>(piece.size()));
      if (count < 0) return false;
      if (count == 0) break;
      status = cupsWriteRequestData(connection_.get(), piece.data(), static_cast<std::size_t>(count));
    }
    if (status != HTTP_STATUS_CONTINUE) return false;
    return cupsFinishDestDocument(connection_.get(), to, info) <= IPP_STATUS_OK_CONFLICTING;
  }

  Owned<http_t> connection_;
};

}  // namespace

std::unique_ptr<CupsServer> CupsServer::Reach() {
  Owned<http_t> connection(
      httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, ConnectMilliseconds, nullptr));
  if (connection == nullptr) return nullptr;
  auto server = std::make_unique<HttpCupsServer>(std::move(connection));
  if (!server->Answers()) return nullptr;
  return server;
}

std::string ReasonAgainst(const std::string& queue, const QueueState& state) {
  const std::string printer = "The printer \"" + queue + "\" ";
  if (!state.Answers) return "The print system does not answer";
  if (!state.Exists) return printer + "is not there any more";
  if (!state.Stopped && state.Accepts) return {};
  std::string reason = printer + (state.Stopped ? "is stopped" : "takes no documents now");
  if (!state.Message.empty()) reason.append(": ").append(state.Message);
  return reason;
}

}  // namespace pixorra
