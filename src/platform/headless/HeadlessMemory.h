// As much memory as a test says.
#pragma once

#include "platform/services/Memory.h"

namespace pixorra {

class HeadlessMemory : public Memory {
 public:
  std::optional<std::int64_t> Available() override {
    ++asked_;
    return available_;
  }

  void SetAvailable(std::optional<std::int64_t> bytes) { available_ = bytes; }
  int Asked() const { return asked_; }

 private:
  std::optional<std::int64_t> available_ = std::int64_t{4} * 1024 * 1024 * 1024;
  int asked_ = 0;
};

}  // namespace pixorra
