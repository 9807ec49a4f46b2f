#include <cmath>
#include <gmock/gmock.h>

#include "platform/controls/Timer.h"
#include "platform/headless/HeadlessBackend.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class HeadlessBackendTest : public HeadlessTest {
 protected:
  HeadlessBackendTest() { form.Load(); }

  Form form{toolkit, "MainForm"};
};

TEST_F(HeadlessBackendTest, TimePassesOnlyWhenToldTo) {
  Timer timer(form, "Timer", 20);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  toolkit.DoEvents();
  EXPECT_EQ(ticks, 0);
  person.Wait(0.1);
  EXPECT_EQ(ticks, 5);
  EXPECT_DOUBLE_EQ(toolkit.Seconds(), 0.1);
}

TEST_F(HeadlessBackendTest, ThousandsOfTicksDoNotDrift) {
  Timer timer(form, "Timer", 30);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  for (int i = 0; i < 100; ++i) person.Wait(3);
  EXPECT_EQ(ticks, 10000);
}

TEST_F(HeadlessBackendTest, TimersRunAtTheirOwnMoments) {
  Timer slow(form, "Slow", 50);
  Timer fast(form, "Fast", 20);
  std::vector<std::string> heard;
  slow.On().Timer = [&](Control&) { heard.push_back("slow " + std::to_string(std::lround(toolkit.Seconds() * 1000))); };
  fast.On().Timer = [&](Control&) { heard.push_back("fast " + std::to_string(std::lround(toolkit.Seconds() * 1000))); };
  slow.SetEnabled(true);
  fast.SetEnabled(true);
  person.Wait(0.06);
  EXPECT_THAT(heard, ElementsAre("fast 20", "fast 40", "slow 50", "fast 60"));
}

TEST_F(HeadlessBackendTest, BoundedWaitOfTheProgramTakesItsTime) {
  Timer timer(form, "Timer", 300);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitFor(1));
  EXPECT_DOUBLE_EQ(toolkit.Seconds(), 1);
  EXPECT_EQ(ticks, 3);
}

TEST_F(HeadlessBackendTest, WaitWithoutATimerOrAPersonEndsTheProgramAndNamesTheWindow) {
  KeepFailures();
  form.SetCaption("Ask");
  form.ShowModal(nullptr);
  EXPECT_TRUE(toolkit.Ended());
  EXPECT_THAT(platform.failures.Take(), ElementsAre(HasSubstr("in front: window MainForm \"Ask\"")));
}

TEST_F(HeadlessBackendTest, WaitThatATimerCouldEndGoesOnForMinutesOnly) {
  KeepFailures();
  Timer timer(form, "Timer", 1000);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  EXPECT_FALSE(toolkit.WaitUntil([&] { return ticks > 10000; }));
  EXPECT_EQ(ticks, 600);
  EXPECT_THAT(platform.failures.Take(), SizeIs(1));
}

TEST_F(HeadlessBackendTest, WaitThatATimerEndsIsNoFailure) {
  Timer timer(form, "Timer", 1000);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  timer.SetEnabled(true);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return ticks == 3; }));
  EXPECT_DOUBLE_EQ(toolkit.Seconds(), 3);
}

TEST_F(HeadlessBackendTest, PollingForEverIsCaughtToo) {
  KeepFailures();
  int polls = 0;
  while (toolkit.WaitFor(0.5)) ++polls;
  EXPECT_EQ(polls, 1200);
  EXPECT_THAT(platform.failures.Take(), SizeIs(1));
}

TEST_F(HeadlessBackendTest, TimerThatRaisesIsReportedAndTheOthersStillTick) {
  KeepFailures();
  Timer bad(form, "Bad", 10);
  Timer good(form, "Good", 10);
  int ticks = 0;
  bad.On().Timer = [&](Control&) { throw RuntimeError(error::DiskFull); };
  good.On().Timer = [&](Control&) { ++ticks; };
  bad.SetEnabled(true);
  good.SetEnabled(true);
  person.Wait(0.03);
  EXPECT_EQ(ticks, 3);
  const auto failures = platform.failures.Take();
  EXPECT_THAT(failures, SizeIs(3));
  EXPECT_THAT(failures, Each(HasSubstr("unhandled error 61")));
}

TEST_F(HeadlessBackendTest, MaximisedFormsTakeTheScreenAndGoBack) {
  form.SetClientSize(400, 300);
  form.SetTwipsTop(300);
  const double width = form.TwipsWidth();
  form.SetWindowState(windowstate::Maximised);
  EXPECT_EQ(form.TwipsWidth(), width);
  form.Show();
  EXPECT_EQ(form.TwipsWidth(), 1280 * 15);
  EXPECT_EQ(form.TwipsHeight(), 1024 * 15);
  platform.backend.SetScreen(800, 600);
  EXPECT_EQ(form.TwipsWidth(), 800 * 15);
  form.SetWindowState(windowstate::Normal);
  EXPECT_EQ(form.TwipsWidth(), width);
  EXPECT_EQ(form.TwipsTop(), 300);
}

TEST_F(HeadlessBackendTest, WindowsExistAsLongAsTheirFormsAreLoaded) {
  EXPECT_EQ(platform.backend.WindowOf(form), nullptr);
  form.Show();
  EXPECT_NE(platform.backend.WindowOf(form), nullptr);
  form.Hide();
  EXPECT_NE(platform.backend.WindowOf(form), nullptr);
  form.Unload();
  EXPECT_EQ(platform.backend.WindowOf(form), nullptr);
}

TEST_F(HeadlessBackendTest, ClockShowsTheDateThatIsSetAndGoesOn) {
  platform.clock.SetNow({2024, 2, 28, 23, 59, 59, 500});
  person.Wait(0.75);
  EXPECT_EQ(platform.clock.Now(), (CalendarTime{2024, 2, 29, 0, 0, 0, 250}));
  platform.clock.SetNow({2024, 2, 29, 0, 0, 0, 250});
  person.Wait(86400);
  EXPECT_EQ(platform.clock.Now(), (CalendarTime{2024, 3, 1, 0, 0, 0, 250}));
}

TEST_F(HeadlessBackendTest, NothingIsExpectedAtFirst) {
  platform.Finish();
  EXPECT_THAT(platform.failures.All(), IsEmpty());
}

}  // namespace
}  // namespace pixorra
