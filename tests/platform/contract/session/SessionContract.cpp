// Keeping the screen awake, and moving less.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/contract/session/ContractSession.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SessionContract : public ::testing::Test {
 protected:
  std::unique_ptr<ContractSession> session = MakeContractSession();
};

TEST_F(SessionContract, TheScreenStaysOnForAsLongAsItIsAskedTo) {
  EXPECT_THAT(session->AwakeFor(0), IsEmpty());
  std::unique_ptr<Session::Awake> awake = session->Get().KeepAwake("A slide show is running");
  EXPECT_THAT(session->AwakeFor(1), ElementsAre("A slide show is running"));
  awake.reset();
  EXPECT_THAT(session->AwakeFor(0), IsEmpty());
}

TEST_F(SessionContract, EachWishIsOneOfItsOwn) {
  const std::unique_ptr<Session::Awake> one = session->Get().KeepAwake("One");
  std::unique_ptr<Session::Awake> other = session->Get().KeepAwake("Other");
  EXPECT_THAT(session->AwakeFor(2), ::testing::UnorderedElementsAre("One", "Other"));
  other.reset();
  EXPECT_THAT(session->AwakeFor(1), ElementsAre("One"));
}

TEST_F(SessionContract, AnimationsAreWantedUntilTheyAreTurnedOff) {
  EXPECT_FALSE(session->Get().WantsLessMotion());
  session->TurnAnimationsOff();
  EXPECT_TRUE(session->Get().WantsLessMotion());
}

}  // namespace
}  // namespace pixorra
