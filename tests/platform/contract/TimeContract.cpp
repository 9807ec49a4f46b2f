// Timers and waits. Only what must hold on a virtual and on a real clock alike is asked for.
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Timer.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

// Clocks may differ in their last digits, and a host's timer may be early by less than a millisecond.
constexpr double Early = 0.0011;
// Milliseconds, within which any machine does what a test does.
constexpr int LongTime = 60000;

class TimeContract : public FormContract {
 protected:
  TimeContract() { Show(); }
};

TEST_F(TimeContract, BoundedWaitTakesItsTime) {
  const double start = toolkit.Seconds();
  EXPECT_TRUE(toolkit.WaitFor(0.05));
  EXPECT_GE(toolkit.Seconds() - start, 0.05 - Early);
}

TEST_F(TimeContract, BoundedWaitForSomethingEndsWithItOrWithItsTime) {
  Timer timer(form, "Timer", 20);
  Timer late(form, "Late", LongTime);
  bool ticked = false;
  timer.On().Timer = [&](Control&) { ticked = true; };
  late.On().Timer = [](Control&) { FAIL() << "it has waited for its time"; };
  timer.SetEnabled(true);
  late.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ticked; }, 2 * LongTime / 1000.0));
  timer.SetEnabled(false);
  const double second = toolkit.Seconds();
  EXPECT_FALSE(toolkit.WaitUntil([] { return false; }, 0.05));
  EXPECT_GE(toolkit.Seconds() - second, 0.05 - Early);
}

TEST_F(TimeContract, TicksAreNeverCloserThanTheInterval) {
  Timer timer(form, "Timer", 20);
  const double start = toolkit.Seconds();
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ticks == 5; }));
  EXPECT_GE(toolkit.Seconds() - start, 5 * 0.020 - Early);
}

TEST_F(TimeContract, DisabledTimerDoesNotTick) {
  Timer timer(form, "Timer", 10);
  Timer last(form, "Last", 60);
  int ticks = 0;
  bool done = false;
  timer.On().Timer = [&](Control&) {
    ++ticks;
    timer.SetEnabled(false);
  };
  last.On().Timer = [&](Control&) { done = true; };
  timer.SetEnabled(true);
  last.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return done; }));
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimeContract, FasterTimerTicksFirst) {
  Timer slow(form, "Slow", 80);
  Timer fast(form, "Fast", 20);
  std::vector<std::string> order;
  const auto tick = [&](Control& source) {
    order.push_back(source.Name());
    static_cast<Timer&>(source).SetEnabled(false);
  };
  slow.On().Timer = tick;
  fast.On().Timer = tick;
  slow.SetEnabled(true);
  fast.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return order.size() == 2; }));
  EXPECT_THAT(order, ElementsAre("Fast", "Slow"));
}

TEST_F(TimeContract, NewIntervalStartsAnew) {
  Timer timer(form, "Timer", LongTime);
  Timer late(form, "Late", LongTime - 1000);
  const double start = toolkit.Seconds();
  bool ticked = false;
  timer.On().Timer = [&](Control&) { ticked = true; };
  late.On().Timer = [](Control&) { FAIL() << "the first interval counts"; };
  timer.SetEnabled(true);
  late.SetEnabled(true);
  timer.SetInterval(30);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ticked; }));
  EXPECT_GE(toolkit.Seconds() - start, 0.030 - Early);
}

TEST_F(TimeContract, TimerWhoseHandlerRunsALoopIsNotEnteredAgainAndOthersTick) {
  Timer outer(form, "Outer", 20);
  Timer other(form, "Other", 10);
  int depth = 0;
  int others = 0;
  bool done = false;
  other.On().Timer = [&](Control&) { ++others; };
  outer.On().Timer = [&](Control&) {
    EXPECT_EQ(depth, 0);
    ++depth;
    const int before = others;
    EXPECT_TRUE(toolkit.WaitUntil([&] { return others >= before + 6; }));
    --depth;
    outer.SetEnabled(false);
    done = true;
  };
  other.SetEnabled(true);
  outer.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return done; }));
  EXPECT_GE(others, 6);
}

TEST_F(TimeContract, TimerMayGoInItsOwnTick) {
  auto timer = std::make_unique<Timer>(form, "Timer", 10);
  timer->On().Timer = [&](Control&) { timer.reset(); };
  timer->SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return timer == nullptr; }));
}

TEST_F(TimeContract, IdleTicksAreLeftOutUntilAnotherTimerHasDoneSomething) {
  Timer idle(form, "Idle", 10);
  Timer other(form, "Other", 300);
  int ticks = 0;
  int ticksBefore = 0;
  idle.On().Timer = [&](Control&) {
    ++ticks;
    idle.WasIdle(Timer::UntilSomethingRuns);
  };
  other.On().Timer = [&](Control&) {
    ticksBefore = ticks;
    other.SetEnabled(false);
  };
  idle.SetEnabled(true);
  other.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ticksBefore > 0 && ticks > ticksBefore; }, LongTime / 1000.0));
  EXPECT_LT(ticks, 20) << "of 30";
}

TEST_F(TimeContract, PendingEventsDoNotWait) {
  Timer timer(form, "Timer", LongTime);
  timer.On().Timer = [](Control&) { FAIL() << "it has waited"; };
  timer.SetEnabled(true);
  toolkit.DoEvents();
}

TEST_F(TimeContract, WaitEndsWhenTheProgramDoes) {
  Timer timer(form, "Timer", 10);
  timer.On().Timer = [&](Control&) { toolkit.End(); };
  timer.SetEnabled(true);
  EXPECT_FALSE(toolkit.WaitUntil([] { return false; }));
  EXPECT_FALSE(toolkit.WaitFor(1000));
}

TEST_F(TimeContract, TimersTickOnWhileABoxIsUp) {
  Timer timer(form, "Timer", 10);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  platform->AnswerBox(BoxAnswer::Ok, [&] { return ticks >= 3; });
  platform->GetDialogs().MsgBox("Text", BoxIcon::None, BoxButtons::Ok, "Title");
  EXPECT_GE(ticks, 3);
}

TEST_F(TimeContract, MeanwhileActionsComeInWhileTheProgramWaits) {
  Timer timer(form, "Timer", 10);
  int ticks = 0;
  bool released = false;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  platform->Meanwhile([&] { return ticks >= 2; }, [&] { released = true; });
  EXPECT_TRUE(toolkit.WaitUntil([&] { return released; }));
  EXPECT_GE(ticks, 2);
}

}  // namespace
}  // namespace pixorra
