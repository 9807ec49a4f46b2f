// The strip's display modes: which slots are shown, where, and what becomes of the selection and the bar.
#include <gtest/gtest.h>

#include "filmstrip/Listing.h"
#include "filmstrip/Marks.h"
#include "filmstrip/Views.h"
#include "tests/filmstrip/StripTest.h"
#include "window/FilmStripState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class ViewsTest : public StripTest {
 protected:
  static void Mark(ProgramRun& run, const std::vector<int>& slots) {
    for (const int slot : slots) MarkDragged(run.main, run.main.strip.SrcThumbnail(slot));
  }
  static void ExpectNoSelection(const ProgramRun& run) {
    const PreviewState& preview = run.main.preview;
    EXPECT_FALSE(run.main.strip.SrcThumbFrame.Visible());
    EXPECT_EQ(preview.PicPreview.GetPicture(), preview.Logo);
    EXPECT_EQ(preview.PicPreview.Tag(), "");
    EXPECT_EQ(preview.PicPreview.ToolTipText(), "Pixorra v1.00");
    EXPECT_EQ(preview.PicPreviewSize.ToolTipText(), "Pixorra v1.00");
    EXPECT_EQ(preview.PicPreviewSize.Caption(), "");
    EXPECT_FALSE(preview.PicPreviewSize.Visible());
  }
  static void ExpectFrameOn(const ProgramRun& run, int slot) {
    const FilmStripState& strip = run.main.strip;
    EXPECT_TRUE(strip.SrcThumbFrame.Visible());
    EXPECT_EQ(strip.SrcThumbFrame.Bounds(), strip.SrcThumbnail(slot).Bounds());
  }
};

TEST_F(ViewsTest, AllShowsEveryLiveSlotAndClosesUpOverDeadOnes) {
  WriteEmpty(4);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  SetSrcSlotPath(strip, 2, "");
  ArrangeAll(run.main);
  EXPECT_EQ(ShownSlots(run), (std::vector<int>{1, 3, 4}));
  EXPECT_FALSE(strip.SrcBackground(2).Visible());
  EXPECT_FALSE(strip.SrcThumbName(2).Visible());
  EXPECT_EQ(strip.SrcBackground(3).Bounds(), (Rect{194, 0, 97, 105}));
  EXPECT_EQ(strip.SrcThumbnail(3).Bounds(), (Rect{204, 17, 80, 60}));
  EXPECT_EQ(strip.SrcThumbName(3).Left(), 204);
  EXPECT_EQ(strip.SrcThumbName(3).Top(), 78);
  EXPECT_EQ(strip.SrcShownCount, 3);
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "3 pics");
  EXPECT_EQ(strip.SrcCanvas.Width(), 3 * 97 + 97 + 74);
}

TEST_F(ViewsTest, RemainingShowsUnmarkedLiveSlotsAndAllBringsTheOthersBackWithNoReload) {
  WriteEmpty(6);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  Mark(run, {1, 4});
  SetSrcSlotPath(strip, 6, "");
  run.person.Click(strip.RemainingOption);
  EXPECT_EQ(ShownSlots(run), (std::vector<int>{2, 3, 5}));
  EXPECT_EQ(strip.SrcBackground(2).Left(), 97);
  EXPECT_EQ(strip.SrcBackground(5).Left(), 3 * 97);
  EXPECT_EQ(strip.SrcSlotCount, 6);
  const Picture shaded = strip.SrcThumbnail(4).GetPicture();
  run.person.Click(strip.AllOption);
  EXPECT_EQ(ShownSlots(run), (std::vector<int>{1, 2, 3, 4, 5}));
  EXPECT_EQ(strip.SrcThumbnail(4).GetPicture(), shaded);
}

TEST_F(ViewsTest, InRemainingTheCountIsOfUnmarkedPhotosAndTheTotalOfFiles) {
  WriteEmpty(5);
  ProgramRun& run = LoadedStrip();
  Mark(run, {1, 2});
  run.person.Click(run.main.strip.RemainingOption);
  EXPECT_EQ(run.main.strip.SrcPicsCount.Caption(), "3 pics");
  EXPECT_EQ(run.main.strip.SrcPicsTotal.Caption(), "5 Total");
}

