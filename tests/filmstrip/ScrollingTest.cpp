// Moving the strip by its bar: units of 2 pixels, and pages of 50 frames that nobody sees turning.
#include <gtest/gtest.h>

#include "filmstrip/Listing.h"
#include "filmstrip/Scrolling.h"
#include "tests/filmstrip/StripTest.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

class ScrollingTest : public StripTest {
 protected:
  // Each rearranging reads the folder once.
  static unsigned Arrangings(const ProgramRun& run) { return run.main.strip.SrcFileList.Generation(); }
};

TEST_F(ScrollingTest, TheBarCountsInUnitsOfTwoPixels) {
  WriteEmpty(20);
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 100);
  EXPECT_EQ(run.main.strip.SrcCanvas.Left(), -297);
  EXPECT_EQ(OnScreen(run, 1), -200);
  run.person.MoveBar(run.main.strip.SrcScrollbar, 0);
  EXPECT_EQ(OnScreen(run, 1), 0);
}

TEST_F(ScrollingTest, ThePageTurnsAtTheFiftiethFrameAndThePictureDoesNotJump) {
  WriteEmpty(120);
  ProgramRun& run = LoadedStrip();
  // 2 x 2400 / 97 is 49.48, 2 x 2401 / 97 is 49.51.
  for (const int value : {2395, 2399, 2400, 2401, 2402, 2410, 2401, 2400, 2390, 4826, 4825, 4826}) {
    run.person.MoveBar(run.main.strip.SrcScrollbar, value);
    EXPECT_EQ(run.main.strip.SrcPageBase, value >= 4826 ? 100 : value >= 2401 ? 50 : 0) << value;
    for (const int slot : {1, 49, 50, 51, 52, 99, 100, 101, 120}) {
      ASSERT_EQ(OnScreen(run, slot), 97 * (slot - 1) - 2 * value) << "slot " << slot << " at " << value;
    }
  }
}

TEST_F(ScrollingTest, AThumbDraggedAcrossAPageRearrangesOnce) {
  WriteEmpty(120);
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 2300);
  for (const int to : {2500, 2300}) {
    const unsigned before = Arrangings(run);
    run.person.DragBar(run.main.strip.SrcScrollbar, to);
    EXPECT_EQ(Arrangings(run) - before, 1U) << "to " << to;
    EXPECT_EQ(OnScreen(run, 60), 97 * 59 - 2 * to);
    EXPECT_EQ(run.main.strip.SrcScrollbar.Tag(), "");
  }
}

TEST_F(ScrollingTest, AThumbDraggedWithinAPageRearrangesNothing) {
  WriteEmpty(60);
  ProgramRun& run = LoadedStrip();
  const unsigned before = Arrangings(run);
  run.person.DragBar(run.main.strip.SrcScrollbar, 2000);
  EXPECT_EQ(Arrangings(run), before);
  EXPECT_EQ(OnScreen(run, 1), -4000);
}

TEST_F(ScrollingTest, AChangeWhileTheThumbsDragIsHandledDoesNothing) {
  WriteEmpty(20);
  ProgramRun& run = LoadedStrip();
  run.main.strip.AutoScrollPending = true;
  run.main.strip.SrcScrollbar.SetTag("BUSY");
  run.person.MoveBar(run.main.strip.SrcScrollbar, 100);
  EXPECT_EQ(run.main.strip.SrcCanvas.Left(), -97);
  EXPECT_TRUE(run.main.strip.AutoScrollPending);
}

TEST_F(ScrollingTest, AMoveByTheUserStopsAPendingAutoScroll) {
  WriteEmpty(20);
  ProgramRun& run = LoadedStrip();
  run.main.strip.AutoScrollPending = true;
  run.person.MoveBar(run.main.strip.SrcScrollbar, 100);
  EXPECT_FALSE(run.main.strip.AutoScrollPending);
  run.main.strip.AutoScrollPending = true;
  run.main.strip.SrcScrollbar.UserScrolledTo(120);
  EXPECT_FALSE(run.main.strip.AutoScrollPending);
}

