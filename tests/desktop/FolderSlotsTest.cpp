// Folders on the Desktop: shown, counted, taken off, clicked, and the Trashcan among them.
#include <gmock/gmock.h>

#include "app/Preferences.h"
#include "base/Palette.h"
#include "desktop/FolderCommands.h"
#include "desktop/FolderSlots.h"
#include "tests/desktop/DesktopTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

using FolderSlotsTest = DesktopTest;

TEST_F(FolderSlotsTest, AFolderWithNoListedPictureShowsEmptyNoPreviewAndTheClosedIcon) {
  const std::string folder = MakePhotos("Empty", 0);
  drive.Write(folder + "\\notes.txt", "no picture");
  ASSERT_EQ(Show(folder), 1);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), " Empty");
  EXPECT_FALSE(desk.DestFolderPreview(1).Visible());
  EXPECT_TRUE(desk.DestFolder(1).GetPicture() == desk.ClosedFolder);
  EXPECT_TRUE(desk.DestFolder(1).Visible());
  EXPECT_TRUE(desk.DestPicsCount(1).Visible());
  EXPECT_TRUE(desk.DestFolderName(1).Visible());
}

TEST_F(FolderSlotsTest, AFolderWithOnePictureIsCaptionedOnePics) {
  Show(MakePhotos("One", 1));
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "1 pics");
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
}

TEST_F(FolderSlotsTest, ThePreviewShowsTheLastPhotoOfTheList) {
  Show(MakePhotos("Some", 3));
  EXPECT_EQ(PhotoIn(desk.DestFolderPreview(1).GetPicture()), 3);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "3 pics");
}

TEST_F(FolderSlotsTest, NameAndToolTipTellTheFolder) {
  const std::string folder = MakePhotos("Holiday", 0);
  Show(folder);
  EXPECT_EQ(desk.DestFolderName(1).Caption(), " Holiday ");
  EXPECT_EQ(desk.DestFolderName(1).ToolTipText(), folder);
  const Label& name = desk.DestFolderName(1);
  const int centre = name.Left() + name.Width() / 2;
  EXPECT_NEAR(centre, desk.DestFolder(1).Left() - 15 + desk.DestFolder(0).Width() / 2 + 25, 1);
}

TEST_F(FolderSlotsTest, AFolderShownAfterATypeWasTakenOffIsListedWithoutThatType) {
  const std::string folder = MakePhotos("Mixed", 2);
  drive.Write(folder + "\\z.gif", "GIF89a");
  main.preferences.GifCheckbox.SetValue(0);
  ApplyPicturePattern(main);
  Show(folder);
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "2 pics");
}

TEST_F(FolderSlotsTest, TheCamerasFolderIsNamedForIt) {
  const std::string folder = MakePhotos("DCIM", 0);
  main.strip.CameraLocation = folder;
  Show(folder);
  EXPECT_EQ(desk.DestFolderName(1).Caption(), " Camera Photos ");
}

TEST_F(FolderSlotsTest, AMissingFolderIsToldAndFillsNoSlot) {
  person.ExpectBox("WARNING: Can't display the folder",
                   "Folder not found\n\nC:\\Home\\Gone\n\nThis folder may have been Moved, Renamed, or Deleted.\n"
                   "It may have been located on a removeable media such\nas a CD-ROM or your digital camera.");
  EXPECT_EQ(Show(Folder("Gone")), 0);
  EXPECT_EQ(desk.FoldersShown, 0);
  EXPECT_FALSE(desk.DestFolder(1).Visible());
}

TEST_F(FolderSlotsTest, AFileIsNoFolder) {
  drive.Write("C:\\Home\\file", "x");
  person.ExpectBox("WARNING: Can't display the folder", "Folder not found");
  EXPECT_EQ(Show("C:\\Home\\file"), 0);
}

TEST_F(FolderSlotsTest, ARootOfADriveCanBeShown) {
  EXPECT_EQ(Show("C:\\"), 1);
  EXPECT_EQ(desk.DestFolderName(1).Caption(), " C:\\ ");
}

TEST_F(FolderSlotsTest, AFolderShownAlreadyIsToldAndKeepsItsSlot) {
  Show(MakePhotos("A", 0));
  Show(MakePhotos("B", 0));
  person.ExpectBox("Show a Folder - B", "C:\\Home\\B\n\nDestination Folder is already Shown.");
  EXPECT_EQ(Show(Folder("B")), 2);
  EXPECT_EQ(desk.FoldersShown, 2);
}

