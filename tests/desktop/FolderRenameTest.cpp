// What a rename of a folder does to the disk, the Desktop and what remembers the folder; the box itself is tried in
// tests/scenarios.
#include "desktop/FolderRename.h"
#include "tests/desktop/DesktopTest.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr const char* CannotRename = "WARNING: Can't Rename this folder";
constexpr const char* UnableToRename = "WARNING: Unable to rename folder";

class FolderRenameTest : public DesktopTest {
 protected:
  void Rename(int slot, const std::string& name) { RenameFolderFinish(main, slot, name); }
  void ExpectNotRenamed(int slot, const std::string& path) {
    EXPECT_EQ(desk.DestFolderFiles(slot).Path(), path);
    EXPECT_TRUE(drive.Exists(path));
  }
};

TEST_F(FolderRenameTest, AFolderHasItsNewNameOnTheDiskAndTheDesktop) {
  const int slot = Show(MakePhotos("Old", 3));
  Rename(slot, "New name");
  EXPECT_FALSE(drive.Exists(Folder("Old")));
  EXPECT_TRUE(drive.Exists(Folder("New name") + "\\p003.bmp"));
  EXPECT_EQ(desk.DestFolderFiles(slot).Path(), Folder("New name"));
  EXPECT_EQ(desk.DestFolderName(slot).Caption(), " New name ");
  EXPECT_EQ(desk.DestFolderName(slot).ToolTipText(), Folder("New name"));
  EXPECT_EQ(desk.DestPicsCount(slot).Caption(), "3 pics");
}

TEST_F(FolderRenameTest, TheControlsOfTheFolderLieInFrontAfterIt) {
  const int slot = Show(MakePhotos("One", 1));
  Show(MakePhotos("Two", 1));
  Rename(slot, "New");
  EXPECT_LT(desk.DestFolderPreview(2).ZOrder(), desk.DestFolder(slot).ZOrder());
  EXPECT_LT(desk.DestFolder(slot).ZOrder(), desk.DestPicsCount(slot).ZOrder());
  EXPECT_LT(desk.DestPicsCount(slot).ZOrder(), desk.DestFolderName(slot).ZOrder());
  EXPECT_LT(desk.DestFolderName(slot).ZOrder(), desk.DestFolderPreview(slot).ZOrder());
}

TEST_F(FolderRenameTest, TheOpenFolderIsLoadedAnewFromItsCacheFile) {
  const int slot = ShowAndOpen(MakePhotos("Old", 3));
  run.LoadAll();
  ASSERT_TRUE(drive.Exists(Folder("Old") + "\\Thumbnails.tmp"));
  const std::string cache = drive.Read(Folder("Old") + "\\Thumbnails.tmp");
  Rename(slot, "New");
  EXPECT_EQ(desk.DestContentsLabel.Caption(), "New");
  EXPECT_EQ(desk.DestContentsLabel.ToolTipText(), Folder("New"));
  EXPECT_EQ(desk.DestFileList.Path(), Folder("New"));
  EXPECT_EQ(desk.DestLoadedPath, "");
  run.Wait(0.1);
  run.LoadAll();
  EXPECT_EQ(desk.DestSlotCount, 3);
  EXPECT_EQ(PhotoOf(desk, 3), Folder("New") + "\\p003.bmp");
  EXPECT_EQ(PhotoIn(desk.DestThumbnail(3).GetPicture()), 3);
  // Nothing was decoded and added a second time.
  EXPECT_EQ(drive.Read(Folder("New") + "\\Thumbnails.tmp"), cache);
}

TEST_F(FolderRenameTest, APhotoOfItInThePreviewLeavesThePreview) {
  const int slot = ShowAndOpen(MakePhotos("Old", 2));
  run.LoadAll();
  person.Click(desk.DestThumbnail(2));
  ASSERT_EQ(main.preview.PicPreview.Tag(), Folder("Old") + "\\p002.bmp");
  Rename(slot, "New");
  run.Wait(0.2);
  run.LoadAll();
  EXPECT_EQ(main.preview.PicPreview.Tag(), "");
  EXPECT_FALSE(desk.DestThumbFrame.Visible());
}

TEST_F(FolderRenameTest, TheRecentListFollows) {
  const int slot = Show(MakePhotos("Old", 1));
  drive.MakeFolder(Folder("Old") + "\\sub");
  ComboBox& recent = main.strip.PreviousList;
  for (const std::string& entry : {Folder("First"), Folder("Old"), Folder("Old") + "\\sub", Folder("Older")})
    recent.AddItem(entry);
  Rename(slot, "New");
  ASSERT_EQ(recent.ListCount(), 4);
  EXPECT_EQ(recent.List(0), Folder("First"));
  EXPECT_EQ(recent.List(1), Folder("New"));
  EXPECT_EQ(recent.List(2), Folder("New") + "\\sub");
  EXPECT_EQ(recent.List(3), Folder("Older"));
}

