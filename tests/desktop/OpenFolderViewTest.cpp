// The open folder's thumbnails: loading, scrolling, deleting, selecting, refreshing.
#include <gmock/gmock.h>

#include "platform/runtime/Errors.h"
#include "tests/desktop/DesktopTest.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PicturesState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class OpenFolderViewTest : public DesktopTest {
 protected:
  void Open(const std::string& name, int count) {
    ShowAndOpen(MakePhotos(name, count));
    DestinationTick();
    run.LoadAll();
  }
};

TEST_F(OpenFolderViewTest, OnePhotoComesUpATick) {
  ShowAndOpen(MakePhotos("A", 3));
  EXPECT_EQ(desk.DestSlotCount, 0);
  DestinationTick();
  EXPECT_EQ(desk.DestSlotCount, 1);
  DestinationTick();
  EXPECT_EQ(desk.DestSlotCount, 2);
  run.LoadAll();
  EXPECT_THAT(CellNames(), ElementsAre("p001", "p002", "p003"));
  EXPECT_EQ(desk.DestThumbName(2).ToolTipText(), "p002.bmp");
  EXPECT_EQ(desk.DestThumbnail(2).Tag(), Folder("A") + "\\p002.bmp");
  EXPECT_EQ(PhotoIn(desk.DestThumbnail(2).GetPicture()), 2);
  EXPECT_EQ(desk.DestCountLabel.Caption(), "3");
}

TEST_F(OpenFolderViewTest, CellsStandInTheirGridAndTheFirstRowIsInView) {
  Open("A", 3);
  ASSERT_EQ(desk.DestColumns, 2);
  EXPECT_EQ(desk.DestBackground(3).Bounds(), (Rect{0, 178, 97, 89}));
  EXPECT_EQ(desk.DestThumbnail(2).Bounds(), (Rect{104, 96, 80, 60}));
  EXPECT_EQ(desk.DestThumbName(2).Left(), 104);
  EXPECT_EQ(desk.DestThumbName(2).Top(), 157);
  EXPECT_EQ(desk.DestCanvas.Width(), 194);
  EXPECT_EQ(desk.DestCanvas.Height(), 178 + 89 + 23);
  EXPECT_EQ(desk.DestCanvas.Top(), -91);
  EXPECT_EQ(desk.DestScrollbar.Value(), 1);
}

TEST_F(OpenFolderViewTest, AFolderWithFewerRowsThanTheWindowStillScrollsToFifty) {
  Open("A", 2);
  EXPECT_EQ(desk.DestScrollbar.Max(), 50);
}

TEST_F(OpenFolderViewTest, TheBarsRangeFollowsTheRows) {
  Open("A", 20);
  const int rows = 21 / desk.DestColumns;
  const double wanted = (rows * 89.0 - desk.DestThumbsWindow.Height() + 89) / 2;
  EXPECT_NEAR(desk.DestScrollbar.Max(), wanted, 0.5);
  EXPECT_GT(wanted, 50);
}

TEST_F(OpenFolderViewTest, ClickingTheOpenFoldersIconClosesItAndTheGridEmptiesOnTheNextTick) {
  Open("A", 3);
  person.Click(desk.DestFolder(1));
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  EXPECT_EQ(desk.DestSlotCount, 3);
  EXPECT_EQ(desk.DestContentsLabel.Caption(), "");
  DestinationTick();
  EXPECT_EQ(desk.DestSlotCount, 0);
  EXPECT_FALSE(desk.DestThumbnail.IsLoaded(1));
  EXPECT_EQ(desk.DestCountLabel.Caption(), "");
}

TEST_F(OpenFolderViewTest, ReopeningTheFolderLoadsAllItsThumbnailsAgain) {
  Open("A", 2);
  Select_a_Folder(main, 0);
  DestinationTick();
  ASSERT_EQ(desk.DestSlotCount, 0);
  Select_a_Folder(main, 1);
  EXPECT_EQ(desk.DestSlotCount, 0);
  run.LoadAll();
  EXPECT_THAT(CellNames(), ElementsAre("p001", "p002"));
}

