#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {

HeadlessTest::HeadlessTest() {
  platform.failures.OnFailure = [](const std::string& text) { ADD_FAILURE() << text; };
}

HeadlessTest::~HeadlessTest() = default;

void HeadlessTest::TearDown() {
  platform.Finish();
}

void HeadlessTest::KeepFailures() {
  platform.failures.OnFailure = {};
}

}  // namespace pixorra
