// What a message box says of an error that nobody has met.
#pragma once

#include <string>

#include "platform/runtime/Errors.h"

namespace pixorra {

// "Error 75: Path/File access error".
inline std::string ErrorReport(const RuntimeError& error) {
  return "Error " + std::to_string(error.Number()) + ": " + error.Description();
}

}  // namespace pixorra