TEST_F(OpenFolderViewTest, ClosingAndReopeningWithinATickStillReloads) {
  Open("A", 2);
  Select_a_Folder(main, 0);
  Select_a_Folder(main, 1);
  DestinationTick();
  EXPECT_EQ(desk.DestSlotCount, 1);
}

TEST_F(OpenFolderViewTest, ADeleteInTheMiddleMovesTheLaterThumbnailsUpWithNoFileReadAgain) {
  Open("A", 4);
  const Picture third = desk.DestThumbnail(3).GetPicture();
  drive.Remove(Folder("A") + "\\p002.bmp");
  desk.DestThumbName(3).SetTag("MARK");
  const int reads = run.files.Count(FileCall::OpenToRead);
  DeleteDestThumbnail(desk, 2);
  EXPECT_EQ(run.files.Count(FileCall::OpenToRead), reads);
  EXPECT_THAT(CellNames(), ElementsAre("p001", "p003", "p004"));
  EXPECT_TRUE(desk.DestThumbnail(2).GetPicture() == third);
  EXPECT_EQ(desk.DestThumbnail(2).Tag(), Folder("A") + "\\p003.bmp");
  EXPECT_EQ(desk.DestThumbName(2).Tag(), "MARK");
  EXPECT_EQ(desk.DestThumbName(2).ToolTipText(), "p003.bmp");
  EXPECT_FALSE(desk.DestThumbnail.IsLoaded(4));
  EXPECT_EQ(desk.DestCountLabel.Caption(), "3");
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "3 pics");
}

TEST_F(OpenFolderViewTest, DeletingTheLastThumbnailLeavesTheFolderEmpty) {
  Open("A", 1);
  drive.Remove(Folder("A") + "\\p001.bmp");
  DeleteDestThumbnail(desk, 1);
  EXPECT_EQ(desk.DestSlotCount, 0);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), " Empty");
  DeleteDestThumbnail(desk, 1);
  DeleteDestThumbnail(desk, 0);
  EXPECT_EQ(desk.DestSlotCount, 0);
}

TEST_F(OpenFolderViewTest, AfterADeleteTheNextPhotoIsFoundWhereverItSorts) {
  Open("A", 3);
  drive.Remove(Folder("A") + "\\p001.bmp");
  DeleteDestThumbnail(desk, 1);
  EXPECT_EQ(NextDestThumbFile(desk), "");
  AddPhoto(Folder("A"), 0);
  AddPhoto(Folder("A"), 9);
  desk.DestFileList.Refresh();
  run.LoadAll();
  EXPECT_THAT(CellNames(), ElementsAre("p002", "p003", "p000", "p009"));
  EXPECT_EQ(NextDestThumbFile(desk), "");
}

TEST_F(OpenFolderViewTest, APhotoThatStaysWhenItsCellGoesGetsAnother) {
  Open("A", 3);
  DeleteDestThumbnail(desk, 3);
  EXPECT_EQ(NextDestThumbFile(desk), Folder("A") + "\\p003.bmp");
  run.LoadAll();
  EXPECT_THAT(CellNames(), ElementsAre("p001", "p002", "p003"));
}

TEST_F(OpenFolderViewTest, AFileAddedByAnotherProgramComesIntoTheViewOnlyAfterARefresh) {
  Open("A", 2);
  AddPhoto(Folder("A"), 7);
  run.Wait(1);
  EXPECT_THAT(CellNames(), ElementsAre("p001", "p002"));
  person.ChooseMenu(main.menu.RefreshOpenFolderMenuItem);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "3 pics");
  DestinationTick();
  run.LoadAll();
  EXPECT_THAT(CellNames(), ElementsAre("p001", "p002", "p007"));
}

TEST_F(OpenFolderViewTest, ARefreshForgetsTheCachedThumbnails) {
  Open("A", 1);
  ASSERT_TRUE(drive.Exists(Folder("A") + "\\Thumbnails.tmp"));
  RefreshFolder(main, 1);
  EXPECT_FALSE(drive.Exists(Folder("A") + "\\Thumbnails.tmp"));
  RefreshFolder(main, 0);
  RefreshFolder(main, 5);
  EXPECT_EQ(desk.OpenFolderIndex, 1);
}

