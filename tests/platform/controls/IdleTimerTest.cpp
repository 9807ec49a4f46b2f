// Timers whose handlers say that their next ticks would change nothing.
#include <array>
#include <cmath>
#include <gmock/gmock.h>
#include <random>

#include "platform/controls/Timer.h"
#include "platform/controls/Toolkit.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string At(const std::string& what, Backend& backend) {
  return what + " " + std::to_string(std::lround(backend.Seconds() * 1000));
}

class IdleTimerTest : public ModelTest {
 protected:
  IdleTimerTest() {
    form.Load();
    timer.On().Timer = [this](Control&) {
      LogTick("tick");
      if (idle) timer.WasIdle(leaveOut, round);
    };
    timer.SetEnabled(true);
  }
  void LogTick(const std::string& name) { Log(At(name, platform.backend)); }
  void SomethingRuns() {
    platform.backend.Dispatch([] {});
  }

  Timer timer{form, "Timer", 100};
  bool idle = true;
  int leaveOut = Timer::UntilSomethingRuns;
  int round = 1;
};

TEST_F(IdleTimerTest, AnIdleOneLetsTheProgramSleepUntilSomethingRuns) {
  person.Wait(0.25);
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
  person.Wait(0.5);
  EXPECT_EQ(platform.backend.AskedWake(), std::nullopt) << "woken once for what the test did itself, and asleep again";
  EXPECT_THAT(Heard(), ElementsAre("tick 300"));
}

TEST_F(IdleTimerTest, WhatRunsIsFollowedByATickAtTheMomentAtWhichItWouldHaveBeenAnyway) {
  person.Wait(0.1);
  platform.clock.AdvanceTo(7.04);
  SomethingRuns();
  EXPECT_DOUBLE_EQ(platform.backend.AskedWake().value(), 7.1);
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
  person.Wait(0.5);
  EXPECT_THAT(Heard(), ElementsAre("tick 7100"));
}

TEST_F(IdleTimerTest, AHandlerHearsHowManyTicksWereLeftOutAheadOfIt) {
  std::vector<int> leftOut;
  timer.On().Timer = [&](Control&) {
    leftOut.push_back(timer.LeftOut());
    timer.WasIdle(4);
  };
  person.Wait(1.2);
  EXPECT_THAT(leftOut, ElementsAre(0, 4, 4)) << "at 0.1, 0.6 and 1.1";
  person.Wait(0.25);
  EXPECT_THAT(leftOut, ElementsAre(0, 4, 4, 1)) << "at 1.3, as the test has had its turn at 1.2";
}

TEST_F(IdleTimerTest, TheTickOfTheMomentInWhichItBeginsAnewIsNotOneThatWasLeftOut) {
  std::vector<int> leftOut;
  timer.On().Timer = [&](Control&) {
    leftOut.push_back(timer.LeftOut());
    timer.WasIdle(4);
  };
  constexpr int Quarter = 250;  // whose multiples have no rounding
  timer.SetInterval(Quarter);
  platform.clock.AdvanceTo(0.25);
  toolkit.RunDueTimers();
  platform.clock.AdvanceTo(0.75);
  timer.SetInterval(Quarter);
  platform.clock.AdvanceTo(1);
  toolkit.RunDueTimers();
  EXPECT_THAT(leftOut, ElementsAre(0, 1)) << "that at 0.5";
}

TEST_F(IdleTimerTest, OnlySoManyTicksAreLeftOut) {
  leaveOut = 3;
  person.Wait(1);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 500", "tick 900"));
}

TEST_F(IdleTimerTest, ItIsAsleepOnlyOnceAWholeRoundHasBeenIdleWithNothingInBetween) {
  round = 3;
  person.Wait(0.25);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 200"));
  person.Wait(2);
  EXPECT_THAT(Heard(), ElementsAre("tick 300", "tick 400", "tick 500")) << "the test's turn began the round anew";
}

TEST_F(IdleTimerTest, AHandlerMayDisableItsTimerForTheLengthOfItsTick) {
  timer.On().Timer = [this](Control&) {
    timer.SetEnabled(false);
    LogTick("tick");
    timer.WasIdle(Timer::UntilSomethingRuns, 2);
    timer.SetEnabled(true);
  };
  person.Wait(1);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 200"));
}

TEST_F(IdleTimerTest, AnotherThatIsIdleLetsItSleepAndOneThatIsNotWakesIt) {
  Timer other(form, "Other", 250);
  bool otherIdle = true;
  other.On().Timer = [&](Control&) {
    LogTick("other");
    if (otherIdle) other.WasIdle(0);
    otherIdle = !otherIdle;
  };
  other.SetEnabled(true);
  person.Wait(0.85);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "other 250", "other 500", "tick 600", "other 750"));
}

TEST_F(IdleTimerTest, AmongThoseDueAtOneMomentTheOneThatComesAfterWhatHasWokenItTicks) {
  Timer after(form, "After", 100);
  after.On().Timer = [&](Control&) {
    LogTick("after");
    after.WasIdle(Timer::UntilSomethingRuns);
  };
  Timer before(form, "Before", 300);
  Timer last(form, "Last", 100);
  last.On().Timer = [&](Control&) {
    LogTick("last");
    last.WasIdle(Timer::UntilSomethingRuns);
  };
  before.On().Timer = [this](Control&) { LogTick("before"); };
  for (Timer* each : {&after, &before, &last}) each->SetEnabled(true);
  timer.SetEnabled(false);
  person.Wait(0.45);
  EXPECT_THAT(Heard(), ElementsAre("after 100", "last 100", "before 300", "last 300", "after 400"));
}

