#include "platform/posix/ErrorTrace.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// "src/base/cDIBsection.cpp:135: ignores error 53 (File not found)".
void Print(int number, const std::source_location& where) {
  std::fprintf(stderr, "%s:%u: ignores error %d (%s)\n", where.file_name(), static_cast<unsigned>(where.line()), number,
               ErrorDescription(number).c_str());
}

}  // namespace

void TraceIgnoredErrorsIfAsked() {
  const char* asked = std::getenv("PIXORRA_TRACE_ERRORS");
  if (asked != nullptr && *asked != '\0') SetIgnoredErrorHook(Print);
}

}  // namespace pixorra
