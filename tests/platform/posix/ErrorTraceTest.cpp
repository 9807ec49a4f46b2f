// The trace of ignored errors that developers can ask for.
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include "platform/posix/ErrorTrace.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

// What is printed when an error is ignored while the variable has this value.
std::string PrintedWith(const char* value) {
  setenv("PIXORRA_TRACE_ERRORS", value, 1);
  const AtExit reset([] {
    unsetenv("PIXORRA_TRACE_ERRORS");
    SetIgnoredErrorHook(nullptr);
  });
  TraceIgnoredErrorsIfAsked();
  testing::internal::CaptureStderr();
  ErrorsIgnored([] { throw RuntimeError(error::FileNotFound); });
  return testing::internal::GetCapturedStderr();
}

TEST(ErrorTrace, SaysWhichErrorIsIgnoredAndWhere) {
  const std::string printed = PrintedWith("1");
  EXPECT_NE(printed.find("ErrorTraceTest.cpp:"), std::string::npos) << printed;
  EXPECT_NE(printed.find("ignores error 53 (File not found)\n"), std::string::npos) << printed;
}

TEST(ErrorTrace, IsSilentUnlessItIsAskedFor) {
  EXPECT_EQ(PrintedWith(""), "");
}

}  // namespace
}  // namespace pixorra
