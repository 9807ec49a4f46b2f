#include "utility/MemStats.h"

#include <algorithm>
#include <optional>

#include "platform/services/Memory.h"

namespace pixorra {

namespace {

constexpr std::int64_t Plenty = std::int64_t{1} << 30;  // bytes
constexpr std::int16_t NotMeasured = 90;
constexpr std::int16_t LeastFree = 20;

}  // namespace

// Deliberate: windows and their parts cannot run out on this kind of host.
std::int16_t FreeSystemResources() {
  return NotMeasured;
}

std::int16_t FreeUserResources() {
  return NotMeasured;
}

std::int16_t FreeGraphicResources(Memory& memory) {
  const std::optional<std::int64_t> available = memory.Available();
  if (!available) return NotMeasured;
  return static_cast<std::int16_t>(std::clamp<std::int64_t>(*available, 0, Plenty) * 100 / Plenty);
}

bool ResourcesOk(Memory& memory) {
  return FreeSystemResources() >= LeastFree && FreeUserResources() >= LeastFree &&
         FreeGraphicResources(memory) >= LeastFree;
}

}  // namespace pixorra
