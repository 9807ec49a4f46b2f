// The Trashcan: its question, and its emptying when the program ends.
#include "desktop/FolderDelete.h"
#include "desktop/Trashcan.h"
#include "tests/desktop/DesktopTest.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* Can = "C:\\Program\\Trashcan";

class TrashcanTest : public ProgramTest {
 protected:
  TrashcanTest() {
    for (const char* name : {"a.bmp", "b.bmp"}) drive.Write(std::string(Can) + "\\" + name, BmpPhoto(8, 8));
    drive.Write(std::string(Can) + "\\Thumbnails.tmp", "1");
    drive.Write(std::string(Can) + "\\notes.txt", "kept");
    drive.Write(std::string(Can) + "\\sub\\c.bmp", "kept");
  }
  bool HasPhotos() const {
    return drive.Exists(std::string(Can) + "\\a.bmp") && drive.Exists(std::string(Can) + "\\b.bmp");
  }
};

TEST_F(TrashcanTest, ThePhotosOfItsListGoWhenTheProgramEnds) {
  Started().Close();
  for (const char* gone : {"\\a.bmp", "\\b.bmp", "\\Thumbnails.tmp"})
    EXPECT_FALSE(drive.Exists(Can + std::string(gone)));
  for (const char* kept : {"\\notes.txt", "\\sub\\c.bmp"}) EXPECT_TRUE(drive.Exists(Can + std::string(kept))) << kept;
}

TEST_F(TrashcanTest, TheyStayThroughRestartsWhenThePreferenceSaysSo) {
  SavedState saved;
  saved.EmptyTrashcan = false;
  WriteSavedState(saved);
  for (int i = 0; i < 3; ++i) {
    ProgramRun& run = Started();
    run.person.ExpectBox("Empty the Trashcan", "Do you want to delete the contents of the Trashcan?", BoxAnswer::Yes);
    DeleteFolderAsked(run.main, TrashcanSlot);
    run.Close();
    EndRun();
  }
  EXPECT_TRUE(HasPhotos());
}

TEST_F(TrashcanTest, YesToTheQuestionReadsTheFolderAnewAndDeletesNothing) {
  ProgramRun& run = Started();
  DesktopState& desk = run.main.desk;
  Select_a_Folder(run.main, TrashcanSlot);
  run.LoadAll();
  drive.Write(std::string(Can) + "\\d.bmp", BmpPhoto(8, 8));
  run.person.ExpectBox("Empty the Trashcan", "Do you want to delete the contents of the Trashcan?", BoxAnswer::Yes);
  run.person.ChooseMenu(run.main.menu.DeleteOpenFolderMenuItem);
  EXPECT_TRUE(HasPhotos());
  EXPECT_EQ(desk.DestPicsCount(TrashcanSlot).Caption(), "3 pics");
  EXPECT_EQ(desk.DestFileList.ListCount(), 3);
  EXPECT_EQ(desk.DestContentsLabel.Caption(), "");
  EXPECT_EQ(desk.OpenFolderIndex, TrashcanSlot);
}

TEST_F(TrashcanTest, NoToTheQuestionChangesNothing) {
  ProgramRun& run = Started();
  drive.Write(std::string(Can) + "\\d.bmp", BmpPhoto(8, 8));
  run.person.ExpectBox("Empty the Trashcan", "Do you want to delete the contents of the Trashcan?", BoxAnswer::No);
  run.person.ExpectMenu(run.main.menu.TrashcanPopupMenu, &run.main.menu.EmptyTrashcanPopupItem);
  run.person.RightClick(run.main.desk.DestFolder(TrashcanSlot));
  EXPECT_TRUE(HasPhotos());
  EXPECT_EQ(run.main.desk.DestPicsCount(TrashcanSlot).Caption(), "2 pics");
}

TEST_F(TrashcanTest, OneWithoutPhotosIsEmptyAlready) {
  drive.Remove(std::string(Can) + "\\a.bmp");
  drive.Remove(std::string(Can) + "\\b.bmp");
  ProgramRun& run = Started();
  run.person.ExpectBox("Empty the Trashcan", "Trashcan is already Empty.");
  DeleteFolderAsked(run.main, TrashcanSlot);
  run.Close();
  EXPECT_TRUE(drive.Exists(std::string(Can) + "\\Thumbnails.tmp"));
}

TEST_F(TrashcanTest, OnlyWhatTheListShowsGoes) {
  ProgramRun& run = Started();
  drive.Write(std::string(Can) + "\\later.bmp", BmpPhoto(8, 8));
  drive.Remove(std::string(Can) + "\\a.bmp");
  drive.Write(std::string(Can) + "\\a.bmp\\inside.bmp", "a folder by now");
  run.Close();
  EXPECT_FALSE(drive.Exists(std::string(Can) + "\\b.bmp"));
  EXPECT_TRUE(drive.Exists(std::string(Can) + "\\later.bmp"));
  EXPECT_TRUE(drive.Exists(std::string(Can) + "\\a.bmp\\inside.bmp"));
}

TEST_F(TrashcanTest, APhotoThatCannotBeDeletedKeepsNoOtherOne) {
  ProgramRun& run = Started();
  run.files.FailAlways(FileCall::Delete, error::PermissionDenied, "a.bmp");
  run.Close();
  EXPECT_TRUE(drive.Exists(std::string(Can) + "\\a.bmp"));
  EXPECT_FALSE(drive.Exists(std::string(Can) + "\\b.bmp"));
  EXPECT_TRUE(run.main.host.toolkit.Ended());
}

TEST_F(TrashcanTest, WithoutAFolderOfItsOwnNothingOfTheDriveGoes) {
  drive.Remove(Can);
  drive.Write(Can, "a file in the way");
  drive.Write("C:\\photo.bmp", BmpPhoto(8, 8));
  drive.Write("C:\\Thumbnails.tmp", "1");
  ProgramRun& run = Started();
  ASSERT_EQ(run.main.desk.DestFolderFiles(TrashcanSlot).Path(), "C:\\");
  run.main.desk.DestFolderFiles(TrashcanSlot).Refresh();
  ASSERT_EQ(run.main.desk.DestFolderFiles(TrashcanSlot).ListCount(), 1);
  run.person.ExpectBox("WARNING: Can't Delete this folder",
                       "C:\\\n\nThis folder is a root drive or shared network resource.\n"
                       "It cannot be deleted. This is to protect the critical\n"
                       "files and folders that it may also contain.");
  DeleteFolderAsked(run.main, TrashcanSlot);
  run.Close();
  EXPECT_TRUE(drive.Exists("C:\\photo.bmp"));
  EXPECT_TRUE(drive.Exists("C:\\Thumbnails.tmp"));
}

TEST_F(TrashcanTest, ThroughALinkInItsPlaceNothingGoes) {
  drive.Remove(Can);
  drive.Write("C:\\Home\\photo.bmp", BmpPhoto(8, 8));
  drive.MakeLink(Can, drive.HostPath("C:\\Home"));
  Started().Close();
  EXPECT_TRUE(drive.Exists("C:\\Home\\photo.bmp"));
}

}  // namespace
}  // namespace pixorra
