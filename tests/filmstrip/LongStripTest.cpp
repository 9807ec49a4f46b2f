// Strips that are longer than the bar's 16 bits are in units of 2 pixels: every photo is within reach. The photos are
// slots without a file, so that there may be as many as slots have numbers.
#include <array>
#include <cstdint>
#include <gtest/gtest.h>

#include "filmstrip/Listing.h"
#include "filmstrip/Scrolling.h"
#include "filmstrip/Views.h"
#include "tests/filmstrip/StripTest.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

constexpr int MostSlots = 32767;
constexpr int MostValue = 32767;
constexpr int Width = 488;  // of the strip's window

class LongStripTest : public StripTest {
 protected:
  // The slots 1 to `count`, made while the window is hidden.
  ProgramRun& StripOf(int count) {
    ProgramRun& run = StartedOnStrip();
    run.main.Window.Hide();
    run.main.strip.AllOption.SetValue(true);
    run.main.strip.SrcLoadedPath = run.main.strip.SrcFileList.Path();
    Grow(run, count);
    run.main.Window.SetVisible(true);
    return run;
  }
  static void Grow(ProgramRun& run, int count) {
    for (int i = run.main.strip.SrcSlotCount + 1; i <= count; ++i) AddSrcSlot(run.main, PathOf(NumberedName(i)));
  }
  static void MarkAll(ProgramRun& run, int from) {
    for (int i = from; i <= run.main.strip.SrcSlotCount; ++i) run.main.strip.SrcThumbName(i).SetTag("MARK");
  }
  // Each photo around the view is where the bar says, and the page is the one that the view is on.
  static void ExpectViewAtBar(const ProgramRun& run) {
    const FilmStripState& strip = run.main.strip;
    const int scrolled = strip.SrcScrollbar.Value() * strip.SrcBarScale.Unit;
    for (int slot = std::max(1, scrolled / 97 - 3); slot <= std::min(strip.SrcSlotCount, scrolled / 97 + 9); ++slot) {
      ASSERT_EQ(OnScreen(run, slot), 97 * (slot - 1) - scrolled) << "slot " << slot;
    }
    EXPECT_EQ(strip.SrcPageBase % 50, 0);
    EXPECT_NEAR(strip.SrcPageBase + 25, scrolled / 97.0, 26);
  }
  static void ArrowOn(ProgramRun& run) {
    ScrollBar& bar = run.main.strip.SrcScrollbar;
    run.person.MoveBar(bar, bar.Value() + bar.SmallChange());
  }
  // The first of the photos in view, by its number.
  static int FirstInView(const ProgramRun& run) {
    const FilmStripState& strip = run.main.strip;
    return strip.SrcScrollbar.Value() * strip.SrcBarScale.Unit / 97 + 1;
  }
};

// Values that nobody chose, the same in each run.
class Values {
 public:
  int Next(int most) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((state_ >> 33U) % static_cast<std::uint64_t>(most + 1));
  }

 private:
  std::uint64_t state_ = 20261122;
};

TEST_F(LongStripTest, TheBarCountsInTwoPixelsWhileTheStripFits) {
  // 2 x 32,767 pixels are the range of a strip of 679 photos and 94 pixels more.
  ProgramRun& run = StripOf(680);
  const FilmStripState& strip = run.main.strip;
  EXPECT_EQ(strip.SrcBarScale.Unit, 2);
  EXPECT_EQ(strip.SrcScrollbar.Max(), 32748);  // (679 x 97 - 488 + 120) / 2 = 32,747.5
  Grow(run, 681);
  EXPECT_EQ(strip.SrcBarScale.Unit, 4);
  EXPECT_EQ(strip.SrcScrollbar.Max(), 16398);  // (680 x 97 - 488 + 120) / 4
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "681 pics");
}

TEST_F(LongStripTest, TheUnitIsTheLeastEvenNumberThatIsEnough) {
  ProgramRun& run = StripOf(3000);
  const FilmStripState& strip = run.main.strip;
  ArrangeAll(run.main);
  EXPECT_EQ(strip.SrcBarScale.Unit, 10);
  EXPECT_EQ(strip.SrcScrollbar.Max(), 29064);  // (3000 x 97 - 488 + 120) / 10 = 29,063.2, and nothing is cut off
  EXPECT_EQ(strip.SrcScrollbar.SmallChange(), 1);
  EXPECT_EQ(strip.SrcScrollbar.LargeChange(), 1);
}

