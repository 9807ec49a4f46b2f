// The strip's folder and its slots: captions, and how a slot comes up.
#include <gtest/gtest.h>

#include "app/BackgroundLoading.h"
#include "base/Palette.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Views.h"
#include "platform/runtime/Errors.h"
#include "tests/filmstrip/StripTest.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

using ListingTest = StripTest;

// --- the folder's captions -------------------------------------------------------------------------------------------

TEST_F(ListingTest, AFolderIsCalledByItsNameAndItsPathIsTheToolTip) {
  WriteEmpty(3);
  const FilmStripState& strip = StartedOnStrip().main.strip;
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Strip");
  EXPECT_EQ(strip.SrcFolderPath.ToolTipText(), "C:\\Strip");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "3 Total");
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "");
}

TEST_F(ListingTest, AFolderWithoutMatchingFilesCountsNone) {
  drive.Write(PathOf("a.txt"), "");
  ProgramRun& run = StartedOnStrip();
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcPicsTotal.Caption(), "0 Total");
  EXPECT_EQ(run.main.strip.SrcPicsCount.Caption(), "");
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
}

TEST_F(ListingTest, TheCamerasFolderIsCalledCameraPhotosEvenWhenItIsADrivesRoot) {
  drive.Write("C:\\a.bmp", "");
  ProgramRun& run = Started();
  run.main.strip.CameraLocation = "C:\\";
  SrcFileList_PathChange(run.main);
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "Camera Photos");
  EXPECT_EQ(run.main.strip.SrcFolderPath.ToolTipText(), "C:\\");
  run.main.strip.CameraLocation = "C:\\Other";
  SrcFileList_PathChange(run.main);
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "C:\\");
}

TEST_F(ListingTest, ANewFolderShowsItsCaptionsAtOnceAndTheOldSlotsStay) {
  WriteEmpty(2);
  drive.Write("C:\\Next\\x.bmp", "");
  ProgramRun& run = LoadedStrip();
  run.main.strip.SrcFileList.SetPath("C:\\Next");
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "Next");
  EXPECT_EQ(run.main.strip.SrcPicsTotal.Caption(), "1 Total");
  EXPECT_EQ(run.main.strip.SrcPicsCount.Caption(), "");
  EXPECT_EQ(run.main.strip.SrcSlotCount, 2);
}

TEST_F(ListingTest, TheFolderThatIsShownAlreadyRaisesNoEventAndReloadsNothing) {
  WriteEmpty(2);
  ProgramRun& run = LoadedStrip();
  run.main.strip.SrcFolderPath.SetCaption("as it was");
  run.main.strip.SrcFileList.SetPath("C:\\Strip");
  run.main.strip.SrcFileList.SetPath("c:\\sTRIP\\");
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "as it was");
  EXPECT_EQ(run.main.strip.SrcSlotCount, 2);
  EXPECT_EQ(run.main.strip.SrcPicsCount.Caption(), "2 pics");
}

TEST_F(ListingTest, PatternsAndNamesIgnoreCaseAndTheListIsSortedByName) {
  for (const char* name : {"b.JPG", "A.bmp", "c.JpEg", "D.GIF", "e.png"}) drive.Write(PathOf(name), "");
  EXPECT_EQ(SlotNames(LoadedStrip()), (std::vector<std::string>{"A.bmp", "b.JPG", "c.JpEg", "D.GIF"}));
}

// --- slots -----------------------------------------------------------------------------------------------------------

TEST_F(ListingTest, ASlotIsATripleAtItsPlace) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  const FilmStripState& strip = run.main.strip;
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(strip.SrcBackground(i).Bounds(), (Rect{97 * i, 0, 97, 105})) << i;
    EXPECT_EQ(strip.SrcThumbnail(i).Bounds(), (Rect{97 * i + 10, 17, 80, 60})) << i;
    EXPECT_EQ(strip.SrcThumbName(i).Left(), 97 * i + 10) << i;
    EXPECT_EQ(strip.SrcThumbName(i).Top(), 78) << i;
    EXPECT_TRUE(strip.SrcBackground(i).Visible());
    EXPECT_TRUE(strip.SrcThumbnail(i).Visible());
    EXPECT_TRUE(strip.SrcThumbName(i).Visible());
    EXPECT_LT(strip.SrcBackground(i).ZOrder(), strip.SrcThumbnail(i).ZOrder()) << "the film lies below the photo";
    EXPECT_LT(strip.SrcThumbnail(i).ZOrder(), strip.SrcThumbName(i).ZOrder());
  }
  EXPECT_EQ(OnScreen(run, 1), 0) << "the first photo stands at the window's left edge";
}

TEST_F(ListingTest, ASlotTellsItsPhoto) {
  drive.Write(PathOf("IMG.001.jpg"), "");
  ProgramRun& run = LoadedStrip();
  const FilmStripState& strip = run.main.strip;
  EXPECT_EQ(strip.SrcThumbnail(1).Tag(), "C:\\Strip\\IMG.001.jpg");
  EXPECT_EQ(strip.SrcThumbnail(1).ToolTipText(), "Drag Photo into a folder");
  EXPECT_EQ(strip.SrcThumbName(1).Caption(), "IMG");
  EXPECT_EQ(strip.SrcThumbName(1).ToolTipText(), "IMG.001.jpg");
  EXPECT_EQ(strip.SrcThumbName(1).Tag(), "");
  EXPECT_EQ(strip.SrcThumbName(1).ForeColor(), palette::FilmText);
}

