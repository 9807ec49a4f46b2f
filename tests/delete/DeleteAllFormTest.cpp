// Deleting the whole film strip: the photos that were counted, their cache, and the folder if it is empty then.
#include <gmock/gmock.h>

#include "desktop/Trashcan.h"
#include "platform/runtime/Errors.h"
#include "tests/delete/DeleteTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* Deleted = "Photos have been Deleted";
constexpr const char* OtherFiles =
    "Can't delete the Film Strip Location\nThe Film Strip Location still contains other files.";
constexpr const char* SubFolder =
    "Can't delete the Film Strip Location\n\nThe Film Strip contains a sub-folder\n"
    "Delete the sub-folder before trying again.";

class DeleteAllFormTest : public DeleteTest {
 protected:
  // `first` happens while the question is up.
  void DeleteAll(const std::function<void(Form&)>& first = {}) {
    Answer("DeleteAllForm", "DeleteButton", first);
    Choose("DeleteAllButton");
  }
  void ExpectNoFilmStrip() {
    EXPECT_TRUE(strip.NoFilmStrip);
    EXPECT_EQ(strip.SrcFolderPath.Caption(), "Select a Film Strip");
    EXPECT_EQ(strip.SrcPicsCount.Caption(), "");
    EXPECT_EQ(strip.SrcPicsTotal.Caption(), "");
    EXPECT_EQ(person.Window("DeleteAllForm"), nullptr);
    run.Wait(0.1);
    EXPECT_EQ(strip.SrcSlotCount, 0);
    EXPECT_EQ(main.preview.PicPreview.Tag(), "");
  }
  BoxIcon LastIcon() { return run.platform.dialogs.Boxes().back().Icon; }
};

TEST_F(DeleteAllFormTest, AllPhotosGoAndTheCacheAndTheFolderAndNoFilmStripIsLeft) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  const int slot = OpenWith("Family", {"x.bmp"});
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  run.LoadAll();
  SelectInStrip(2);
  ASSERT_TRUE(drive.Exists(Photo("Thumbnails.tmp")));
  DeleteAll();
  EXPECT_FALSE(drive.Exists("C:\\Strip"));
  ExpectNoFilmStrip();
  EXPECT_THAT(FilesIn(Folder("Family")), ElementsAre("a.bmp", "x.bmp"));
  EXPECT_THAT(ShownInView(), ElementsAre("x.bmp", "a.bmp"));
  EXPECT_EQ(desk.DestPicsCount(slot).Caption(), "2 pics");
  EXPECT_EQ(main.drop.LastDropFile, Folder("Family") + "\\a.bmp");
  EXPECT_EQ(main.drop.LastDropSrcIndex, 1);
  // The next start has none either.
  run.Close();
  EXPECT_EQ(drive.Read("C:\\Windows\\Pixorra.sav").find("C:\\Strip\"\r\n\"C:\\Home"), std::string::npos);
}

TEST_F(DeleteAllFormTest, AStripThatIsStillLoadingLoadsNothingWhileItIsDeleted) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  strip.ThumbsPaused = "True";
  for (const char* name : {"d.bmp", "e.bmp", "f.bmp"}) MakePhoto(Photo(name));
  strip.SrcFileList.Refresh();
  drive.SetMode(Photo("f.bmp"), 0444);
  person.ExpectBox("Unable to delete this Photo", Photo("f.bmp") + "\n\nPath/File access error", BoxAnswer::Cancel,
                   [this] {
                     run.Wait(1);
                     EXPECT_EQ(strip.SrcSlotCount, 3);
                   });
  DeleteAll([&](Form&) { strip.ThumbsPaused = "False"; });
  run.Wait(0.1);
  run.LoadAll();
  EXPECT_EQ(ShownInStrip(), std::vector<std::string>{"f.bmp"});
}

