// One entry as a libFuzzer target; PIXORRA_FUZZ_ENTRY names it.
#include <cstddef>

#include "tests/fuzz/Entries.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  pixorra::fuzz::PIXORRA_FUZZ_ENTRY({data, size});
  return 0;
}