TEST_F(FolderSlotsTest, AFolderBeyondAGapIsNotNoticedAndShownTwice) {
  Show(MakePhotos("A", 0));
  ShowAndOpen(MakePhotos("B", 0));
  Show(MakePhotos("C", 0));
  Remove_Open_Folder(main);
  ASSERT_EQ(desk.FoldersShown, 2);
  ASSERT_FALSE(desk.DestFolder(2).Visible());
  EXPECT_EQ(Show(Folder("C")), 2);
  EXPECT_EQ(desk.DestFolderFiles(2).Path(), desk.DestFolderFiles(3).Path());
  EXPECT_EQ(desk.FoldersShown, 3);
}

TEST_F(FolderSlotsTest, ANinthFolderChangesNothingAndTheTrashcanIsNeverCounted) {
  for (int i = 1; i <= 8; ++i) EXPECT_EQ(Show(MakePhotos("F" + std::to_string(i), 0)), i);
  EXPECT_EQ(desk.FoldersShown, 8);
  const std::string ninth = MakePhotos("F9", 0);
  person.ExpectBox("WARNING: Unable to open folder",
                   "You already have ALL 8 folders on your desktop.\nPlease close one before trying again.");
  EXPECT_EQ(Show(ninth), 0);
  EXPECT_EQ(desk.FoldersShown, 8);
  EXPECT_EQ(desk.DestFolderFiles(8).Path(), Folder("F8"));
  person.ExpectBox("WARNING: Unable to Show folder",
                   "You already have a maximum of 8 folders on your desktop.\nPlease close one before trying again.");
  person.Click(desk.ShowFolder);
}

TEST_F(FolderSlotsTest, ANetworkPathIsNotLookedUpAheadAndFailsAsAFolderThatCannotBeDisplayed) {
  const int looks = run.files.Count(FileCall::Attributes);
  person.ExpectBox("Pixorra - Cannot Display Folder", "?? Folder not found\n\n\\\\server\\share\\dir");
  EXPECT_EQ(Show("\\\\server\\share\\dir"), 0);
  EXPECT_EQ(run.files.Count(FileCall::Attributes), looks);
  EXPECT_EQ(desk.FoldersShown, 0);
  EXPECT_FALSE(desk.DestFolder(1).Visible());
}

TEST_F(FolderSlotsTest, RemovingTheOnlyFolderLeavesNoneOpen) {
  ShowAndOpen(MakePhotos("Only", 2));
  Remove_Open_Folder(main);
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  EXPECT_EQ(desk.FoldersShown, 0);
  for (int i = 1; i <= 8; ++i) {
    EXPECT_FALSE(desk.DestFolder(i).Visible());
    EXPECT_FALSE(desk.DestPicsCount(i).Visible());
    EXPECT_FALSE(desk.DestFolderName(i).Visible());
    EXPECT_FALSE(desk.DestFolderPreview(i).Visible());
  }
  EXPECT_TRUE(desk.DestFolder(9).Visible());
  EXPECT_EQ(desk.DestContentsLabel.Caption(), "");
  EXPECT_TRUE(drive.Exists(Folder("Only") + "\\p001.bmp"));
}

TEST_F(FolderSlotsTest, TheHighestFolderThatRemainsOpens) {
  Show(MakePhotos("A", 0));
  ShowAndOpen(MakePhotos("B", 0));
  Show(MakePhotos("C", 0));
  Remove_Open_Folder(main);
  EXPECT_EQ(desk.OpenFolderIndex, 3);
}

TEST_F(FolderSlotsTest, RemovingTheOpenTrashcanClosesItAndLeavesItOnTheDesktop) {
  Show(MakePhotos("A", 0));
  Select_a_Folder(main, TrashcanSlot);
  EXPECT_TRUE(desk.DestFolder(9).GetPicture() == desk.TrashcanOpen);
  Remove_Open_Folder(main);
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  EXPECT_TRUE(desk.DestFolder(9).Visible());
  EXPECT_TRUE(desk.DestFolder(9).GetPicture() == desk.TrashcanClosed);
  EXPECT_EQ(desk.FoldersShown, 1);
}

TEST_F(FolderSlotsTest, TheTrashcanIsMadeInTheProgramsFolder) {
  EXPECT_EQ(desk.DestFolderFiles(9).Path(), "C:\\Program\\Trashcan");
  EXPECT_TRUE(drive.Exists("C:\\Program\\Trashcan"));
  EXPECT_EQ(desk.DestPicsCount(9).Caption(), " Empty");
  EXPECT_FALSE(desk.DestFolderName(9).Visible());
  EXPECT_EQ(desk.DestFolder(9).ToolTipText(), "Trashcan\nPress 9 to drop the selected photo here");
  EXPECT_GT(desk.DestPicsCount(9).ZOrder(), desk.DestFolder(9).ZOrder());
}