TEST_F(DeleteAllFormTest, AnEmptyFilmStripIsAskedAboutByItsPathAlone) {
  LoadStrip({});
  DeleteAll([](Form& form) { EXPECT_EQ(TextOf(form, "DeleteAllMessage"), "Delete [C:\\Strip]"); });
  EXPECT_FALSE(drive.Exists("C:\\Strip"));
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, APhotoThatCameSinceTheQuestionStaysAndKeepsTheFolder) {
  LoadStrip({"a.bmp", "b.bmp"});
  person.ExpectBox(Deleted, OtherFiles);
  DeleteAll([&](Form& form) {
    EXPECT_EQ(TextOf(form, "DeleteAllMessage"), "Delete all 2 photos in    [C:\\Strip]");
    MakePhoto(Photo("new.bmp"));
    strip.SrcFileList.Refresh();
  });
  EXPECT_EQ(LastIcon(), BoxIcon::Exclamation);
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("new.bmp"));
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, AFileThatTookAListedNameSinceTheQuestionStays) {
  LoadStrip({"a.bmp", "b.bmp"});
  person.ExpectBox("Unable to delete this Photo",
                   Photo("a.bmp") + "\n\nThe photo has been changed since the question.");
  person.ExpectBox(Deleted, OtherFiles);
  DeleteAll([&](Form&) { drive.Write(Photo("a.bmp"), BmpPhoto(8, 8)); });
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(DeleteAllFormTest, APhotoThatHasBeenEditedSinceTheQuestionStaysThoughItIsAsLongAsBefore) {
  LoadStrip({"a.bmp", "b.bmp"});
  const int opened = run.files.Count(FileCall::OpenToRead);
  person.ExpectBox("Unable to delete this Photo",
                   Photo("a.bmp") + "\n\nThe photo has been changed since the question.");
  person.ExpectBox(Deleted, OtherFiles);
  DeleteAll([&](Form&) {
    EXPECT_EQ(run.files.Count(FileCall::OpenToRead), opened) << "a camera would fetch each photo";
    drive.SetTime(Photo("a.bmp"), {2011, 2, 3, 4, 5, 6});
  });
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(DeleteAllFormTest, ATextFileKeepsItselfAndTheFolder) {
  LoadStrip({"a.bmp"});
  drive.Write(Photo("notes.txt"), "kept");
  person.ExpectBox(Deleted, OtherFiles);
  DeleteAll();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("notes.txt"));
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, AHiddenFileKeepsTheFolderAndIsCalledAFile) {
  LoadStrip({"a.bmp"});
  drive.Write(Photo(".hidden"), "kept");
  person.ExpectBox(Deleted, OtherFiles);
  DeleteAll();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre(".hidden"));
}

TEST_F(DeleteAllFormTest, ASubFolderKeepsTheFolderAfterTenAttempts) {
  LoadStrip({"a.bmp"});
  drive.MakeFolder(Photo("sub"));
  person.ExpectBox(Deleted, SubFolder);
  const int before = run.files.Count(FileCall::RemoveFolder);
  const double start = run.platform.clock.Seconds();
  DeleteAll();
  EXPECT_EQ(LastIcon(), BoxIcon::Information);
  EXPECT_EQ(run.files.Count(FileCall::RemoveFolder), before + 10);
  EXPECT_GE(run.platform.clock.Seconds() - start, 0.89);
  EXPECT_LT(run.platform.clock.Seconds() - start, 1.2);
  EXPECT_TRUE(drive.Exists(Photo("sub")));
  EXPECT_FALSE(drive.Exists(Photo("a.bmp")));
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, AFolderThatIsLetGoOfALittleLaterIsRemoved) {
  LoadStrip({"a.bmp"});
  for (int n = 1; n <= 3; ++n) run.files.FailNth(FileCall::RemoveFolder, n, error::PermissionDenied);
  DeleteAll();
  EXPECT_FALSE(drive.Exists("C:\\Strip"));
}

TEST_F(DeleteAllFormTest, AnyOtherErrorIsShownByItsDescription) {
  LoadStrip({"a.bmp"});
  run.files.FailAlways(FileCall::RemoveFolder, error::DeviceIO);
  person.ExpectBox("Pixorra", "Device I/O error");
  DeleteAll();
  EXPECT_EQ(LastIcon(), BoxIcon::None);
  EXPECT_TRUE(drive.Exists("C:\\Strip"));
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, TheCamerasFolderIsEmptiedAndStaysAsAFolder) {
  LoadStrip({"a.bmp", "b.bmp"});
  strip.CameraLocation = "C:\\Strip";
  DeleteAll();
  EXPECT_TRUE(drive.Exists("C:\\Strip"));
  EXPECT_THAT(FilesIn("C:\\Strip"), IsEmpty());
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, TheTrashcansFolderIsEmptiedAndStaysAsAFolder) {
  LoadStrip({"a.bmp"}, "C:\\Program\\Trashcan");
  DeleteAll();
  EXPECT_TRUE(drive.Exists("C:\\Program\\Trashcan"));
  EXPECT_THAT(FilesIn("C:\\Program\\Trashcan"), IsEmpty());
}

