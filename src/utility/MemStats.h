// How much of what it runs on the system has left.
#pragma once

#include <cstdint>

namespace pixorra {

class Memory;

// Percent that is free. Only the last one is measured: memory for pictures is all that can run low here.
std::int16_t FreeSystemResources();
std::int16_t FreeUserResources();
// Of one gibibyte of memory; 100 where more than that is available, 90 where the host does not say.
std::int16_t FreeGraphicResources(Memory& memory);

// False where one of them is below 20.
bool ResourcesOk(Memory& memory);

}  // namespace pixorra