TEST_F(LongStripTest, ThePhotoInViewStaysInViewWhileTheStripGrows) {
  ProgramRun& run = StripOf(600);
  FilmStripState& strip = run.main.strip;
  run.person.MoveBar(strip.SrcScrollbar, 97 * 480 / 2);
  strip.AutoScrollPending = true;
  ASSERT_EQ(OnScreen(run, 481), 0);
  int unit = 2;
  int changes = 0;
  for (int count = 650; count <= 3000; count += 50) {
    const int before = OnScreen(run, 481);
    Grow(run, count);
    if (unit != strip.SrcBarScale.Unit) ++changes;
    unit = strip.SrcBarScale.Unit;
    ASSERT_LE(std::abs(OnScreen(run, 481) - before), unit / 2) << count;
    ASSERT_NO_FATAL_FAILURE(ExpectViewAtBar(run)) << count;
  }
  EXPECT_EQ(changes, 4);
  EXPECT_TRUE(strip.AutoScrollPending) << "nobody has used the bar";
}

TEST_F(LongStripTest, ThePhotoInViewStaysInViewWhenTheViewGetsShorterAndLonger) {
  ProgramRun& run = StripOf(3000);
  FilmStripState& strip = run.main.strip;
  MarkAll(run, 500);
  run.person.MoveBar(strip.SrcScrollbar, 97 * 200 / 10);
  run.person.Click(strip.RemainingOption);
  EXPECT_EQ(strip.SrcBarScale.Unit, 2);
  EXPECT_EQ(OnScreen(run, 201), 0);
  ExpectViewAtBar(run);
  run.person.Click(strip.AllOption);
  EXPECT_EQ(strip.SrcBarScale.Unit, 10);
  EXPECT_EQ(OnScreen(run, 201), 0);
  ExpectViewAtBar(run);
}

TEST_F(LongStripTest, AViewThatGetsShorterThanItsPlaceGoesToItsEnd) {
  ProgramRun& run = StripOf(3000);
  FilmStripState& strip = run.main.strip;
  MarkAll(run, 60);
  run.person.MoveBar(strip.SrcScrollbar, strip.SrcScrollbar.Max());
  run.person.Click(strip.RemainingOption);
  EXPECT_EQ(strip.SrcScrollbar.Value(), strip.SrcScrollbar.Max());
  EXPECT_TRUE(IsInView(run, 59));
  EXPECT_EQ(strip.SrcPageBase, 50);
}

TEST_F(LongStripTest, ByAnyValueOfTheBarEachPhotoIsAtItsPlace) {
  ProgramRun& run = StripOf(3000);
  FilmStripState& strip = run.main.strip;
  Values values;
  for (int i = 0; i < 60; ++i) {
    const int value = values.Next(strip.SrcScrollbar.Max());
    if (i % 2 == 0) {
      run.person.MoveBar(strip.SrcScrollbar, value);
    } else {
      run.person.DragBar(strip.SrcScrollbar, value);
    }
    ASSERT_EQ(strip.SrcScrollbar.Value(), value);
    ASSERT_NO_FATAL_FAILURE(ExpectViewAtBar(run)) << value;
  }
}

TEST_F(LongStripTest, TheThumbReachesTheLastPhoto) {
  ProgramRun& run = StripOf(3000);
  run.person.DragBar(run.main.strip.SrcScrollbar, MostValue);
  EXPECT_TRUE(IsInView(run, 3000));
  ExpectViewAtBar(run);
}

TEST_F(LongStripTest, TheArrowReachesTheLastPhotoAndPassesEachOther) {
  ProgramRun& run = StripOf(3000);
  const FilmStripState& strip = run.main.strip;
  int seen = 5;  // photos up to this one have been in view
  while (strip.SrcScrollbar.Value() < strip.SrcScrollbar.Max()) {
    ArrowOn(run);
    ASSERT_LE(FirstInView(run), seen + 1);
    while (seen < 3000 && IsInView(run, seen + 1)) ++seen;
  }
  EXPECT_EQ(seen, 3000);
}

TEST_F(LongStripTest, AutoScrollRunsToTheLastPhotoAtItsUsualSpeed) {
  ProgramRun& run = StripOf(3000);
  FilmStripState& strip = run.main.strip;
  MarkAll(run, 1);
  const int start = strip.SrcScrollbar.Max() - 2000;
  run.person.MoveBar(strip.SrcScrollbar, start);
  strip.AutoScrollPending = true;
  for (int tick = 1; tick <= 1000; ++tick) AutoScrollStep(run.main);
  EXPECT_NEAR(strip.SrcScrollbar.Value() - start, 1500, 1) << "15 pixels a tick";
  for (int tick = 1; tick <= 400; ++tick) AutoScrollStep(run.main);
  EXPECT_TRUE(IsInView(run, 3000));
  EXPECT_EQ(strip.SrcScrollbar.Value(), strip.SrcScrollbar.Max());
  EXPECT_TRUE(strip.AutoScrollPending);
}

TEST_F(LongStripTest, AutoScrollStopsWithAnUnmarkedPhotoAtTheLeftEdge) {
  ProgramRun& run = StripOf(3000);
  FilmStripState& strip = run.main.strip;
  MarkAll(run, 1);
  strip.SrcThumbName(2500).SetTag("");
  run.person.MoveBar(strip.SrcScrollbar, 2490 * 97 / 10);
  strip.AutoScrollPending = true;
  for (int tick = 0; tick < 400; ++tick) AutoScrollStep(run.main);
  EXPECT_NEAR(OnScreen(run, 2500), 0, 10) << "within a unit of the bar";
  EXPECT_LE(OnScreen(run, 2500), 0);
}