TEST_F(ListingTest, CanvasAndBarGrowWithTheSlots) {
  WriteEmpty(12);
  ProgramRun& run = StartedOnStrip();
  FilmStripState& strip = run.main.strip;
  // (count before - 488 pixels of window + 120) / 2, halves to the even neighbour, 50 at least.
  const std::vector<int> maxima = {50, 50, 50, 50, 50, 58, 107, 156, 204, 252, 301, 350};
  for (int i = 1; i <= 12; ++i) {
    run.Wait(i == 1 ? ThumbsTick : 2 * ThumbsTick);
    ASSERT_EQ(strip.SrcSlotCount, i);
    EXPECT_EQ(strip.SrcShownCount, i);
    EXPECT_EQ(strip.SrcScrollbar.Max(), maxima[static_cast<std::size_t>(i) - 1]) << i;
    EXPECT_EQ(strip.SrcCanvas.Width(), 97 * i + 97 + 74) << i;
    EXPECT_EQ(strip.SrcPicsCount.Caption(), std::to_string(i) + " pics");
  }
}

TEST_F(ListingTest, APhotoThatCannotBeReadStillGetsASlotWithTheInvalidPicture) {
  drive.Write(PathOf("a.jpg"), "no picture at all");
  WritePhoto("b.bmp");
  ProgramRun& run = LoadedStrip();
  EXPECT_EQ(run.main.strip.SrcThumbnail(1).GetPicture(), run.main.pictures.InvalidPicture);
  EXPECT_NE(run.main.strip.SrcThumbnail(2).GetPicture(), run.main.pictures.InvalidPicture);
  EXPECT_EQ(run.main.strip.SrcThumbName(1).Caption(), "a");
}

TEST_F(ListingTest, AStripAfterALongerOneBeginsAtItsStart) {
  WriteEmpty(60);
  drive.Write("C:\\Next\\x.bmp", "");
  ProgramRun& run = LoadedStrip();
  run.person.MoveBar(run.main.strip.SrcScrollbar, 2500);
  ASSERT_EQ(run.main.strip.SrcPageBase, 50);
  run.main.strip.SrcFileList.SetPath("C:\\Next");
  run.LoadAll();
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 0);
  EXPECT_EQ(run.main.strip.SrcPageBase, 0);
  EXPECT_EQ(OnScreen(run, 1), 0);
}

TEST_F(ListingTest, APageThatTurnsWhileASlotComesUpLeavesTheSlotInItsPlace) {
  WriteEmpty(56);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  run.person.MoveBar(strip.SrcScrollbar, 2410);
  ASSERT_EQ(strip.SrcPageBase, 50);
  // A wider window shortens the bar's range below its value, and below the page.
  strip.SrcThumbsWindow.SetWidth(900);
  drive.Write(PathOf("later.bmp"), "");
  strip.SrcFileList.Refresh();
  run.LoadAll();
  EXPECT_EQ(strip.SrcScrollbar.Value(), 2326);
  EXPECT_EQ(strip.SrcPageBase, 0);
  EXPECT_EQ(strip.SrcShownCount, 57);
  EXPECT_TRUE(strip.SrcThumbnail(57).Visible());
  EXPECT_EQ(OnScreen(run, 57), 56 * 97 - 2 * 2326);
  EXPECT_EQ(strip.SrcThumbnail(57).Left(), strip.SrcBackground(57).Left() + 10);
}

TEST_F(ListingTest, ADeadSlotKeepsItsNumberAndItsPhotoIsLookedForAgain) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  SetSrcSlotPath(run.main.strip, 2, "");
  drive.Write(PathOf("later.bmp"), "");
  run.main.strip.SrcFileList.Refresh();
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcSlotCount, 4);
  EXPECT_EQ(run.main.strip.SrcThumbnail(2).Tag(), "");
  EXPECT_EQ(run.main.strip.SrcThumbnail(4).Tag(), PathOf(NumberedName(2)));
}

TEST_F(ListingTest, APhotoWhoseSlotTakesAnotherPathIsMissingAtOnce) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  EXPECT_EQ(NextSrcPhoto(run.main.strip), "");
  SetSrcSlotPath(run.main.strip, 2, PathOf("renamed.bmp"));
  EXPECT_EQ(NextSrcPhoto(run.main.strip), PathOf(NumberedName(2)));
  SetSrcSlotPath(run.main.strip, 2, PathOf(NumberedName(2)));
  EXPECT_EQ(NextSrcPhoto(run.main.strip), "");
  SetSrcSlotPath(run.main.strip, 1, "");
  EXPECT_EQ(NextSrcPhoto(run.main.strip), PathOf(NumberedName(1)));
}

TEST_F(ListingTest, ASlotThatCannotBeMadeLeavesNothingBehindItsNumber) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  strip.SrcThumbName.Load(4);  // in the way of the last of the three
  EXPECT_THROW(AddSrcSlot(run.main, PathOf("later.bmp")), RuntimeError);
  EXPECT_EQ(strip.SrcThumbnail.UBound(), 3);
  EXPECT_EQ(strip.SrcBackground.UBound(), 3);
  EXPECT_EQ(strip.SrcThumbName.UBound(), 3);
  EXPECT_EQ(strip.SrcSlotCount, 3);
  AddSrcSlot(run.main, PathOf("later.bmp"));
  EXPECT_EQ(strip.SrcSlotCount, 4);
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "4 pics");
}

TEST_F(ListingTest, ThePhotosToolTipInvitesToDragItAndTheReelsToDragAll) {
  WriteEmpty(1);
  ProgramRun& run = LoadedStrip();
  EXPECT_EQ(run.person.ToolTip(run.main.strip.SrcThumbnail(1)), "Drag Photo into a folder");
  EXPECT_EQ(run.person.ToolTip(run.main.strip.AllButton), "Drag All Remaining Photos");
}

}  // namespace
}  // namespace pixorra