TEST_F(OpenFolderViewTest, RefreshingAClosedFolderByItsMenuOpensIt) {
  Show(MakePhotos("A", 1));
  Show(MakePhotos("B", 1));
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.RefreshFolderPopupItem);
  person.RightClick(desk.DestFolder(2));
  EXPECT_EQ(desk.OpenFolderIndex, 2);
  person.ExpectMenu(main.menu.TrashcanPopupMenu, &main.menu.RefreshTrashcanPopupItem);
  person.RightClick(desk.DestFolder(9));
  EXPECT_EQ(desk.OpenFolderIndex, 9);
}

TEST_F(OpenFolderViewTest, AFolderThatHasGoneLeavesTheDesktopWhenItIsOpened) {
  Show(MakePhotos("A", 1));
  Show(MakePhotos("B", 1));
  drive.Remove(Folder("A"));
  person.ExpectBox("Pixorra - Unable to Open folder", "?? Folder Not Found\n\nC:\\Home\\A");
  person.Click(desk.DestFolder(1));
  EXPECT_FALSE(desk.DestFolder(1).Visible());
  EXPECT_EQ(desk.FoldersShown, 1);
  EXPECT_EQ(desk.OpenFolderIndex, 2);
}

TEST_F(OpenFolderViewTest, ARequestForAFreeSlotClosesTheOpenFolderAndOpensNothing) {
  Open("A", 1);
  Select_a_Folder(main, 5);
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  EXPECT_EQ(desk.DestLoadedPath, "");
  EXPECT_TRUE(desk.DestFolder(1).GetPicture() == desk.ClosedFolder);
}

TEST_F(OpenFolderViewTest, TheContentsLabelTakesTheFoldersNameAndToolTip) {
  Open("A", 1);
  EXPECT_EQ(desk.DestContentsLabel.Caption(), " A ");
  EXPECT_EQ(desk.DestContentsLabel.ToolTipText(), Folder("A"));
  EXPECT_TRUE(desk.DestContentsLabel.Visible());
}

TEST_F(OpenFolderViewTest, WithAHundredAndTwentyRowsOfThreePassingRowFiftyReBasesOnce) {
  Open("A", 1);
  for (int i = 2; i <= 360; ++i) AddDestThumbnail(main, Folder("A") + "\\p001.bmp");
  desk.DestColumns = 3;
  Redisplay_DestThumbnails(main);
  int turns = 0;
  int base = 0;
  for (int value = 1; value <= 3000; value += 7) {
    desk.DestScrollbar.SetValue(value);
    if (desk.DestPageBase == base) continue;
    ++turns;
    base = desk.DestPageBase;
  }
  EXPECT_EQ(turns, 1);
  EXPECT_EQ(base, 150);
  EXPECT_EQ(desk.DestBackground(151).Top(), 89);
  EXPECT_EQ(desk.DestBackground(152).Left(), 97);
  // Coordinates stay small, and the canvas makes up for the page.
  EXPECT_EQ(desk.DestCanvas.Top(), 150 * 89 / 3 - 2 * desk.DestScrollbar.Value() - 89);
}

TEST_F(OpenFolderViewTest, MovingTheBarMovesTheCanvasTwoPixelsAUnit) {
  Open("A", 20);
  person.MoveBar(desk.DestScrollbar, 40);
  EXPECT_EQ(desk.DestCanvas.Top(), -169);
  person.DragBar(desk.DestScrollbar, 60);
  EXPECT_EQ(desk.DestCanvas.Top(), -209);
  EXPECT_EQ(desk.DestScrollbar.Tag(), "");
  EXPECT_TRUE(desk.DestScrollbar.Enabled());
}

TEST_F(OpenFolderViewTest, AMoveByARowBringsTheNextRowToTheTop) {
  Open("A", 30);
  const auto topOf = [&](int cell) { return desk.DestCanvas.Top() + desk.DestBackground(cell).Top(); };
  ASSERT_EQ(topOf(1), -2) << "the bar's least value is 1";
  for (int row = 1; row <= 11; ++row) {
    ScrollDestBy(main, 89);
    ASSERT_NEAR(topOf(2 * row + 1), -2, 1) << row;
  }
  for (int i = 0; i < 8; ++i) ScrollDestBy(main, 0.25);
  EXPECT_NEAR(topOf(23), -4, 1);
}