TEST_F(ScrollingTest, TheBarDoesNotKeepTheFocus) {
  WriteEmpty(20);
  ProgramRun& run = LoadedStrip();
  run.person.Focus(run.main.strip.SrcScrollbar);
  EXPECT_TRUE(run.main.strip.SrcScrollbar.HasFocus());
  run.person.MoveBar(run.main.strip.SrcScrollbar, 10);
  EXPECT_FALSE(run.main.strip.SrcScrollbar.HasFocus());
  EXPECT_TRUE(run.main.strip.SrcScrollbar.Enabled());
}

TEST_F(ScrollingTest, TheBarTakesNoKeys) {
  ProgramRun& run = Started();
  ScrollBar& bar = run.main.strip.SrcScrollbar;
  for (int code : {key::Left, key::Right, key::PageDown, key::End}) {
    bar.On().KeyDown(bar, code, shift::None);
    EXPECT_EQ(code, 0);
  }
}

TEST_F(ScrollingTest, PagesFollowTheTemplatesWidthAndTheCanvasTheConstant) {
  WriteEmpty(120);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  strip.SrcBackground(0).SetWidth(100);
  run.person.MoveBar(strip.SrcScrollbar, 2470);  // 49.4 frames of 100
  EXPECT_EQ(strip.SrcPageBase, 0);
  EXPECT_EQ(strip.SrcCanvas.Left(), -4940 - 97);
  run.person.MoveBar(strip.SrcScrollbar, 2476);  // 49.52
  EXPECT_EQ(strip.SrcPageBase, 50);
  EXPECT_EQ(strip.SrcCanvas.Left(), -4952 + 4850 - 97);
  run.person.MoveBar(strip.SrcScrollbar, 2475);  // 49.5, to the even neighbour
  EXPECT_EQ(strip.SrcPageBase, 50);
  run.person.MoveBar(strip.SrcScrollbar, 2425);  // 48.5
  EXPECT_EQ(strip.SrcPageBase, 0);
}

TEST_F(ScrollingTest, ASlotThatComesUpOnALaterPageStandsOnThatPage) {
  WriteEmpty(70);
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 2600);
  drive.Write(PathOf("later.bmp"), "");
  run.main.strip.SrcFileList.Refresh();
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcBackground(71).Left(), (70 - 50) * 97 + 97);
  EXPECT_EQ(OnScreen(run, 71), 97 * 70 - 5200);
}

TEST_F(ScrollingTest, RemainingHasPagesOfItsOwnPositions) {
  WriteEmpty(130);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  for (int i = 2; i <= 40; i += 2) strip.SrcThumbName(i).SetTag("MARK");
  run.person.Click(strip.RemainingOption);
  run.person.MoveBar(strip.SrcScrollbar, 2600);
  EXPECT_EQ(strip.SrcPageBase, 50);
  // Twenty slots before it are hidden.
  EXPECT_EQ(OnScreen(run, 100), 97 * 79 - 5200);
  EXPECT_FALSE(strip.SrcThumbnail(40).Visible());
}

TEST_F(ScrollingTest, AViewThatGetsShorterThanItsPlaceGoesBackToItsEnd) {
  WriteEmpty(130);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  run.person.MoveBar(strip.SrcScrollbar, 5500);
  for (int i = 11; i <= 130; ++i) strip.SrcThumbName(i).SetTag("MARK");
  run.person.Click(strip.RemainingOption);
  EXPECT_EQ(strip.SrcScrollbar.Max(), 301);
  EXPECT_EQ(strip.SrcScrollbar.Value(), 301);
  EXPECT_EQ(strip.SrcPageBase, 0);
  EXPECT_EQ(OnScreen(run, 10), 9 * 97 - 602);
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "10 pics");
}

