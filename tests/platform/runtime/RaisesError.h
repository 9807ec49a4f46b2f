// Which error a statement raises, for tests.
#pragma once

#include "platform/runtime/Errors.h"

namespace pixorra {

// The number of the RuntimeError that the statement throws, 0 where it throws none.
template <typename Statement>
int ErrorOf(Statement&& statement) {
  try {
    statement();
  } catch (const RuntimeError& e) {
    return e.Number();
  }
  return 0;
}

}  // namespace pixorra
