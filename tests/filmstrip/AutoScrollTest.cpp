// The scroll past dragged photos, tick by tick, by values worked out by hand.
#include <gtest/gtest.h>

#include "filmstrip/Marks.h"
#include "filmstrip/Scrolling.h"
#include "tests/filmstrip/StripTest.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

class AutoScrollTest : public StripTest {
 protected:
  ProgramRun& LoadedWithMarks(int count, const std::vector<int>& marked) {
    WriteEmpty(count);
    ProgramRun& run = LoadedStrip();
    for (const int slot : marked) MarkDragged(run.main, run.main.strip.SrcThumbnail(slot));
    run.main.strip.AutoScrollPending = !marked.empty();
    return run;
  }
  static std::vector<int> ValuesAtTicks(ProgramRun& run, int ticks) {
    std::vector<int> values;
    for (int tick = 0; tick < ticks; ++tick) {
      AutoScrollStep(run.main);
      values.push_back(run.main.strip.SrcScrollbar.Value());
    }
    return values;
  }
};

TEST_F(AutoScrollTest, OneMarkedFrameLeavesTheWindowSlowlyAndStopsAheadOfAnUnmarkedOne) {
  ProgramRun& run = LoadedWithMarks(6, {1});
  EXPECT_EQ(ValuesAtTicks(run, 23), (std::vector<int>{6,  11, 15, 19, 22, 25, 28, 30, 32, 34, 36, 38,
                                                      40, 42, 43, 44, 45, 46, 47, 48, 48, 48, 48}));
  EXPECT_EQ(OnScreen(run, 2), 1);
  EXPECT_TRUE(run.main.strip.AutoScrollPending);
}

TEST_F(AutoScrollTest, ARunOfMarkedFramesPassesAtFullSpeed) {
  ProgramRun& run = LoadedWithMarks(12, {1, 2});
  // 15 pixels a tick while the frame behind the first one seen is marked too; then 82 / 10 + 1 rounded, and so on.
  EXPECT_EQ(ValuesAtTicks(run, 9), (std::vector<int>{8, 16, 24, 32, 40, 48, 56, 60, 64}));
}

TEST_F(AutoScrollTest, WithEveryPhotoMarkedTheStripRunsToItsEndAndStops) {
  ProgramRun& run = LoadedWithMarks(10, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  ASSERT_EQ(run.main.strip.SrcScrollbar.Max(), 252);
  EXPECT_EQ(ValuesAtTicks(run, 33).back(), 248);
  EXPECT_EQ(ValuesAtTicks(run, 5), (std::vector<int>{248, 248, 248, 248, 248})) << "past Max fails in silence";
  EXPECT_TRUE(run.main.strip.AutoScrollPending);
}

TEST_F(AutoScrollTest, WithTheFirstPhotoSeenUnmarkedNothingMovesUntilItIsMarked) {
  ProgramRun& run = LoadedWithMarks(12, {2, 3});
  EXPECT_EQ(ValuesAtTicks(run, 3), (std::vector<int>{0, 0, 0}));
  EXPECT_TRUE(run.main.strip.AutoScrollPending);
  MarkDragged(run.main, run.main.strip.SrcThumbnail(1));
  EXPECT_EQ(ValuesAtTicks(run, 2), (std::vector<int>{8, 16}));
}

TEST_F(AutoScrollTest, TheFirstPhotoSeenCountsNotTheFirstOfAll) {
  ProgramRun& run = LoadedWithMarks(20, {3});
  run.person.MoveBar(run.main.strip.SrcScrollbar, 97);
  run.main.strip.AutoScrollPending = true;
  // Slot 3 stands at the left edge: its right edge is at 97.
  EXPECT_EQ(ValuesAtTicks(run, 1), std::vector<int>{102});
}

TEST_F(AutoScrollTest, WithNothingPendingNothingMoves) {
  ProgramRun& run = LoadedWithMarks(12, {1, 2, 3});
  run.main.strip.AutoScrollPending = false;
  EXPECT_EQ(ValuesAtTicks(run, 3), (std::vector<int>{0, 0, 0}));
}

TEST_F(AutoScrollTest, AnEmptyStripIsLeftAlone) {
  ProgramRun& run = StartedOnStrip();
  run.main.strip.AutoScrollPending = true;
  EXPECT_EQ(ValuesAtTicks(run, 2), (std::vector<int>{0, 0}));
  EXPECT_TRUE(run.main.strip.AutoScrollPending);
}

TEST_F(AutoScrollTest, ItsTimerStepsTwentyTimesASecond) {
  ProgramRun& run = LoadedWithMarks(40, {});
  for (int i = 1; i <= 40; ++i) run.main.strip.SrcThumbName(i).SetTag("MARK");
  run.main.strip.AutoScrollPending = true;
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 160);
}

TEST_F(AutoScrollTest, ADoubleClickSetsItOffAndTheUsersHandStopsIt) {
  WriteEmpty(12);
  ProgramRun& run = LoadedStrip();
  run.person.DoubleClick(run.main.strip.SrcBackground(1));
  run.Wait(3 * ScrollTick);
  const int value = run.main.strip.SrcScrollbar.Value();
  EXPECT_GT(value, 0);
  run.person.MoveBar(run.main.strip.SrcScrollbar, 5);
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 5);
}

TEST_F(AutoScrollTest, ItRunsAcrossAPageWithoutAJump) {
  WriteEmpty(70);
  ProgramRun& run = LoadedStrip();
  for (int i = 1; i <= 70; ++i) run.main.strip.SrcThumbName(i).SetTag("MARK");
  run.person.MoveBar(run.main.strip.SrcScrollbar, 2392);
  run.main.strip.AutoScrollPending = true;
  EXPECT_EQ(ValuesAtTicks(run, 3), (std::vector<int>{2400, 2408, 2416}));
  EXPECT_EQ(run.main.strip.SrcPageBase, 50);
  EXPECT_EQ(OnScreen(run, 51), 97 * 50 - 2 * 2416);
}

}  // namespace
}  // namespace pixorra
