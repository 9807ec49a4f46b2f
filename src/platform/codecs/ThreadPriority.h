// The priority of this back end's threads.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace pixorra {

// The calling thread gives way to the program's own: who waits for a photo must not wait for the ones after it too.
inline void LowerOwnPriority() {
  constexpr int Lower = 10;
  setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), Lower);
}

}  // namespace pixorra