TEST_F(OpenFolderViewTest, AMoveByPixelsBeyondAnEndStopsThere) {
  Open("A", 30);
  ScrollDestBy(main, 1e12);
  EXPECT_EQ(desk.DestScrollbar.Value(), desk.DestScrollbar.Max());
  ScrollDestBy(main, -2);
  EXPECT_EQ(desk.DestScrollbar.Value(), desk.DestScrollbar.Max() - 1);
  ScrollDestBy(main, -1e12);
  EXPECT_EQ(desk.DestScrollbar.Value(), 1);
}

TEST_F(OpenFolderViewTest, OpeningAnotherFolderStartsAtItsTop) {
  Open("A", 20);
  Show(MakePhotos("B", 20));
  person.MoveBar(desk.DestScrollbar, 60);
  Select_a_Folder(main, 2);
  EXPECT_EQ(desk.DestScrollbar.Value(), 1);
  run.LoadAll();
  EXPECT_EQ(desk.DestCanvas.Top(), -91);
}

TEST_F(OpenFolderViewTest, AClickSelectsThePhotoForThePreview) {
  Open("A", 3);
  main.strip.SrcThumbFrame.SetVisible(true);
  main.preview.bPicEdited = true;
  person.Click(desk.DestThumbnail(2));
  EXPECT_TRUE(desk.DestThumbFrame.Visible());
  EXPECT_FALSE(main.strip.SrcThumbFrame.Visible());
  EXPECT_EQ(desk.DestThumbFrame.Tag(), "2");
  EXPECT_EQ(desk.DestThumbFrame.Left(), desk.DestThumbnail(2).Left());
  EXPECT_EQ(desk.DestThumbFrame.Top(), desk.DestThumbnail(2).Top());
  EXPECT_EQ(main.preview.PicPreview.Tag(), Folder("A") + "\\p002.bmp");
  EXPECT_FALSE(main.preview.bPicEdited);
}

TEST_F(OpenFolderViewTest, TheFrameFollowsItsCellWhenTheGridIsArrangedAnew) {
  Open("A", 4);
  person.Click(desk.DestThumbnail(3));
  desk.DestColumns = 3;
  Redisplay_DestThumbnails(main);
  EXPECT_TRUE(desk.DestThumbFrame.Visible());
  EXPECT_EQ(desk.DestThumbFrame.Left(), 2 * 97 + 7);
  EXPECT_EQ(desk.DestThumbFrame.Top(), 96);
  EXPECT_EQ(desk.DestCanvas.Height(), 178 + 89 + 230);
}

TEST_F(OpenFolderViewTest, ASelectionWhoseCellHasGoneIsReset) {
  Open("A", 2);
  person.Click(desk.DestThumbnail(2));
  DeleteDestThumbnail(desk, 2);
  Redisplay_DestThumbnails(main);
  EXPECT_FALSE(desk.DestThumbFrame.Visible());
  EXPECT_EQ(main.preview.PicPreview.Tag(), "");
  EXPECT_TRUE(main.preview.PicPreview.GetPicture() == main.preview.Logo);
}

TEST_F(OpenFolderViewTest, ClosingTheFolderOfTheSelectedPhotoResetsThePreview) {
  Open("A", 2);
  person.Click(desk.DestThumbnail(1));
  Select_a_Folder(main, 0);
  DestinationTick();
  EXPECT_FALSE(desk.DestThumbFrame.Visible());
  EXPECT_EQ(main.preview.PicPreview.Tag(), "");
}

