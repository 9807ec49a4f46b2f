#include <cmath>
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Timer.h"
#include "platform/controls/Toolkit.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TimerTest : public ModelTest {
 protected:
  TimerTest() {
    form.Load();
    timer.On().Timer = [this](Control&) { LogTick("tick"); };
  }
  // With the moment, in milliseconds.
  void LogTick(const std::string& name) { Log(name + " " + std::to_string(std::lround(toolkit.Seconds() * 1000))); }

  Timer timer{form, "Timer", 100};
};

TEST_F(TimerTest, IsDisabledAtFirstAndTicksOnceAnInterval) {
  person.Wait(0.5);
  EXPECT_THAT(Heard(), IsEmpty());
  timer.SetEnabled(true);
  person.Wait(0.3);
  EXPECT_THAT(Heard(), ElementsAre("tick 600", "tick 700", "tick 800"));
}

TEST_F(TimerTest, OneOnAFormThatIsNotLoadedDoesNotTick) {
  timer.SetEnabled(true);
  person.Wait(0.15);
  form.Unload();
  EXPECT_EQ(platform.backend.AskedWake(), std::nullopt);
  person.Wait(0.5);
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
}

TEST_F(TimerTest, OneOnAFormThatIsLoadedAgainBeginsANewInterval) {
  timer.SetEnabled(true);
  form.Unload();
  person.Wait(0.45);
  form.Load();
  person.Wait(0.2);
  EXPECT_THAT(Heard(), ElementsAre("tick 550", "tick 650"));
  form.Unload();
  timer.SetEnabled(false);
  form.Load();
  person.Wait(0.2);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(TimerTest, OneThatUnloadsItsOwnFormTicksNoMore) {
  timer.On().Timer = [this](Control&) {
    LogTick("tick");
    form.Unload();
  };
  timer.SetEnabled(true);
  person.Wait(0.5);
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
}

TEST_F(TimerTest, IntervalOfNothingNeverTicks) {
  timer.SetInterval(0);
  timer.SetEnabled(true);
  EXPECT_EQ(toolkit.NextDeadline(), std::nullopt);
  person.Wait(10);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(TimerTest, EnablingAnEnabledOneDoesNotRestartIt) {
  timer.SetEnabled(true);
  person.Wait(0.09);
  timer.SetEnabled(true);
  person.Wait(0.02);
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
}

TEST_F(TimerTest, DisablingAndEnablingRestartsItAlsoThroughTheBase) {
  timer.SetEnabled(true);
  person.Wait(0.09);
  Control& base = timer;
  base.SetEnabled(false);
  base.SetEnabled(true);
  person.Wait(0.1);
  EXPECT_THAT(Heard(), ElementsAre("tick 190"));
}

TEST_F(TimerTest, NewIntervalStartsAnew) {
  timer.SetEnabled(true);
  person.Wait(0.09);
  timer.SetInterval(50);
  person.Wait(0.1);
  EXPECT_THAT(Heard(), ElementsAre("tick 140", "tick 190"));
}

TEST_F(TimerTest, BackEndIsAskedForTheEarliestDeadline) {
  Timer other(form, "Other", 30);
  timer.SetEnabled(true);
  EXPECT_DOUBLE_EQ(platform.backend.AskedWake().value(), 0.1);
  other.SetEnabled(true);
  EXPECT_DOUBLE_EQ(platform.backend.AskedWake().value(), 0.03);
  other.SetEnabled(false);
  EXPECT_DOUBLE_EQ(platform.backend.AskedWake().value(), 0.1);
  timer.SetEnabled(false);
  EXPECT_EQ(platform.backend.AskedWake(), std::nullopt);
}

TEST_F(TimerTest, MissedTicksAreDropped) {
  timer.SetEnabled(true);
  platform.clock.AdvanceTo(0.55);
  toolkit.DoEvents();
  toolkit.DoEvents();
  EXPECT_THAT(Heard(), ElementsAre("tick 550"));
  person.Wait(0.2);
  EXPECT_THAT(Heard(), ElementsAre("tick 650", "tick 750"));
}

TEST_F(TimerTest, OfThoseThatAreLateTheOneDueFirstTicksFirst) {
  Timer other(form, "Other", 60);
  other.On().Timer = [this](Control&) { Log("other"); };
  timer.On().Timer = [this](Control&) { Log("timer"); };
  timer.SetEnabled(true);
  other.SetEnabled(true);
  platform.clock.AdvanceTo(0.11);
  toolkit.DoEvents();
  EXPECT_THAT(Heard(), ElementsAre("other", "timer"));
}

TEST_F(TimerTest, TickThatIsLateByLessThanAnIntervalKeepsTheBeat) {
  timer.SetEnabled(true);
  platform.clock.AdvanceTo(0.13);
  toolkit.DoEvents();
  person.Wait(0.1);
  EXPECT_THAT(Heard(), ElementsAre("tick 130", "tick 200"));
}

TEST_F(TimerTest, OneWhoseHandlerRunsALoopWaitsForItsEndAndOthersTickOn) {
  Timer other(form, "Other", 40);
  other.On().Timer = [this](Control&) { LogTick("other"); };
  timer.On().Timer = [this](Control&) {
    LogTick("in");
    toolkit.WaitFor(0.25);
    LogTick("out");
    timer.SetEnabled(false);
  };
  timer.SetEnabled(true);
  other.SetEnabled(true);
  person.Wait(0.36);
  EXPECT_THAT(Heard(), ElementsAre("other 40", "other 80", "in 100", "other 120", "other 160", "other 200", "other 240",
                                   "other 280", "other 320", "out 350", "other 360"));
}

TEST_F(TimerTest, OneThatWasHeldUpByItsOwnLoopTicksOnceAfterIt) {
  bool first = true;
  timer.On().Timer = [&](Control&) {
    LogTick("tick");
    if (std::exchange(first, false)) toolkit.WaitFor(0.45);
  };
  timer.SetEnabled(true);
  person.Wait(0.7);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 550", "tick 650"));
}

TEST_F(TimerTest, OneMayDisableItselfAndAnotherThatIsDueToo) {
  Timer other(form, "Other", 100);
  other.On().Timer = [this](Control&) { LogTick("other"); };
  timer.On().Timer = [&](Control&) {
    LogTick("tick");
    timer.SetEnabled(false);
    other.SetEnabled(false);
  };
  timer.SetEnabled(true);
  other.SetEnabled(true);
  person.Wait(1);
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
}

TEST_F(TimerTest, OneMayGoInItsOwnTickAndTakeAnotherThatIsDueAlong) {
  auto one = std::make_unique<Timer>(form, "One", 10);
  auto two = std::make_unique<Timer>(form, "Two", 10);
  one->On().Timer = [&](Control&) {
    Log("one");
    two.reset();
    one.reset();
  };
  two->On().Timer = [&](Control&) { Log("two"); };
  one->SetEnabled(true);
  two->SetEnabled(true);
  person.Wait(0.1);
  EXPECT_THAT(Heard(), ElementsAre("one"));
  EXPECT_EQ(toolkit.NextDeadline(), std::nullopt);
}

TEST_F(TimerTest, OneThatRaisedTicksAgain) {
  KeepFailures();
  timer.On().Timer = [&](Control&) {
    LogTick("tick");
    throw RuntimeError(error::Overflow);
  };
  timer.SetEnabled(true);
  person.Wait(0.2);
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 200"));
}

TEST_F(TimerTest, NoneTicksOnceTheProgramHasEnded) {
  Timer other(form, "Other", 100);
  other.On().Timer = [this](Control&) { LogTick("other"); };
  timer.On().Timer = [&](Control&) {
    LogTick("tick");
    toolkit.End();
  };
  timer.SetEnabled(true);
  other.SetEnabled(true);
  person.Wait(1);
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
}

TEST_F(TimerTest, TheyTickOnWhileABoxIsUp) {
  timer.SetEnabled(true);
  person.ExpectBox("Title", "", BoxAnswer::Ok, [&] { person.Wait(0.2); });
  platform.dialogs.MsgBox("Text", BoxIcon::None, BoxButtons::Ok, "Title");
  EXPECT_THAT(Heard(), ElementsAre("tick 100", "tick 200"));
}

TEST_F(TimerTest, PendingEventsOfALoopRunWhatIsDueAndNoMore) {
  timer.SetEnabled(true);
  toolkit.DoEvents();
  EXPECT_THAT(Heard(), IsEmpty());
  platform.clock.AdvanceTo(0.1);
  toolkit.DoEvents();
  EXPECT_THAT(Heard(), ElementsAre("tick 100"));
}

}  // namespace
}  // namespace pixorra