TEST_F(IdleTimerTest, OneThatRaisesOrIsNotIdleTicksOn) {
  KeepFailures();
  timer.On().Timer = [&](Control&) {
    LogTick("tick");
    timer.WasIdle(Timer::UntilSomethingRuns);
    throw RuntimeError(error::Overflow);
  };
  person.Wait(0.2);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 200"));
}

TEST_F(IdleTimerTest, OneThatIsRestartedWhileItIsAsleepBeginsANewInterval) {
  person.Wait(0.15);
  Heard();
  timer.SetEnabled(false);
  timer.SetEnabled(true);
  person.Wait(0.15);
  EXPECT_THAT(Heard(), ElementsAre("tick 250"));
}

TEST_F(IdleTimerTest, WhatIsPostedWakesIt) {
  person.Wait(0.15);
  Heard();
  Timer other(form, "Other", 330);
  other.On().Timer = [&](Control&) {
    platform.backend.Post([this] { Log("posted"); });
    other.WasIdle(Timer::UntilSomethingRuns);
  };
  other.SetEnabled(true);
  person.Wait(0.06);
  EXPECT_THAT(Heard(), ElementsAre("tick 200"));
  person.Wait(0.5);
  EXPECT_THAT(Heard(), ElementsAre("tick 300", "posted", "tick 500"));
}

TEST_F(IdleTimerTest, ItTicksOnInALoopOfAnotherHandler) {
  person.Wait(0.15);
  Heard();
  platform.backend.Dispatch([&] {
    toolkit.WaitFor(0.1);
    person.During([this] { LogTick("meanwhile"); });
    toolkit.WaitFor(0.2);
  });
  EXPECT_THAT(Heard(), ElementsAre("tick 200", "meanwhile 250", "tick 300"));
}

TEST_F(IdleTimerTest, WhereNoneIsToBeLeftOutAllAreRaised) {
  toolkit.GetTimers().LeaveNoneOut();
  person.Wait(0.35);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 200", "tick 300"));
}

// Three timers over some counters. The handler of each moves on what it is meant to, and is idle where that has
// arrived; one counts its own ticks. Nothing of it but the ticks themselves may be told from a run in which every tick
// is raised.
class Clockwork {
 public:
  explicit Clockwork(bool everyTick) {
    form.SetClientSize(100, 100);
    if (everyTick) platform.toolkit.GetTimers().LeaveNoneOut();
    follow.On().Timer = [this](Control&) {
      ++raised;
      const bool was = at == goal;
      if (at < goal) ++at;
      if (at > goal) --at;
      Tell(was, "follow");
      if (was) follow.WasIdle(Timer::UntilSomethingRuns);
    };
    pairs.On().Timer = [this](Control&) {
      ++raised;
      turn += pairs.LeftOut() + 1;
      int& side = turn % 2 == 0 ? left : right;
      const bool was = side == at;
      side = at;
      Tell(was, turn % 2 == 0 ? "left" : "right");
      if (was) pairs.WasIdle(6 - turn % 7, 2);
      if (turn % 7 == 0) Tell(false, "seventh");
    };
    slow.On().Timer = [this](Control&) {
      const bool was = seen == weather;
      seen = weather;
      if (!was) goal += seen;
      Tell(was, "slow");
      if (was) slow.WasIdle(0);
    };
    form.Load();
    for (Timer* timer : {&follow, &pairs, &slow}) timer->SetEnabled(true);
  }
  ~Clockwork() { platform.Finish(); }

  void Tell(bool nothing, const std::string& what) {
    if (!nothing) told.push_back(At(what, platform.backend));
  }
  std::vector<int> State() const { return {at, goal, left, right, seen}; }

  HeadlessPlatform platform;
  Form form{platform.toolkit, "Form"};
  Timer follow{form, "Follow", 50};
  Timer pairs{form, "Pairs", 20};
  Timer slow{form, "Slow", 300};
  int at = 0, goal = 3, left = 0, right = 0, turn = 0, seen = 0, weather = 0, raised = 0;
  std::vector<std::string> told;
};

TEST(IdleTimersTest, NothingCanBeToldFromARunInWhichEveryTickIsRaised) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    Clockwork all(true);
    Clockwork some(false);
    std::mt19937 random(seed);
    for (int step = 0; step < 150; ++step) {
      const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
      const int what = any(8);
      const int number = any(9);
      const double seconds = std::array{0.01, 0.02, 0.05, 0.3, 0.007, 1.0, 0.1, 4.0}[static_cast<std::size_t>(any(8))];
      for (Clockwork* each : {&all, &some}) {
        HeadlessBackend& backend = each->platform.backend;
        Toolkit& toolkit = each->platform.toolkit;
        if (what == 0) backend.Dispatch([&] { each->goal = number; });
        if (what == 1) each->weather = number;
        if (what == 2) backend.Post([each, number] { each->goal = number; });
        if (what == 3)
          backend.Dispatch([&] {
            each->goal = number;
            toolkit.WaitFor(seconds);
            each->goal = number / 2;
          });
        if (what == 4) each->goal = number;
        if (what == 5) {
          each->platform.person.During([each, number] { each->goal = number; });
          toolkit.DoEvents();
        }
        if (what == 6) {
          each->follow.SetEnabled(false);
          each->follow.SetEnabled(true);
        }
        backend.Advance(seconds);
      }
      ASSERT_EQ(all.told, some.told) << "seed " << seed << ", step " << step;
      ASSERT_EQ(all.State(), some.State()) << "seed " << seed << ", step " << step;
    }
    EXPECT_LT(some.raised, all.raised / 3) << "most have been left out";
  }
}

}  // namespace
}  // namespace pixorra
