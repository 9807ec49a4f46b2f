// What a back end must offer so that its session is held to the contract. Each test program that builds these tests
// defines MakeContractSession for its own back end.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/services/Session.h"

namespace pixorra {

class ContractSession {
 public:
  virtual ~ContractSession() = default;

  virtual Session& Get() = 0;
  // Why the screen stays on, as the desktop has it once there are so many reasons; what there is after a while else.
  virtual std::vector<std::string> AwakeFor(std::size_t count) = 0;
  // The user of the desktop wants no animations.
  virtual void TurnAnimationsOff() = 0;
};

std::unique_ptr<ContractSession> MakeContractSession();

}  // namespace pixorra