TEST_F(OpenFolderViewTest, ACellThatCannotBeMadeLeavesNothingBehindItsNumber) {
  Open("A", 3);
  desk.DestThumbName.Load(4);  // in the way of the last of the three
  EXPECT_THROW(AddDestThumbnail(main, Folder("A") + "\\later.bmp"), RuntimeError);
  EXPECT_EQ(desk.DestThumbnail.UBound(), 3);
  EXPECT_EQ(desk.DestBackground.UBound(), 3);
  EXPECT_EQ(desk.DestThumbName.UBound(), 3);
  EXPECT_EQ(desk.DestSlotCount, 3);
  AddDestThumbnail(main, Folder("A") + "\\later.bmp");
  EXPECT_THAT(CellNames(), ElementsAre("p001", "p002", "p003", "later"));
  EXPECT_EQ(desk.DestCountLabel.Caption(), "4");
}

TEST_F(OpenFolderViewTest, AThumbPulledOverAPageOfAViewThatHasBecomeShorterShowsWhatTheBarSays) {
  Open("A", 1);
  for (int i = 2; i <= 240; ++i) AddDestThumbnail(main, Folder("A") + "\\none.bmp");
  Redisplay_DestThumbnails(main);
  const int longer = desk.DestScrollbar.Max();
  for (int i = 240; i > 150; --i) {
    desk.DestThumbnail.Unload(i);
    desk.DestBackground.Unload(i);
    desk.DestThumbName.Unload(i);
  }
  desk.DestSlotCount = 150;
  desk.DestScrollbar.UserScrolledTo(longer);
  EXPECT_LT(desk.DestScrollbar.Value(), longer);
  EXPECT_EQ(desk.DestScrollbar.Value(), desk.DestScrollbar.Max());
  EXPECT_EQ(desk.DestPageBase, 100);
  EXPECT_EQ(desk.DestCanvas.Top() + desk.DestBackground(149).Top(), 74 * 89 - 2 * desk.DestScrollbar.Value());
}

// --- refreshing
// --------------------------------------------------------------------------------------------------------

TEST_F(OpenFolderViewTest, ARefreshShowsTheSmallPreviewOfAFolderThatWasEmpty) {
  Open("A", 0);
  ASSERT_FALSE(desk.DestFolderPreview(1).Visible());
  AddPhoto(Folder("A"), 6);
  AddPhoto(Folder("A"), 7);
  person.ChooseMenu(main.menu.RefreshOpenFolderMenuItem);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "2 pics");
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  EXPECT_EQ(PhotoIn(desk.DestFolderPreview(1).GetPicture()), 7);
}

TEST_F(OpenFolderViewTest, ARefreshHidesTheSmallPreviewOfAFolderThatHasBecomeEmpty) {
  Open("A", 1);
  ASSERT_TRUE(desk.DestFolderPreview(1).Visible());
  drive.Remove(Folder("A") + "\\p001.bmp");
  person.ChooseMenu(main.menu.RefreshOpenFolderMenuItem);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), " Empty");
  EXPECT_FALSE(desk.DestFolderPreview(1).Visible());
}

TEST_F(OpenFolderViewTest, ARefreshLeavesThePreviewThatAFolderHas) {
  Open("A", 3);
  const Picture before = desk.DestFolderPreview(1).GetPicture();
  AddPhoto(Folder("A"), 9);
  person.ChooseMenu(main.menu.RefreshOpenFolderMenuItem);
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  EXPECT_TRUE(desk.DestFolderPreview(1).GetPicture() == before);
}

TEST_F(OpenFolderViewTest, TheTrashcanIsRefreshedWithoutAPreview) {
  Select_a_Folder(main, 9);
  drive.Write(desk.DestFolderFiles(9).Path() + "\\a.bmp", "");
  RefreshFolder(main, 9);
  EXPECT_EQ(desk.DestPicsCount(9).Caption(), "1 pics");
}

TEST_F(OpenFolderViewTest, ADamagedPhotoHasACellToo) {
  const std::string folder = MakePhotos("A", 1);
  drive.Write(folder + "\\broken.bmp", "no bitmap");
  ShowAndOpen(folder);
  run.LoadAll();
  DestinationTick();
  EXPECT_THAT(CellNames(), SizeIs(2));
  EXPECT_TRUE(desk.DestThumbnail(1).GetPicture() == main.pictures.InvalidPicture);
}

}  // namespace
}  // namespace pixorra
