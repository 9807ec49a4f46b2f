#include "platform/qt/printing/CupsServer.h"

#include <array>
#include <cups/cups.h>

#include "platform/qt/printing/CupsConnection.h"
#include "platform/qt/printing/CupsSubmission.h"

namespace pixorra {

namespace {

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

class HttpCupsServer final : public CupsServer {
 public:
  HttpCupsServer(CupsOwned<http_t> connection, const CupsPatience& patience)
      : connection_(std::move(connection)), patience_(patience) {}

  bool Answers() {
    return AskCups(connection_.get(), CupsOwned<ipp_t>(ippNewRequest(IPP_OP_CUPS_GET_DEFAULT)), "/") != nullptr;
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
    auto question = CupsQueueQuestion(IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
    ippAddStrings(question.get(), IPP_TAG_OPERATION, IPP_CONST_TAG(IPP_TAG_KEYWORD), "requested-attributes",
                  static_cast<int>(Wanted.size()), nullptr, Wanted.data());
    const auto answer = AskCups(connection_.get(), std::move(question), "/");
    QueueState state;
    const ipp_status_t status = CupsStatusOf(answer);
    if (!IsCupsYes(status)) {
      // One that was found on the network has no queue yet; it gets one with its first document. Any further question
      // to a server that hangs takes minutes.
      state.Answers = status == IPP_STATUS_ERROR_NOT_FOUND;
      state.Exists = state.Answers && FindCupsQueue(connection_.get(), queue) != nullptr;
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

  int Submit(const std::string& queue, const std::string& title, const PrintOptions& options, QIODevice& document,
             const std::function<void()>& idle) override {
    return CupsSubmission(connection_.get(), patience_, queue, idle).Send(title, options, document);
  }

 private:
  CupsOwned<http_t> connection_;
  CupsPatience patience_;
};

}  // namespace

std::unique_ptr<CupsServer> CupsServer::Reach(const CupsPatience& patience) {
  auto connection = ConnectToCups(patience);
  if (connection == nullptr) return nullptr;
  auto server = std::make_unique<HttpCupsServer>(std::move(connection), patience);
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
