// Errors: number and description, and statements run with errors ignored.
#include <gtest/gtest.h>
#include <optional>
#include <source_location>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

TEST(Errors, KnownNumbersHaveTheirDescriptions) {
  EXPECT_EQ(ErrorDescription(error::Overflow), "Overflow");
  EXPECT_EQ(ErrorDescription(error::FileNotFound), "File not found");
  EXPECT_EQ(ErrorDescription(error::PathAccess), "Path/File access error");
  EXPECT_EQ(ErrorDescription(error::Printer), "Printer error");
  EXPECT_EQ(ErrorDescription(error::DivisionByZero), "Division by zero");
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

TEST(OrElse, IsWhatTheStatementReturns) {
  EXPECT_EQ(OrElse(0, [] { return 7; }), 7);
  EXPECT_EQ(OrElse(std::optional<int>(), [] { return 7; }), 7);
}

TEST(OrElse, IsTheOtherValueWhereTheStatementRaises) {
  const auto raise = []() -> std::string { throw RuntimeError(error::PathAccess); };
  EXPECT_EQ(OrElse(std::string("none"), raise), "none");
  EXPECT_THROW(OrElse(0, []() -> int { throw std::logic_error("a bug"); }), std::logic_error);
}

// What the hook has been called with.
struct Note {
  int Number;
  std::string File;
  unsigned Line;
};
std::vector<Note>& Notes() {
  static std::vector<Note> notes;
  return notes;
}

TEST(IgnoredErrorHook, IsToldNumberAndPlaceOfWhatIsIgnoredAndNothingElse) {
  Notes().clear();
  IgnoredErrorHook before = SetIgnoredErrorHook([](int number, const std::source_location& where) {
    Notes().push_back({number, where.file_name(), where.line()});
  });
  const AtExit reset([before] { SetIgnoredErrorHook(before); });
  ErrorsIgnored([] { throw RuntimeError(error::DiskFull); });
  const unsigned lineBefore = __LINE__ - 1;
  OrElse(0, []() -> int { throw std::bad_alloc(); });
  ErrorsIgnored([] {});
  EXPECT_EQ(OrElse(1, [] { return 2; }), 2);
  ASSERT_EQ(Notes().size(), 2U);
  EXPECT_EQ(Notes()[0].Number, error::DiskFull);
  EXPECT_TRUE(Notes()[0].File.ends_with("ErrorsTest.cpp")) << Notes()[0].File;
  EXPECT_EQ(Notes()[0].Line, lineBefore);
  EXPECT_EQ(Notes()[1].Number, error::OutOfMemory);
  EXPECT_TRUE(Notes()[1].File.ends_with("ErrorsTest.cpp")) << "of who asked, not of the helper: " << Notes()[1].File;
  EXPECT_EQ(Notes()[1].Line, lineBefore + 2);
}

TEST(IgnoredErrorHook, ComesBackFromSettingAnotherOne) {
  const IgnoredErrorHook hook = [](int, const std::source_location&) {};
  EXPECT_EQ(SetIgnoredErrorHook(hook), nullptr);
  EXPECT_EQ(SetIgnoredErrorHook(nullptr), hook);
}

TEST(AtExit, RunsOnceWhenTheBlockEndsHoweverItEnds) {
  int runs = 0;
  {
    const AtExit count([&runs] { ++runs; });
    EXPECT_EQ(runs, 0);
  }
  EXPECT_EQ(runs, 1);
  const auto raises = [&runs] {
    const AtExit count([&runs] { ++runs; });
    throw RuntimeError(error::DiskFull);
  };
  EXPECT_EQ(ErrorsIgnored(raises), error::DiskFull);
  EXPECT_EQ(runs, 2);
}

}  // namespace
}  // namespace pixorra