TEST_F(FolderSlotsTest, ANewFolderStandsInFrontOfTheOthers) {
  Show(MakePhotos("A", 1));
  Show(MakePhotos("B", 1));
  EXPECT_GT(desk.DestFolder(2).ZOrder(), desk.DestFolderPreview(1).ZOrder());
  EXPECT_GT(desk.DestFolderPreview(2).ZOrder(), desk.DestFolderName(2).ZOrder());
}

TEST_F(FolderSlotsTest, TheLayoutShowsThePreviewOfAnEmptyFolderToo) {
  Show(MakePhotos("Empty", 0));
  ArrangeFolderSlots(main.desk);
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  EXPECT_FALSE(desk.DestFolder(2).Visible());
}

TEST_F(FolderSlotsTest, OpeningAndClosingChangeTheLook) {
  const int slot = Show(MakePhotos("A", 1));
  const int left = desk.DestFolderPreview(slot).Left();
  const int top = desk.DestFolderPreview(slot).Top();
  Select_a_Folder(main, slot);
  EXPECT_TRUE(desk.DestFolder(slot).GetPicture() == desk.OpenFolder);
  EXPECT_EQ(desk.DestFolderPreview(slot).Left(), left - 10);
  EXPECT_EQ(desk.DestFolderPreview(slot).Top(), top + 5);
  EXPECT_EQ(desk.DestFolderName(slot).BackColor(), 0x00C0C0C0U);
  EXPECT_EQ(desk.DestFolderName(slot).ForeColor(), 0x00000000U);
  Select_a_Folder(main, 0);
  EXPECT_TRUE(desk.DestFolder(slot).GetPicture() == desk.ClosedFolder);
  EXPECT_EQ(desk.DestFolderPreview(slot).Left(), left);
  EXPECT_EQ(desk.DestFolderPreview(slot).Top(), top);
  EXPECT_EQ(desk.DestFolderName(slot).BackColor(), 0x00000000U);
  EXPECT_EQ(desk.DestFolderName(slot).ForeColor(), 0x00C0C0C0U);
  EXPECT_TRUE(desk.DestFolder(slot).Visible());
  EXPECT_TRUE(desk.DestFolderPreview(slot).Visible());
}

TEST_F(FolderSlotsTest, AClickOnIconNameOrPreviewTogglesTheFolder) {
  Show(MakePhotos("A", 1));
  for (Control* control :
       std::initializer_list<Control*>{&desk.DestFolder(1), &desk.DestFolderName(1), &desk.DestFolderPreview(1)}) {
    person.Click(*control);
    EXPECT_EQ(desk.OpenFolderIndex, 1) << control->Name();
    person.Click(*control);
    EXPECT_EQ(desk.OpenFolderIndex, 0) << control->Name();
  }
}

TEST_F(FolderSlotsTest, TheRightButtonOpensTheFoldersMenuWhichOpensAndCloses) {
  Show(MakePhotos("A", 1));
  Show(MakePhotos("B", 1));
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.OpenFolderPopupItem);
  person.RightClick(desk.DestFolderPreview(2));
  EXPECT_EQ(desk.PopupFolderIndex, 2);
  EXPECT_EQ(main.menu.OpenFolderPopupItem.Caption(), "Open");
  EXPECT_EQ(desk.OpenFolderIndex, 2);
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.OpenFolderPopupItem);
  person.RightClick(desk.DestFolder(2));
  EXPECT_EQ(main.menu.OpenFolderPopupItem.Caption(), "Close");
  EXPECT_EQ(desk.OpenFolderIndex, 0);
}

TEST_F(FolderSlotsTest, TheRightButtonOpensTheTrashcansMenu) {
  person.ExpectMenu(main.menu.TrashcanPopupMenu, &main.menu.OpenTrashcanPopupItem);
  person.RightClick(desk.DestFolder(9));
  EXPECT_EQ(desk.OpenFolderIndex, 9);
  EXPECT_EQ(desk.DestContentsLabel.Caption(), "Trashcan");
  person.ExpectMenu(main.menu.TrashcanPopupMenu, nullptr);
  person.RightClick(desk.DestFolder(9));
  EXPECT_EQ(main.menu.OpenTrashcanPopupItem.Caption(), "Close");
  EXPECT_EQ(desk.OpenFolderIndex, 9);
}

