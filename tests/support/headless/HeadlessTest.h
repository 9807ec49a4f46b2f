// A test on the headless platform: every surprise fails it, and so does what was expected and never came up.
#pragma once

#include <gtest/gtest.h>

#include "platform/headless/HeadlessPlatform.h"

namespace pixorra {

class HeadlessTest : public ::testing::Test {
 protected:
  HeadlessTest() {
    platform.surprises.OnSurprise = [](const std::string& text) { ADD_FAILURE() << text; };
  }
  void TearDown() override { platform.Finish(); }

  // From here on surprises are kept and fail nothing; for tests of the surprises themselves.
  void KeepSurprises() { platform.surprises.OnSurprise = {}; }

  HeadlessPlatform platform;
  Toolkit& toolkit = platform.toolkit;
  Person& person = platform.person;
};

}  // namespace pixorra
