// The session without a desktop, for the contract.
#include "platform/headless/HeadlessSession.h"
#include "tests/platform/contract/session/ContractSession.h"

namespace pixorra {
namespace {

class HeadlessSessionHost : public ContractSession {
 public:
  Session& Get() override { return session_; }
  std::vector<std::string> AwakeFor(std::size_t) override { return session_.AwakeFor(); }
  void TurnAnimationsOff() override { session_.SetWantsLessMotion(true); }

 private:
  HeadlessSession session_;
};

}  // namespace

std::unique_ptr<ContractSession> MakeContractSession() {
  return std::make_unique<HeadlessSessionHost>();
}

}  // namespace pixorra