TEST_F(ScrollingTest, AThumbPulledOverAPageOfAStripThatHasBecomeShorterShowsWhatTheBarSays) {
  WriteEmpty(130);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  for (int i = 60; i <= 130; ++i) SetSrcSlotPath(strip, i, "");
  strip.SrcScrollbar.UserScrolledTo(5500);
  EXPECT_EQ(strip.SrcScrollbar.Max(), 2678);  // (59 x 97 - 488 + 120) / 2 = 2677.5
  EXPECT_EQ(strip.SrcScrollbar.Value(), 2678);
  EXPECT_EQ(strip.SrcPageBase, 50);
  EXPECT_EQ(OnScreen(run, 59), 58 * 97 - 2 * 2678);
  strip.SrcScrollbar.UserLetGo();
  EXPECT_EQ(OnScreen(run, 59), 58 * 97 - 2 * 2678);
}

TEST_F(ScrollingTest, AClickIntoABarWhoseStripHasBecomeShorterShowsWhatTheBarSays) {
  WriteEmpty(130);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  for (int i = 60; i <= 130; ++i) SetSrcSlotPath(strip, i, "");
  run.person.MoveBar(strip.SrcScrollbar, 5500);
  EXPECT_EQ(strip.SrcScrollbar.Value(), 2678);
  EXPECT_EQ(strip.SrcPageBase, 50);
  EXPECT_EQ(OnScreen(run, 59), 58 * 97 - 2 * 2678);
}

// --- by pixels, as a wheel and a touch pad do ------------------------------------------------------------------------

TEST_F(ScrollingTest, AMoveByAFrameBringsTheNextPhotoToTheLeftEdge) {
  WriteEmpty(60);
  ProgramRun& run = LoadedStrip();
  for (int photo = 2; photo <= 52; ++photo) {
    ScrollStripBy(run.main, 97);
    ASSERT_NEAR(OnScreen(run, photo), 0, 1) << photo;
  }
  EXPECT_EQ(run.main.strip.SrcPageBase, 50);
  for (int photo = 51; photo >= 1; --photo) {
    ScrollStripBy(run.main, -97);
    ASSERT_NEAR(OnScreen(run, photo), 0, 1) << photo;
  }
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 0);
}

TEST_F(ScrollingTest, MovesOfLessThanAUnitAddUp) {
  WriteEmpty(20);
  ProgramRun& run = LoadedStrip();
  for (int i = 0; i < 64; ++i) ScrollStripBy(run.main, 0.25);
  EXPECT_EQ(OnScreen(run, 1), -16);
  for (int i = 0; i < 16; ++i) ScrollStripBy(run.main, -0.75);
  EXPECT_EQ(OnScreen(run, 1), -4);
}

TEST_F(ScrollingTest, AMoveBeyondAnEndStopsThereAndTheWayBackBeginsAtOnce) {
  WriteEmpty(20);
  ProgramRun& run = LoadedStrip();
  const ScrollBar& bar = run.main.strip.SrcScrollbar;
  ScrollStripBy(run.main, 1e12);
  EXPECT_EQ(bar.Value(), bar.Max());
  ScrollStripBy(run.main, 1);
  ScrollStripBy(run.main, -2);
  EXPECT_EQ(bar.Value(), bar.Max() - 1);
  ScrollStripBy(run.main, -1e12);
  EXPECT_EQ(bar.Value(), 0);
  ScrollStripBy(run.main, -1);
  ScrollStripBy(run.main, 2);
  EXPECT_EQ(bar.Value(), 1);
}

TEST_F(ScrollingTest, EvenASmallMoveByPixelsStopsAPendingAutoScroll) {
  WriteEmpty(20);
  ProgramRun& run = LoadedStrip();
  for (const double pixels : {0.25, 97.0}) {
    run.main.strip.AutoScrollPending = true;
    ScrollStripBy(run.main, pixels);
    EXPECT_FALSE(run.main.strip.AutoScrollPending) << pixels;
  }
}

}  // namespace
}  // namespace pixorra