TEST_F(FolderSlotsTest, HidingByTheMenuReopensTheFolderThatWasOpen) {
  ShowAndOpen(MakePhotos("A", 1));
  Show(MakePhotos("B", 1));
  Show(MakePhotos("C", 1));
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.HideFolderPopupItem);
  person.RightClick(desk.DestFolder(2));
  EXPECT_FALSE(desk.DestFolder(2).Visible());
  EXPECT_EQ(desk.OpenFolderIndex, 1);
}

TEST_F(FolderSlotsTest, HidingTheOpenFolderByTheMenuLeavesNoneOpen) {
  Show(MakePhotos("A", 1));
  ShowAndOpen(MakePhotos("B", 1));
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.HideFolderPopupItem);
  person.RightClick(desk.DestFolder(2));
  EXPECT_FALSE(desk.DestFolder(2).Visible());
  EXPECT_TRUE(desk.DestFolder(1).Visible());
  EXPECT_EQ(desk.OpenFolderIndex, 0);
}

TEST_F(FolderSlotsTest, HidingAFolderThatHasGoneTakesNoOtherOneOff) {
  Show(MakePhotos("A", 1));
  Show(MakePhotos("B", 1));
  drive.Remove(Folder("A"));
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.HideFolderPopupItem);
  person.ExpectBox("Pixorra - Unable to Open folder", "?? Folder Not Found\n\nC:\\Home\\A");
  person.RightClick(desk.DestFolder(1));
  EXPECT_FALSE(desk.DestFolder(1).Visible());
  EXPECT_TRUE(desk.DestFolder(2).Visible());
  EXPECT_EQ(desk.FoldersShown, 1);
}

TEST_F(FolderSlotsTest, HideFolderTakesTheOpenOneOff) {
  ShowAndOpen(MakePhotos("A", 1));
  person.Click(desk.HideFolder);
  EXPECT_EQ(desk.FoldersShown, 0);
  ShowAndOpen(Folder("A"));
  person.ChooseMenu(main.menu.HideFolderMenuItem);
  EXPECT_EQ(desk.FoldersShown, 0);
}

TEST_F(FolderSlotsTest, TheTrashcanAsFilmStripIsBlankedByAClickOnTheTrashcan) {
  AddPhoto("C:\\Program\\Trashcan", 1);
  main.strip.NoFilmStrip = false;
  main.strip.SrcFileList.SetPath("C:\\Program\\Trashcan");
  run.LoadAll();
  ASSERT_EQ(main.strip.SrcSlotCount, 1);
  person.Click(desk.DestFolder(9));
  EXPECT_TRUE(main.strip.NoFilmStrip);
  EXPECT_EQ(main.strip.SrcFolderPath.Caption(), "Select a Film Strip");
  EXPECT_EQ(main.strip.SrcPicsCount.Caption(), "");
  EXPECT_EQ(main.strip.SrcPicsTotal.Caption(), "");
  EXPECT_EQ(desk.OpenFolderIndex, 9);
  DestinationTick();
  EXPECT_EQ(main.strip.SrcSlotCount, 0);
}

TEST_F(FolderSlotsTest, WhatTheMenusDoCanBeChosen) {
  EXPECT_TRUE(main.menu.ShowFolderMenuItem.Enabled());
  EXPECT_TRUE(main.menu.ShowFolderPopupItem.Enabled());
  EXPECT_TRUE(main.menu.RefreshFolderPopupItem.Enabled());
  EXPECT_TRUE(main.menu.RefreshOpenFolderMenuItem.Enabled());
  EXPECT_TRUE(main.menu.RefreshTrashcanPopupItem.Enabled());
}

TEST_F(FolderSlotsTest, TheDeleteItemSaysWhatItWouldDelete) {
  Select_a_Folder(main, TrashcanSlot);
  OpenFolderMenu_Click(main);
  EXPECT_EQ(main.menu.DeleteOpenFolderMenuItem.Caption(), "Empty Trashcan");
  ShowAndOpen(MakePhotos("A", 0));
  OpenFolderMenu_Click(main);
  EXPECT_EQ(main.menu.DeleteOpenFolderMenuItem.Caption(), "Delete");
}

TEST_F(FolderSlotsTest, ClosingTheWindowFreesTheSlots) {
  ShowAndOpen(MakePhotos("A", 1));
  run.Close();
  EXPECT_FALSE(desk.DestFolder.IsLoaded(1));
  EXPECT_FALSE(desk.DestFolderPreview.IsLoaded(8));
  EXPECT_FALSE(desk.DestFolder.IsLoaded(9));
  // What still comes in late finds no slot and does no harm.
  Select_a_Folder(main, 1);
  EXPECT_EQ(desk.OpenFolderIndex, 0);
}

}  // namespace
}  // namespace pixorra