TEST_F(LongStripTest, MovesByPixelsReachTheLastPhotoAndSmallOnesAddUp) {
  ProgramRun& run = StripOf(3000);
  const FilmStripState& strip = run.main.strip;
  for (int i = 0; i < 1000; ++i) ScrollStripBy(run.main, 1);
  EXPECT_EQ(OnScreen(run, 1), -1000);
  for (int i = 0; i < 3000; ++i) ScrollStripBy(run.main, 97);
  EXPECT_EQ(strip.SrcScrollbar.Value(), strip.SrcScrollbar.Max());
  EXPECT_TRUE(IsInView(run, 3000));
}

TEST_F(LongStripTest, AClickOnAModeBringsAnyPhotoIntoView) {
  ProgramRun& run = StripOf(3000);
  FilmStripState& strip = run.main.strip;
  Values values;
  for (int i = 0; i < 20; ++i) {
    const int slot = values.Next(2999) + 1;
    Select(run, slot);
    run.person.MoveBar(strip.SrcScrollbar, values.Next(strip.SrcScrollbar.Max()));
    run.person.Click(i % 2 == 0 ? strip.RemainingOption : strip.AllOption);
    EXPECT_TRUE(IsInView(run, slot)) << slot;
  }
}

TEST_F(LongStripTest, AnotherStripBeginsInTwoPixelsAgain) {
  ProgramRun& run = StripOf(3000);
  FilmStripState& strip = run.main.strip;
  run.person.MoveBar(strip.SrcScrollbar, 20000);
  ClearFilmStrip(run.main);
  EXPECT_EQ(strip.SrcBarScale.Unit, 2);
  EXPECT_EQ(strip.SrcScrollbar.Max(), 50);
  Grow(run, 3);
  EXPECT_EQ(OnScreen(run, 1), 0);
}

// --- as many slots as there are numbers for
// ---------------------------------------------------------------------------

TEST_F(LongStripTest, TheLastOfAllSlotsIsReachedByThumbArrowPixelsAndAutoScroll) {
  ProgramRun& run = StripOf(MostSlots);
  FilmStripState& strip = run.main.strip;
  ScrollBar& bar = strip.SrcScrollbar;
  EXPECT_EQ(strip.SrcBarScale.Unit, 98);
  EXPECT_GT(bar.Max(), 32000);
  AddSrcSlot(run.main, PathOf("oneMore.bmp"));
  EXPECT_EQ(strip.SrcSlotCount, MostSlots);
  EXPECT_EQ(strip.SrcThumbnail.UBound(), MostSlots);

  Values values;
  for (int i = 0; i < 10; ++i) {
    run.person.MoveBar(bar, values.Next(bar.Max()));
    ASSERT_NO_FATAL_FAILURE(ExpectViewAtBar(run));
  }
  run.person.DragBar(bar, MostValue);
  EXPECT_TRUE(IsInView(run, MostSlots));
  run.person.MoveBar(bar, bar.Max() - 120);
  EXPECT_FALSE(IsInView(run, MostSlots));
  while (bar.Value() < bar.Max()) ArrowOn(run);
  EXPECT_TRUE(IsInView(run, MostSlots));
  run.person.MoveBar(bar, bar.Max() - 40);
  for (int notch = 0; notch < 45; ++notch) ScrollStripBy(run.main, 97);
  EXPECT_TRUE(IsInView(run, MostSlots));

  run.person.MoveBar(bar, bar.Max() - 20);
  MarkAll(run, MostSlots - 100);
  strip.AutoScrollPending = true;
  for (int tick = 0; tick < 200; ++tick) AutoScrollStep(run.main);
  EXPECT_TRUE(IsInView(run, MostSlots));
  ExpectViewAtBar(run);
}

TEST_F(LongStripTest, TheRestOfALongerFolderIsCountedAndNotLoaded) {
  constexpr int InFolder = MostSlots + 9;
  WriteEmpty(InFolder);
  ProgramRun& run = StripOf(MostSlots - 1);
  run.Wait(10 * ThumbsTick);
  FilmStripState& strip = run.main.strip;
  EXPECT_EQ(strip.SrcSlotCount, MostSlots);
  EXPECT_EQ(strip.SrcThumbnail(MostSlots).Tag(), PathOf(NumberedName(MostSlots)));
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "32767 pics");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "32776 Total");
  run.person.MoveTo(strip.AllButton);
  EXPECT_EQ(strip.AllButton.MouseIcon(), strip.BrowseButton.MouseIcon()) << "it waits for no more photos";
}

}  // namespace
}  // namespace pixorra