TEST_F(FolderRenameTest, ASubFolderOnTheDesktopFollows) {
  const int slot = Show(MakePhotos("Old", 1));
  const int sub = Show(MakePhotos("Old\\sub", 2));
  const int older = Show(MakePhotos("Older", 1));
  Rename(slot, "New");
  EXPECT_EQ(desk.DestFolderFiles(sub).Path(), Folder("New") + "\\sub");
  EXPECT_EQ(desk.DestFolderName(sub).ToolTipText(), Folder("New") + "\\sub");
  EXPECT_EQ(desk.DestPicsCount(sub).Caption(), "2 pics");
  EXPECT_EQ(desk.DestFolderFiles(older).Path(), Folder("Older"));
}

TEST_F(FolderRenameTest, TheCameraAndTheStripKeepTheOldPath) {
  const int slot = Show(MakePhotos("Old", 1));
  main.strip.CameraLocation = Folder("Old");
  main.strip.SrcFileList.SetPath(Folder("Old"));
  Rename(slot, "New");
  EXPECT_EQ(main.strip.CameraLocation, Folder("Old"));
  EXPECT_EQ(main.strip.SrcFileList.Path(), Folder("Old"));
}

TEST_F(FolderRenameTest, ACameraFolderGetsItsPlainNameOnceItIsRenamed) {
  main.strip.CameraLocation = MakePhotos("DCIM", 1);
  const int slot = Show(Folder("DCIM"));
  ASSERT_EQ(desk.DestFolderName(slot).Caption(), " Camera Photos ");
  RenameFolderStart(main, slot);
  EXPECT_EQ(desk.FolderRenameBox.Text(), "Camera Photos");
  person.Key(key::Return);
  ExpectNotRenamed(slot, Folder("DCIM"));
  RenameFolderStart(main, slot);
  person.Type("Card");
  person.Key(key::Return);
  EXPECT_EQ(desk.DestFolderName(slot).Caption(), " Card ");
}

TEST_F(FolderRenameTest, TheSameNameChangesNothingWithoutAMessage) {
  const int slot = Show(MakePhotos("Old", 1));
  Rename(slot, "Old");
  ExpectNotRenamed(slot, Folder("Old"));
  EXPECT_EQ(desk.DestFolderName(slot).Caption(), " Old ");
}

TEST_F(FolderRenameTest, ANameThatDiffersInCaseAloneIsTaken) {
  const int slot = Show(MakePhotos("Old", 1));
  Rename(slot, "OLD");
  EXPECT_TRUE(drive.Exists(Folder("OLD") + "\\p001.bmp"));
  EXPECT_FALSE(drive.Exists(Folder("Old")));
  EXPECT_EQ(desk.DestFolderFiles(slot).Path(), Folder("OLD"));
  EXPECT_EQ(desk.DestFolderName(slot).Caption(), " OLD ");
}

TEST_F(FolderRenameTest, NothingThatHasTheNameIsReplaced) {
  const int slot = Show(MakePhotos("Old", 1));
  drive.MakeFolder(Folder("Empty"));
  drive.Write(Folder("file"), "1");
  drive.MakeLink(Folder("nowhere"), "missing");
  for (const char* name : {"Empty", "EMPTY", "file", "nowhere"}) {
    person.ExpectBox(UnableToRename, "The new folder name \"" + std::string(name) +
                                         "\" is already being used.\nPlease try renaming the folder again.");
    Rename(slot, name);
    ExpectNotRenamed(slot, Folder("Old"));
  }
  EXPECT_EQ(drive.Read(Folder("file")), "1");
  EXPECT_EQ(desk.DestFolderName(slot).Caption(), " Old ");
}

TEST_F(FolderRenameTest, NamesThatAreNoNamesGetTheErrorsText) {
  const int slot = Show(MakePhotos("Old", 1));
  for (const char* name : {" ", "   ", ".", "..", ".hidden", "..\\up", "a\\b", "a/b", "/", "..."}) {
    person.ExpectBox(ApplicationTitle, "Bad file name or number");
    Rename(slot, name);
    ExpectNotRenamed(slot, Folder("Old"));
  }
  person.ExpectBox(ApplicationTitle, "Bad file name or number");
  Rename(slot, std::string(300, 'x'));
  ExpectNotRenamed(slot, Folder("Old"));
}

TEST_F(FolderRenameTest, AnyOtherFailureGetsItsTextAndTheOldNameStays) {
  const int slot = Show(MakePhotos("Old", 1));
  run.files.FailNth(FileCall::Rename, 1, error::PathAccess);
  person.ExpectBox(ApplicationTitle, "Path/File access error");
  Rename(slot, "New");
  ExpectNotRenamed(slot, Folder("Old"));
}

TEST_F(FolderRenameTest, AFolderThatCannotBeShownUnderItsNewNameIsRenamedAllTheSame) {
  const int slot = Show(MakePhotos("Old", 1));
  main.strip.PreviousList.AddItem(Folder("Old"));
  run.files.FailAlways(FileCall::FolderPath, error::PathNotFound, Folder("New"));
  Rename(slot, "New");
  EXPECT_TRUE(drive.Exists(Folder("New")));
  EXPECT_EQ(desk.DestFolderName(slot).Caption(), " New ");
  EXPECT_EQ(main.strip.PreviousList.List(0), Folder("New"));
}

