// The event loop: timers, waits that sleep, and their ends.
#include <QAbstractEventDispatcher>
#include <QScreen>
#include <QTimer>

#include "platform/controls/Timer.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

// The turns of the loop in its lifetime; a loop that sleeps makes few.
class TurnCounter {
 public:
  TurnCounter() {
    auto* const loop = QAbstractEventDispatcher::instance();
    QObject::connect(loop, &QAbstractEventDispatcher::awake, &context_, [this] { ++Turns; });
    QObject::connect(loop, &QAbstractEventDispatcher::aboutToBlock, &context_, [this] { ++Sleeps; });
  }
  int Turns = 0;
  int Sleeps = 0;

 private:
  QObject context_;
};
constexpr int Few = 20;

class LoopTest : public QtTest {
 protected:
  LoopTest() { form.Load(); }

  Form form{toolkit, "LoopForm"};
};

TEST_F(LoopTest, ATimerTicksAtItsInterval) {
  Timer timer(form, "Timer", 30);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  const double begin = toolkit.Seconds();
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ticks == 3; }));
  EXPECT_GE(toolkit.Seconds() - begin, 0.089);
  timer.SetEnabled(false);
  toolkit.WaitFor(0.08);
  EXPECT_EQ(ticks, 3);
}

// What runs without the program's knowing of it may have changed something all the same.
TEST_F(LoopTest, WhateverTheToolkitDoesWakesATimerWhoseTicksWereIdle) {
  Timer timer(form, "Timer", 10);
  std::vector<double> ticks;
  timer.On().Timer = [&](Control&) {
    ticks.push_back(toolkit.Seconds());
    timer.WasIdle(Timer::UntilSomethingRuns);
  };
  timer.SetEnabled(true);
  double ran = 0;
  QTimer::singleShot(400, [&] { ran = toolkit.Seconds(); });
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ran > 0 && ticks.back() > ran; }, 60));
  ASSERT_FALSE(ticks.empty());
  EXPECT_LT(ticks.front(), ran);
  EXPECT_LT(ticks.size(), 20U) << "of 40";
}

TEST_F(LoopTest, OtherTimersTickWhileAHandlerWaitsInALoopOfItsOwn) {
  Timer slow(form, "Slow", 10);
  Timer other(form, "Other", 15);
  int slowTicks = 0;
  int otherTicks = 0;
  slow.On().Timer = [&](Control&) {
    ++slowTicks;
    toolkit.WaitUntil([&] { return otherTicks >= 3; });
  };
  other.On().Timer = [&](Control&) { ++otherTicks; };
  slow.SetEnabled(true);
  other.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return otherTicks >= 3; }));
  EXPECT_EQ(slowTicks, 1);
}

TEST_F(LoopTest, AWaitSleepsUntilItsTimeHasCome) {
  const double begin = toolkit.Seconds();
  const TurnCounter counter;
  EXPECT_TRUE(toolkit.WaitFor(0.4));
  EXPECT_GE(toolkit.Seconds() - begin, 0.4);
  EXPECT_LT(counter.Turns, Few);
}

TEST_F(LoopTest, AnUnboundedWaitSleepsUntilSomethingHappens) {
  bool done = false;
  QTimer::singleShot(300, [&] { done = true; });
  const TurnCounter counter;
  EXPECT_TRUE(toolkit.WaitUntil([&] { return done; }));
  EXPECT_LT(counter.Turns, Few);
}

TEST_F(LoopTest, TheLoopEndsWhenTheProgramDoes) {
  Meanwhile([&] { toolkit.End(); });
  backend.Run();
  EXPECT_TRUE(toolkit.Ended());
  EXPECT_FALSE(toolkit.WaitUntil([] { return false; }));
  backend.Run();  // does not begin again
}

TEST_F(LoopTest, AStartThatFailsIsToldAndEndsTheProgramWhereNothingIsShown) {
  int told = 0;
  backend.SetErrorHandler([&](int number, const std::string&) { told = number; });
  backend.Run([] { throw RuntimeError(error::PathAccess); });
  EXPECT_EQ(told, error::PathAccess);
  EXPECT_TRUE(toolkit.Ended());
}

TEST_F(LoopTest, AStartThatFailsWithItsWindowOnShowGoesOn) {
  int told = 0;
  backend.SetErrorHandler([&](int number, const std::string&) { told = number; });
  Meanwhile([&] {
    EXPECT_FALSE(toolkit.Ended());
    toolkit.End();
  });
  backend.Run([this] {
    form.Show();
    throw RuntimeError(error::Overflow);
  });
  EXPECT_EQ(told, error::Overflow);
}

TEST_F(LoopTest, TheEndReachesThroughNestedWaits) {
  Meanwhile([&] {
    Meanwhile([&] { toolkit.End(); });
    EXPECT_FALSE(toolkit.WaitUntil([] { return false; }));
  });
  backend.Run();
}

TEST_F(LoopTest, DoEventsHandlesWhatWaitsAndDoesNotSleep) {
  bool handled = false;
  Meanwhile([&] { handled = true; });
  toolkit.DoEvents();
  EXPECT_TRUE(handled);
  const TurnCounter counter;
  toolkit.DoEvents();
  EXPECT_EQ(counter.Sleeps, 0);
}

TEST_F(LoopTest, ATimersErrorIsToldAndOtherTimersGoOn) {
  int told = 0;
  backend.SetErrorHandler([&](int number, const std::string&) { told = number; });
  Timer bad(form, "Bad", 10);
  Timer good(form, "Good", 10);
  int ticks = 0;
  bad.On().Timer = [&](Control&) {
    bad.SetEnabled(false);
    throw RuntimeError(error::Overflow);
  };
  good.On().Timer = [&](Control&) { ++ticks; };
  bad.SetEnabled(true);
  good.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ticks >= 2; }));
  EXPECT_EQ(told, error::Overflow);
}

TEST_F(LoopTest, TheScreenIsToldInTwips) {
  const Screen screen = toolkit.GetScreen();
  EXPECT_EQ(screen.Width, QGuiApplication::primaryScreen()->size().width() * 15);
  EXPECT_EQ(screen.Height, QGuiApplication::primaryScreen()->size().height() * 15);
}

}  // namespace
}  // namespace pixorra
