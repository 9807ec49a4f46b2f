// A folder of the Desktop is renamed in place, by mouse and keys.
#include <gtest/gtest.h>

#include "desktop/FolderRename.h"
#include "platform/controls/Toolkit.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr const char* NameInUse = "WARNING: Unable to rename folder";

// "C:\Home\One" with a photo, closed on the Desktop in slot 1, and "C:\Home\Other", open in slot 2.
class RenameFolderTest : public ProgramTest {
 protected:
  ProgramRun& Begin() {
    drive.Write("C:\\Home\\One\\a.bmp", BmpPhoto(80, 60));
    drive.Write("C:\\Strip\\b.bmp", BmpPhoto(96, 60));
    drive.MakeFolder("C:\\Home\\Other");
    SavedState saved;
    saved.FilmStrip = "C:\\Strip";
    saved.Folders = {"C:\\Home\\One", "C:\\Home\\Other"};
    WriteSavedState(saved);
    ProgramRun& run = Started();
    run.LoadAll();
    run.Wait(1);
    return run;
  }
  static void StartRename(ProgramRun& run, int slot = 1) {
    run.person.ExpectMenu(run.main.menu.FolderPopupMenu, &run.main.menu.RenameFolderPopupItem);
    run.person.RightClick(run.main.desk.DestFolderName(slot));
    run.Wait(0.1);
  }
  static TextBox& Box(ProgramRun& run) { return run.main.desk.FolderRenameBox; }
  static void ExpectClosed(ProgramRun& run, const std::string& caption) {
    EXPECT_FALSE(Box(run).Visible());
    EXPECT_FALSE(IsFolderBeingRenamed(run.main.desk));
    EXPECT_TRUE(run.main.desk.DestFolderName(1).Visible());
    EXPECT_EQ(run.main.desk.DestFolderName(1).Caption(), caption);
  }
};

TEST_F(RenameFolderTest, TheBoxLiesOverTheNameWithTheWholeOfItSelected) {
  ProgramRun& run = Begin();
  StartRename(run);
  const DesktopState& desk = run.main.desk;
  EXPECT_TRUE(Box(run).Visible());
  EXPECT_TRUE(Box(run).HasFocus());
  EXPECT_EQ(Box(run).Tag(), "1");
  EXPECT_EQ(Box(run).Text(), "One");
  EXPECT_EQ(Box(run).SelStart(), 0);
  EXPECT_EQ(Box(run).SelLength(), 3);
  EXPECT_EQ(Box(run).Left(), desk.DestFolder(1).Left() + 20);
  EXPECT_EQ(Box(run).Top(), desk.DestFolderName(1).Top());
  EXPECT_FALSE(desk.DestFolderName(1).Visible());
}

TEST_F(RenameFolderTest, EnterRenames) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Two");
  run.person.Key(key::Return);
  ExpectClosed(run, " Two ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\Two\\a.bmp"));
  EXPECT_FALSE(drive.Exists("C:\\Home\\One"));
}

TEST_F(RenameFolderTest, EscapeLeavesTheNameAndARunningBatchAlone) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Two");
  run.person.Key(key::Escape);
  ExpectClosed(run, " One ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\One\\a.bmp"));
  EXPECT_FALSE(run.main.drop.DropAllAbort);
}

TEST_F(RenameFolderTest, AClickOnTheDesktopRenames) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Two");
  run.person.Press(run.main.desk.DesktopImage);
  run.person.Release();
  ExpectClosed(run, " Two ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\Two\\a.bmp"));
}

TEST_F(RenameFolderTest, AClickOnAnotherFolderRenamesAndOpensThatOne) {
  ProgramRun& run = Begin();
  run.person.Click(run.main.desk.DestFolderName(2));
  run.Wait(1);
  ASSERT_EQ(run.main.desk.OpenFolderIndex, 0);
  StartRename(run);
  run.person.Type("Two");
  run.person.Click(run.main.desk.DestFolderName(2));
  ExpectClosed(run, " Two ");
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 2);
  EXPECT_EQ(run.main.desk.DestContentsLabel.Caption(), " Other ");
}

TEST_F(RenameFolderTest, ThePressThatBeginsADragRenames) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Two");
  run.person.Drag(run.main.strip.SrcThumbnail(1), run.main.desk.DestFolderPreview(1));
  run.Wait(0.2);
  ExpectClosed(run, " Two ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\Two\\a.bmp"));
  EXPECT_EQ(run.main.desk.DestFolderFiles(1).ListCount(), 2);
}

