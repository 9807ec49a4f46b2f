// The memory that programs can still have.
#pragma once

#include <cstdint>
#include <optional>

namespace pixorra {

class Memory {
 public:
  virtual ~Memory() = default;
  // Bytes that this program could take now without another one having to give any back; nothing where the host does
  // not say. Costs little: it may be asked several times a second.
  virtual std::optional<std::int64_t> Available() = 0;
};

}  // namespace pixorra
