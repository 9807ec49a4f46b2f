// Errors: number and description, and statements run with errors ignored.
#include <gtest/gtest.h>
#include <stdexcept>

#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

TEST(Errors, KnownNumbersHaveTheirDescriptions) {
  EXPECT_EQ(ErrorDescription(error::Overflow), "Overflow");
  EXPECT_EQ(ErrorDescription(error::FileNotFound), "File not found");
  EXPECT_EQ(ErrorDescription(error::PathAccess), "Path/File access error");
  EXPECT_EQ(ErrorDescription(error::Printer), "Printer error");
}

TEST(Errors, AnUnknownNumberHasACommonDescription) {
  EXPECT_EQ(ErrorDescription(9999), "Application-defined or object-defined error");
}

TEST(Errors, AnErrorCarriesItsNumberAndEitherDescription) {
  const RuntimeError own(error::PathNotFound);
  EXPECT_EQ(own.Number(), 76);
  EXPECT_EQ(own.Description(), "Path not found");
  const RuntimeError given(error::PathNotFound, "no such card");
  EXPECT_EQ(given.Description(), "no such card");
}

TEST(ErrorsIgnored, TellsTheNumberOfTheErrorRaised) {
  EXPECT_EQ(ErrorsIgnored([] { throw RuntimeError(error::DiskFull); }), 61);
}

TEST(ErrorsIgnored, TellsZeroAfterAStatementThatWentWell) {
  bool ran = false;
  EXPECT_EQ(ErrorsIgnored([&ran] { ran = true; }), 0);
  EXPECT_TRUE(ran);
}

TEST(ErrorsIgnored, CountsRunningOutOfMemoryAsErrorSeven) {
  EXPECT_EQ(ErrorsIgnored([] { throw std::bad_alloc(); }), 7);
}

TEST(ErrorsIgnored, LetsAnythingElseThrough) {
  EXPECT_THROW(ErrorsIgnored([] { throw std::logic_error("a bug"); }), std::logic_error);
}

}  // namespace
}  // namespace pixorra