TEST_F(ViewsTest, WithAllPhotosMarkedRemainingShowsNothing) {
  WriteEmpty(8);
  ProgramRun& run = LoadedStrip();
  Mark(run, {1, 2, 3, 4, 5, 6, 7, 8});
  run.person.Click(run.main.strip.RemainingOption);
  EXPECT_EQ(ShownSlots(run), std::vector<int>());
  EXPECT_EQ(run.main.strip.SrcPicsCount.Caption(), "0 pics");
  EXPECT_EQ(run.main.strip.SrcShownCount, 0);
  EXPECT_EQ(run.main.strip.SrcScrollbar.Max(), 50);
}

TEST_F(ViewsTest, APhotoMarkedInRemainingLeavesTheViewAtOnce) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  run.person.Click(run.main.strip.RemainingOption);
  run.person.DoubleClick(run.main.strip.SrcBackground(2));
  EXPECT_EQ(ShownSlots(run), (std::vector<int>{1, 3}));
}

TEST_F(ViewsTest, PhotosMarkedInAnEarlierRunLeaveRemainingAsTheyComeUp) {
  WritePhotos(4);
  Mark(LoadedStrip(), {2, 3});
  ProgramRun& run = StartedOnStrip();
  run.person.Click(run.main.strip.RemainingOption);
  run.LoadAll();
  EXPECT_EQ(ShownSlots(run), (std::vector<int>{1, 4}));
  EXPECT_EQ(run.main.strip.SrcBackground(4).Left(), 2 * 97);
  EXPECT_EQ(run.main.strip.SrcShownCount, 2);
  EXPECT_EQ(run.main.strip.SrcPicsCount.Caption(), "2 pics");
}

TEST_F(ViewsTest, TheCanvasEndsBehindTheLastSlotEvenWhenThatIsHidden) {
  WriteEmpty(6);
  ProgramRun& run = LoadedStrip();
  Mark(run, {6});
  run.person.Click(run.main.strip.RemainingOption);
  EXPECT_EQ(run.main.strip.SrcCanvas.Width(), 6 * 97 + 97 + 74);
}

TEST_F(ViewsTest, ArrangingAnEmptyStripChangesNothingNotEvenTheCaptions) {
  ProgramRun& run = StartedOnStrip();
  FilmStripState& strip = run.main.strip;
  run.Wait(0.1);
  strip.SrcPicsCount.SetCaption("count");
  strip.SrcPicsTotal.SetCaption("total");
  const Rect canvas = strip.SrcCanvas.Bounds();
  ArrangeAll(run.main);
  ArrangeRemaining(run.main);
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "count");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "total");
  EXPECT_EQ(strip.SrcCanvas.Bounds(), canvas);
}

// --- the selection ---------------------------------------------------------------------------------------------------

TEST_F(ViewsTest, TheFrameFollowsItsPhotoFromViewToView) {
  WritePhotos(4);
  ProgramRun& run = LoadedStrip();
  Mark(run, {1});
  Select(run, 3);
  run.person.Click(run.main.strip.RemainingOption);
  EXPECT_EQ(run.main.strip.SrcThumbnail(3).Left(), 2 * 97 + 10);
  ExpectFrameOn(run, 3);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), PathOf(NumberedName(3)));
  run.person.Click(run.main.strip.AllOption);
  EXPECT_EQ(run.main.strip.SrcThumbnail(3).Left(), 3 * 97 + 10);
  ExpectFrameOn(run, 3);
}

TEST_F(ViewsTest, ASelectedPhotoThatIsMarkedInRemainingLosesTheSelection) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  run.person.Click(run.main.strip.RemainingOption);
  Select(run, 2);
  Mark(run, {2});
  ExpectNoSelection(run);
}

TEST_F(ViewsTest, ASelectedPhotoThatIsMarkedInAllKeepsTheSelection) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  Select(run, 2);
  Mark(run, {2});
  Redisplay_FilmStrip(run.main);
  ExpectFrameOn(run, 2);
}