TEST_F(RenameFolderTest, APressOnAnyOtherPartOfTheWindowRenames) {
  ProgramRun& run = Begin();
  DesktopState& desk = run.main.desk;
  FilmStripState& strip = run.main.strip;
  int number = 0;
  for (Control* elsewhere : std::initializer_list<Control*>{
           &strip.UndoButton, &strip.DeleteButton, &strip.PrintButton, &strip.AllButton, &run.main.preview.PicPreview,
           &strip.SrcBackground(1), &desk.DestCanvas, &desk.DestFolder(9)}) {
    StartRename(run);
    const std::string name = "Name " + std::to_string(++number);
    run.person.Type(name);
    if (elsewhere == &strip.DeleteButton)
      run.person.ExpectForm("DeletePhotosForm", [](Person& hand, Form&) { hand.Key(key::Escape); });
    if (elsewhere == &strip.PrintButton) run.person.ExpectBox("Can't Print Photo", "No Photo Selected");
    run.person.Press(*elsewhere);
    run.person.Release();
    ExpectClosed(run, " " + name + " ");
    EXPECT_TRUE(drive.Exists("C:\\Home\\" + name)) << elsewhere->Name();
  }
}

TEST_F(RenameFolderTest, TheCamerasButtonRenamesAndThenAsks) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Two");
  run.person.ExpectBox("Select film strip in Camera", "You must first set the location of your camera.", BoxAnswer::Ok,
                       [&] { ExpectClosed(run, " Two "); });
  run.person.Click(run.main.strip.CameraButton);
  EXPECT_TRUE(drive.Exists("C:\\Home\\Two"));
}

TEST_F(RenameFolderTest, AClickOnAPhotoOfTheOpenFolderRenames) {
  ProgramRun& run = Begin();
  run.person.Click(run.main.desk.DestFolderName(1));
  run.LoadAll();
  run.Wait(0.1);
  StartRename(run);
  run.person.Type("Two");
  run.person.Click(run.main.desk.DestThumbnail(1));
  ExpectClosed(run, " Two ");
  run.Wait(0.5);
  EXPECT_EQ(PhotoOf(run.main.desk, 1), "C:\\Home\\Two\\a.bmp");
}

TEST_F(RenameFolderTest, WhenTheFocusGoesElsewhereTheFolderIsRenamed) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Two");
  run.person.Focus(run.main.strip.SrcScrollbar);
  ExpectClosed(run, " Two ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\Two"));
}

TEST_F(RenameFolderTest, AnotherLayoutOfTheWindowRenames) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Two");
  run.person.Resize(run.main.Window, 1000, 700);
  run.Wait(0.5);
  ExpectClosed(run, " Two ");
}

TEST_F(RenameFolderTest, WhatPathsAndPatternsAreMadeOfCannotBeTyped) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("A\\[]{}\"'<>/,$*b?.c");
  EXPECT_EQ(Box(run).Text(), "Ab?.c");
  run.person.Key(key::Return);
  ExpectClosed(run, " Ab?.c ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\Ab?.c"));
}

TEST_F(RenameFolderTest, AnEmptyNameGetsOneMessageAndTheOldNameStays) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Key(key::Delete);
  EXPECT_EQ(Box(run).Text(), "");
  run.person.ExpectBox(NameInUse, "You have left the folder name blank.\nPlease try renaming the folder again.");
  run.person.Key(key::Return);
  ExpectClosed(run, " One ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\One"));
}

TEST_F(RenameFolderTest, ANameInUseGetsOneMessageAndNothingIsReplaced) {
  ProgramRun& run = Begin();
  StartRename(run);
  run.person.Type("Other");
  run.person.ExpectBox(NameInUse,
                       "The new folder name \"Other\" is already being used.\nPlease try renaming the folder again.");
  run.person.Press(run.main.desk.DesktopImage);
  run.person.Release();
  ExpectClosed(run, " One ");
  EXPECT_TRUE(drive.Exists("C:\\Home\\One\\a.bmp"));
  EXPECT_TRUE(drive.Exists("C:\\Home\\Other"));
}

}  // namespace
}  // namespace pixorra
