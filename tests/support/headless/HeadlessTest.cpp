#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {

HeadlessTest::HeadlessTest() {
  platform.surprises.OnSurprise = [](const std::string& text) { ADD_FAILURE() << text; };
}

HeadlessTest::~HeadlessTest() = default;

void HeadlessTest::TearDown() {
  platform.Finish();
}

void HeadlessTest::KeepSurprises() {
  platform.surprises.OnSurprise = {};
}

}  // namespace pixorra