TEST_F(ViewsTest, ASelectedPhotoThatHasGoneLosesTheSelection) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  Select(run, 2);
  SetSrcSlotPath(run.main.strip, 2, "");
  ArrangeAll(run.main);
  ExpectNoSelection(run);
}

TEST_F(ViewsTest, WithNothingSelectedArrangingLeavesThePreviewAlone) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  run.main.preview.PicPreview.SetTag("of the open folder");
  ArrangeAll(run.main);
  ArrangeRemaining(run.main);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), "of the open folder");
  EXPECT_FALSE(run.main.strip.SrcThumbFrame.Visible());
}

// --- the mode's options ----------------------------------------------------------------------------------------------

TEST_F(ViewsTest, AClickOnAModeBringsTheSelectedPhotoThreeFramesFromTheLeft) {
  WriteEmpty(30);
  ProgramRun& run = LoadedStrip();
  Select(run, 10);
  run.person.Click(run.main.strip.AllOption);
  // (970 - 291) / 2 = 339.5, to the even neighbour.
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 340);
  EXPECT_EQ(OnScreen(run, 10), 9 * 97 - 680);
  ExpectFrameOn(run, 10);
}

TEST_F(ViewsTest, APhotoTooNearTheStartLeavesTheBarWhereItIs) {
  WriteEmpty(30);
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 20);
  Select(run, 2);
  run.person.Click(run.main.strip.AllOption);
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 20);
  ExpectFrameOn(run, 2);
}

TEST_F(ViewsTest, AClickOnAModeBringsTheSelectedPhotoIntoViewFromAndOnEveryPage) {
  WriteEmpty(130);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  for (const int slot : {1, 3, 40, 51, 77, 101, 127, 130}) {
    for (const int value : {0, 2600, 6000}) {
      for (OptionButton* option : {&strip.RemainingOption, &strip.AllOption, &strip.AutoScrollOption}) {
        Select(run, slot);
        run.person.MoveBar(strip.SrcScrollbar, value);
        run.person.Click(*option);
        EXPECT_TRUE(IsInView(run, slot)) << option->Name() << " " << slot << " from " << value;
        ExpectFrameOn(run, slot);
      }
    }
  }
}

TEST_F(ViewsTest, APhotoThatMovesUpInRemainingOrDownInAllStaysInView) {
  WriteEmpty(130);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  for (int i = 1; i <= 80; ++i) strip.SrcThumbName(i).SetTag("MARK");
  Select(run, 120);
  run.person.Click(strip.RemainingOption);
  EXPECT_TRUE(IsInView(run, 120));
  EXPECT_EQ(strip.SrcPageBase, 0);
  run.person.Click(strip.AutoScrollOption);
  EXPECT_TRUE(IsInView(run, 120));
  EXPECT_EQ(strip.SrcPageBase, 100);
}

TEST_F(ViewsTest, WithNothingSelectedTheBarStays) {
  WriteEmpty(30);
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 77);
  for (OptionButton* option : {&run.main.strip.RemainingOption, &run.main.strip.AllOption}) {
    run.person.Click(*option);
    EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 77);
  }
}

TEST_F(ViewsTest, AutoWantsTheScrollRemainingDoesNotAndAllLeavesIt) {
  WriteEmpty(2);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  run.person.Click(strip.AllOption);
  EXPECT_FALSE(strip.AutoScrollPending);
  run.person.Click(strip.AutoScrollOption);
  EXPECT_TRUE(strip.AutoScrollPending);
  run.person.Click(strip.AllOption);
  EXPECT_TRUE(strip.AutoScrollPending);
  run.person.Click(strip.RemainingOption);
  EXPECT_FALSE(strip.AutoScrollPending);
  run.person.Click(strip.AllOption);
  EXPECT_FALSE(strip.AutoScrollPending);
}