TEST_F(FolderRenameTest, TheNameTypedForOneFolderIsNeverGivenToAnother) {
  const int slot = Show(MakePhotos("One", 1));
  MakePhotos("Two", 1);
  RenameFolderStart(main, slot);
  person.Type("New");
  Select_a_Folder(main, slot);
  Remove_Open_Folder(main);
  ASSERT_EQ(Show(Folder("Two")), slot);
  EndFolderRename(main);
  ExpectNotRenamed(slot, Folder("Two"));
  EXPECT_TRUE(drive.Exists(Folder("One")));
  EXPECT_FALSE(drive.Exists(Folder("New")));
  EXPECT_FALSE(desk.FolderRenameBox.Visible());
  EXPECT_FALSE(IsFolderBeingRenamed(desk));
  EXPECT_TRUE(desk.DestFolderName(slot).Visible());
}

TEST_F(FolderRenameTest, ABlankNameTypedForAFolderThatHasLeftTheDesktopIsNoMatter) {
  const int slot = Show(MakePhotos("One", 1));
  RenameFolderStart(main, slot);
  desk.FolderRenameBox.SetText("");
  Select_a_Folder(main, slot);
  Remove_Open_Folder(main);
  EndFolderRename(main);
  EXPECT_FALSE(desk.FolderRenameBox.Visible());
}

TEST_F(FolderRenameTest, AFolderThatIsProtectedByThenIsNotRenamed) {
  const int slot = Show(MakePhotos("One", 1));
  RenameFolderStart(main, slot);
  person.Type("New");
  drive.DrivePlaces().Kept = {Folder("One")};
  person.ExpectBox(CannotRename, Folder("One") + "\n\nIt is a protected system folder.");
  EndFolderRename(main);
  ExpectNotRenamed(slot, Folder("One"));
}

TEST_F(FolderRenameTest, RootsAndProtectedFoldersAreNotRenamed) {
  drive.DrivePlaces().Kept = {"C:\\Home\\Anna"};
  drive.MakeFolder("C:\\Home\\Anna");
  const int root = Show("C:\\");
  const int home = Show("C:\\Home\\Anna");
  person.ExpectBox(CannotRename,
                   "C:\\\n\nThis folder is a root drive or shared network resource.\nIt cannot be renamed.");
  RenameFolderStart(main, root);
  EXPECT_FALSE(desk.FolderRenameBox.Visible());
  person.ExpectBox(CannotRename, "C:\\Home\\Anna\n\nIt is a protected system folder.");
  RenameFolderStart(main, home);
  EXPECT_FALSE(desk.FolderRenameBox.Visible());
  EXPECT_EQ(desk.FolderRenameBox.Tag(), "");
}

TEST_F(FolderRenameTest, NoSlotAFreeSlotAndTheTrashcanHaveNoRename) {
  for (const int slot : {0, 5, TrashcanSlot}) {
    RenameFolderStart(main, slot);
    EXPECT_FALSE(desk.FolderRenameBox.Visible()) << slot;
  }
  Select_a_Folder(main, TrashcanSlot);
  Raise(main.menu.OpenFolderMenu.On().Click, main.menu.OpenFolderMenu);
  EXPECT_FALSE(main.menu.RenameOpenFolderMenuItem.Enabled());
}

TEST_F(FolderRenameTest, ARenameOfAnotherFolderEndsTheOneThatRuns) {
  const int first = Show(MakePhotos("One", 1));
  const int second = Show(MakePhotos("Two", 1));
  RenameFolderStart(main, first);
  person.Type("New");
  RenameFolderStart(main, second);
  EXPECT_TRUE(drive.Exists(Folder("New")));
  EXPECT_TRUE(desk.DestFolderName(first).Visible());
  EXPECT_EQ(desk.FolderRenameBox.Text(), "Two");
  EXPECT_EQ(desk.FolderRenameBox.Tag(), std::to_string(second));
}

TEST_F(FolderRenameTest, TheWindowThatClosesTakesTheNewName) {
  const int slot = Show(MakePhotos("Old", 1));
  RenameFolderStart(main, slot);
  person.Type("New");
  run.Close();
  EXPECT_TRUE(drive.Exists(Folder("New")));
  EXPECT_NE(drive.Read("C:\\Windows\\Pixorra.sav").find(Folder("New")), std::string::npos);
}

TEST_F(FolderRenameTest, TheShortcutOfTheMenuRenamesTheOpenFolder) {
  ShowAndOpen(MakePhotos("Old", 1));
  person.Key('M', shift::Ctrl);
  EXPECT_TRUE(desk.FolderRenameBox.HasFocus());
  EXPECT_EQ(desk.FolderRenameBox.Text(), "Old");
}

}  // namespace
}  // namespace pixorra
