// The session at a bus of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/Environment.h"
#include "platform/session/DesktopSession.h"
#include "tests/platform/contract/session/ContractSession.h"
#include "tests/platform/session/FakeSaver.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DesktopSessionHost : public ContractSession {
 public:
  explicit DesktopSessionHost(FakeSaver::At at = FakeSaver::At::ScreenSaverPath) : saver_(at) {}
  Session& Get() override { return session_; }
  std::vector<std::string> AwakeFor(std::size_t count) override { return saver_.WishesOnce(count); }
  void TurnAnimationsOff() override {
    drive_.Write("C:\\home\\.config\\kdeglobals", "[KDE]\nAnimationDurationFactor=0\n");
  }
  TemporaryDrive& Drive() { return drive_; }

 private:
  TemporaryDrive drive_;
  FakeSaver saver_;
  DesktopSession session_{Environment::OfHome(drive_.HostRoot() + "/home")};
};

TEST(DesktopSessionTest, SaversThatAnswerAtTheShortPathAreFoundToo) {
  DesktopSessionHost host(FakeSaver::At::ShortPath);
  std::unique_ptr<Session::Awake> awake = host.Get().KeepAwake("Show");
  EXPECT_THAT(host.AwakeFor(1), ElementsAre("Show"));
  awake.reset();
  EXPECT_THAT(host.AwakeFor(0), IsEmpty());
}

TEST(DesktopSessionTest, ADesktopWithoutASaverIsAskedByItsPortal) {
  DesktopSessionHost host(FakeSaver::At::Portal);
  const std::unique_ptr<Session::Awake> awake = host.Get().KeepAwake("Show");
  EXPECT_THAT(host.AwakeFor(1), ElementsAre("Show"));
}

TEST(DesktopSessionTest, WhereNobodyAnswersNothingHappens) {
  DesktopSessionHost host(FakeSaver::At::Nowhere);
  std::unique_ptr<Session::Awake> awake = host.Get().KeepAwake("Show");
  awake.reset();
  EXPECT_THAT(host.AwakeFor(0), IsEmpty());
}

TEST(DesktopSessionTest, ADesktopThatOnlySlowsItsAnimationsStillMoves) {
  DesktopSessionHost host(FakeSaver::At::Nowhere);
  for (const char* text : {"[KDE]\nAnimationDurationFactor=2\n", "[KDE]\nAnimationDurationFactor=none\n", "nonsense",
                           "[General]\nAnimationDurationFactor=0\n"}) {
    host.Drive().Write("C:\\home\\.config\\kdeglobals", text);
    EXPECT_FALSE(host.Get().WantsLessMotion()) << text;
  }
}

}  // namespace

std::unique_ptr<ContractSession> MakeContractSession() {
  return std::make_unique<DesktopSessionHost>();
}

}  // namespace pixorra