TEST_F(ViewsTest, ANewFolderKeepsTheModeAndANewRunStartsInAuto) {
  WriteEmpty(2);
  drive.Write("C:\\Next\\x.bmp", "");
  ProgramRun& run = LoadedStrip();
  run.person.Click(run.main.strip.RemainingOption);
  run.main.strip.SrcFileList.SetPath("C:\\Next");
  run.LoadAll();
  EXPECT_TRUE(run.main.strip.RemainingOption.Value());
  run.Close();
  EXPECT_TRUE(Started().main.strip.AutoScrollOption.Value());
}

// --- Redisplay_FilmStrip and ClearFilmStrip
// ----------------------------------------------------------------------------

TEST_F(ViewsTest, RedisplayReadsTheFolderAndKeepsTheScrollPosition) {
  WriteEmpty(30);
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 333);
  drive.Write(PathOf("later.bmp"), "");
  Redisplay_FilmStrip(run.main);
  EXPECT_EQ(run.main.strip.SrcPicsTotal.Caption(), "31 Total");
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 333);
  EXPECT_TRUE(run.main.strip.SrcCanvas.Visible());
}

TEST_F(ViewsTest, RedisplayOfAShortStripKeepsTheScrollPositionToo) {
  WriteEmpty(2);
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 33);
  Redisplay_FilmStrip(run.main);
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 33);
  EXPECT_EQ(run.main.strip.SrcScrollbar.Max(), 50);
  EXPECT_EQ(OnScreen(run, 1), -66);
}

TEST_F(ViewsTest, RedisplayArrangesByThePresentMode) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  run.person.Click(run.main.strip.RemainingOption);
  run.main.strip.SrcThumbName(1).SetTag("MARK");
  Redisplay_FilmStrip(run.main);
  EXPECT_EQ(ShownSlots(run), (std::vector<int>{2, 3}));
}

TEST_F(ViewsTest, RedisplayWantsTheScrollInAutoWithNothingSelected) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  strip.AutoScrollPending = false;
  Redisplay_FilmStrip(run.main);
  EXPECT_TRUE(strip.AutoScrollPending);
  strip.AutoScrollPending = false;
  Select(run, 1);
  Redisplay_FilmStrip(run.main);
  EXPECT_FALSE(strip.AutoScrollPending) << "something is selected";
  strip.SrcThumbFrame.SetVisible(false);
  for (OptionButton* option : {&strip.AllOption, &strip.RemainingOption}) {
    run.person.Click(*option);
    Redisplay_FilmStrip(run.main);
    EXPECT_FALSE(strip.AutoScrollPending) << option->Name();
  }
}

TEST_F(ViewsTest, ClearFilmStripUnloadsAllSlotsAndResetsBarAndSelection) {
  WriteEmpty(30);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  run.person.MoveBar(strip.SrcScrollbar, 300);
  Select(run, 3);
  ClearFilmStrip(run.main);
  EXPECT_EQ(strip.SrcThumbnail.UBound(), 0);
  EXPECT_EQ(strip.SrcBackground.UBound(), 0);
  EXPECT_EQ(strip.SrcThumbName.UBound(), 0);
  EXPECT_FALSE(strip.SrcThumbnail(0).Visible());
  EXPECT_EQ(strip.SrcSlotCount, 0);
  EXPECT_EQ(strip.SrcShownCount, 0);
  EXPECT_EQ(strip.SrcScrollbar.Max(), 50);
  EXPECT_EQ(strip.SrcScrollbar.LargeChange(), 1);
  EXPECT_TRUE(strip.SrcScrollbar.Enabled());
  ExpectNoSelection(run);
}

TEST_F(ViewsTest, ClearFilmStripLeavesAPhotoOfTheOpenFolderSelected) {
  WriteEmpty(2);
  ProgramRun& run = LoadedStrip();
  run.main.preview.PicPreview.SetTag("of the open folder");
  ClearFilmStrip(run.main);
  ClearFilmStrip(run.main);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), "of the open folder");
}

TEST_F(ViewsTest, ClearFilmStripGoesOnOverSlotsThatAreNotThere) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  run.main.strip.SrcThumbnail.Unload(2);
  ClearFilmStrip(run.main);
  EXPECT_EQ(run.main.strip.SrcBackground.UBound(), 0);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
}

}  // namespace
}  // namespace pixorra
