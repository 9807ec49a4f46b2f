// Giving events their handlers, one each.
#include <gmock/gmock.h>
#include <stdexcept>

#include "platform/controls/Buttons.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class EventsTest : public ShownModelTest {
 protected:
  CommandButton button{form, "Button"};
};

TEST_F(EventsTest, AConnectedEventRunsItsHandler) {
  Connect(button.On().Click, [this](Control& source) { Log(source.Name() + " first"); });
  button.UserClicked();
  EXPECT_THAT(Heard(), ElementsAre("Button first"));
}

TEST_F(EventsTest, ASecondHandlerIsRefusedWithItsPlaceAndTheFirstOneStays) {
  Connect(button.On().Click, [this](Control&) { Log("first"); });
  try {
    Connect(button.On().Click, [this](Control&) { Log("second"); });
    ADD_FAILURE() << "The second handler was taken.";
  } catch (const std::logic_error& refused) {
    EXPECT_THAT(refused.what(), HasSubstr("EventsTest.cpp:"));
    EXPECT_THAT(refused.what(), EndsWith("this event has a handler already"));
  }
  button.UserClicked();
  EXPECT_THAT(Heard(), ElementsAre("first"));
}

TEST_F(EventsTest, AnEventWhoseHandlerWasTakenAwayCanBeConnectedAgain) {
  Connect(button.On().Click, [this](Control&) { Log("first"); });
  button.On().Click = {};
  Connect(button.On().Click, [this](Control&) { Log("second"); });
  button.UserClicked();
  EXPECT_THAT(Heard(), ElementsAre("second"));
}

}  // namespace
}  // namespace pixorra
