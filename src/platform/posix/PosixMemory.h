// The host's memory, and what the limits of this program's control groups leave of it.
#pragma once

#include <string>
#include <utility>

#include "platform/services/Memory.h"

namespace pixorra {

class PosixMemory final : public Memory {
 public:
  // `root` is put ahead of the host paths that are read.
  explicit PosixMemory(std::string root = {}) : root_(std::move(root)) {}
  std::optional<std::int64_t> Available() override;

 private:
  std::string root_;
};

}  // namespace pixorra
