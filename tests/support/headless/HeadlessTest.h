// A test on the headless platform: every failure fails it, and so does what was expected and never came up.
#pragma once

#include <gtest/gtest.h>

#include "platform/headless/HeadlessPlatform.h"

namespace pixorra {

// Its functions are compiled once, in HeadlessTest.cpp: a whole platform inline costs each test file a second.
class HeadlessTest : public ::testing::Test {
 protected:
  HeadlessTest();
  ~HeadlessTest() override;
  void TearDown() override;

  // From here on failures are kept and fail nothing; for tests of the failures themselves.
  void KeepFailures();

  HeadlessPlatform platform;
  Toolkit& toolkit = platform.toolkit;
  Person& person = platform.person;
};

}  // namespace pixorra