TEST_F(DeleteAllFormTest, ProtectedFoldersAreEmptiedAndStayWithoutAMessage) {
  drive.DrivePlaces().Kept = {"C:\\Kept\\Inner"};
  for (const char* folder : {"C:\\Documents", "C:\\Pictures", "C:\\Kept"}) {
    SCOPED_TRACE(folder);
    if (std::string(folder) == "C:\\Pictures") drive.DrivePlaces().Kept.emplace_back(folder);
    LoadStrip({"a.bmp"}, folder);
    DeleteAll();
    EXPECT_TRUE(drive.Exists(folder));
    EXPECT_THAT(FilesIn(folder), IsEmpty());
    ExpectNoFilmStrip();
  }
}

TEST_F(DeleteAllFormTest, APhotoThatCannotBeDeletedGetsItsMessageAndTheOthersGo) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  drive.SetMode(Photo("b.bmp"), 0444);
  person.ExpectBox("Unable to delete this Photo", Photo("b.bmp") + "\n\nPath/File access error");
  person.ExpectBox(Deleted, OtherFiles);
  DeleteAll();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp"));
  EXPECT_FALSE(drive.Exists(Photo("Thumbnails.tmp")));
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, EscInAMessageStopsAndTheStripShowsWhatIsLeft) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Mark(3);
  drive.SetMode(Photo("b.bmp"), 0444);
  person.ExpectBox("Unable to delete this Photo", Photo("b.bmp"), BoxAnswer::Cancel);
  DeleteAll();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp", "c.bmp"));
  EXPECT_FALSE(strip.NoFilmStrip);
  run.Wait(0.1);
  run.LoadAll();
  EXPECT_THAT(ShownInStrip(), ElementsAre("b.bmp", "c.bmp"));
  EXPECT_TRUE(IsMarked(strip, 2));
}

TEST_F(DeleteAllFormTest, AnotherFolderThatHasTakenTheFoldersNameKeepsAllThatIsInIt) {
  LoadStrip({"a.bmp"});
  person.ExpectBox("Unable to delete this Photo", Photo("a.bmp") + "\n\nPath/File access error");
  DeleteAll([&](Form&) {
    drive.DriveFiles().Rename("C:\\Strip", "C:\\Away");
    MakePhoto(Photo("a.bmp"));
    drive.Write(Photo("Thumbnails.tmp"), "its own");
  });
  EXPECT_EQ(drive.Read(Photo("Thumbnails.tmp")), "its own");
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
  EXPECT_TRUE(drive.Exists("C:\\Away\\a.bmp"));
  ExpectNoFilmStrip();
}

TEST_F(DeleteAllFormTest, TheFolderIsFlushedOnceAheadOfItsRemovalAndItsParentAfterIt) {
  LoadStrip({"a.bmp", "b.bmp"});
  const int before = run.files.Count(FileCall::FlushFolder);
  DeleteAll();
  EXPECT_EQ(run.files.Count(FileCall::FlushFolder), before + 2);
}

TEST_F(DeleteAllFormTest, AStripThatIsStillBeingLoadedIsDeletedWhole) {
  drive.MakeFolder("C:\\Strip");
  for (int i = 0; i < 40; ++i) MakePhoto(Photo(std::to_string(100 + i) + ".bmp"));
  strip.NoFilmStrip = false;
  strip.SrcFileList.SetPath("C:\\Strip");
  run.Wait(0.2);
  ASSERT_LT(strip.SrcSlotCount, 40);
  run.files.BeforeNth(FileCall::Delete, 20, [&] { run.platform.clock.CountFor(0.1); });
  DeleteAll();
  EXPECT_FALSE(drive.Exists("C:\\Strip"));
  ExpectNoFilmStrip();
}

}  // namespace
}  // namespace pixorra
