// Deleting the selected photo: what leaves the disk, the views and the counts, and what is never deleted.
#include <gmock/gmock.h>

#include "platform/runtime/Errors.h"
#include "preview/FullSizePreview.h"
#include "tests/delete/DeleteTest.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* SelectedFailed = "Unable to delete Selected Photo";

class DeleteSelectedFormTest : public DeleteTest {
 protected:
  // By the menu; `first` happens while the question is up.
  void DeleteIt(const std::function<void(Form&)>& first = {}) {
    Answer("DeleteSelectedForm", "DeleteButton", first);
    person.ChooseMenu(main.menu.DeleteMenuItem);
  }
  void ExpectFailure(const std::string& path, const std::string& why) {
    person.ExpectBox(SelectedFailed, path + "\n\n" + why);
  }
  std::string CountOf(int slot) const { return desk.DestPicsCount(slot).Caption(); }
};

TEST_F(DeleteSelectedFormTest, APhotoOfTheFilmStripLeavesDiskAndStrip) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  const int slot = OpenWith("Family", {"x.bmp", "y.bmp"});
  person.Drag(strip.SrcThumbnail(3), desk.DestFolderPreview(slot));
  run.LoadAll();
  SelectInStrip(2);
  const std::string cache = drive.Read(Photo("Thumbnails.tmp"));
  DeleteIt();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp", "c.bmp"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("a.bmp", "c.bmp"));
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "2 pics");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "2 Total");
  ExpectNoSelection();
  // The open folder, the memory of the last drop and the cache are as they were.
  EXPECT_THAT(ShownInView(), ElementsAre("x.bmp", "y.bmp", "c.bmp"));
  EXPECT_EQ(CountOf(slot), "3 pics");
  EXPECT_EQ(main.drop.LastDropFile, Folder("Family") + "\\c.bmp");
  EXPECT_EQ(main.drop.LastDropFolder, slot);
  EXPECT_EQ(main.drop.LastDropSrcIndex, 3);
  EXPECT_TRUE(drive.Read(Photo("Thumbnails.tmp")) == cache);
  EXPECT_EQ(run.platform.toolkit.ActiveForm(), &main.Window);
}

TEST_F(DeleteSelectedFormTest, APhotoOfTheOpenFolderLeavesDiskViewAndCount) {
  LoadStrip({"a.bmp", "b.bmp"});
  const int slot = OpenWith("Family", {"x.bmp", "y.bmp", "z.bmp"});
  SelectInView(3);
  DeleteIt();
  EXPECT_THAT(FilesIn(Folder("Family")), ElementsAre("x.bmp", "y.bmp"));
  EXPECT_THAT(ShownInView(), ElementsAre("x.bmp", "y.bmp"));
  EXPECT_EQ(desk.DestCountLabel.Caption(), "2");
  EXPECT_EQ(CountOf(slot), "2 pics");
  EXPECT_EQ(desk.DestFileList.ListCount(), 2);
  // The folder's preview is that of the photo that is the last one now.
  EXPECT_EQ(desk.DestFolderPreview(slot).GetPicture().Pixels().Row(30)[0],
            desk.DestThumbnail(2).GetPicture().Pixels().Row(30)[0]);
  EXPECT_TRUE(desk.DestFolderPreview(slot).Visible());
  ExpectNoSelection();
  EXPECT_THAT(ShownInStrip(), ElementsAre("a.bmp", "b.bmp"));
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "2 pics");
  EXPECT_EQ(main.drop.LastDropFile, "");
}

TEST_F(DeleteSelectedFormTest, TheOnlyPhotoOfTheOpenFolderLeavesItEmptyAndWithoutAPreview) {
  const int slot = OpenWith("Family", {"x.bmp"});
  SelectInView(1);
  DeleteIt();
  EXPECT_THAT(FilesIn(Folder("Family")), IsEmpty());
  EXPECT_EQ(desk.DestSlotCount, 0);
  EXPECT_EQ(CountOf(slot), " Empty");
  EXPECT_FALSE(desk.DestFolderPreview(slot).Visible());
  ExpectNoSelection();
}

TEST_F(DeleteSelectedFormTest, APhotoOfTheOpenTrashcanGoesWithoutAMessageAsTheCanHasNoPreview) {
  MakePhoto("C:\\Program\\Trashcan\\t.bmp");
  MakePhoto("C:\\Program\\Trashcan\\u.bmp");
  desk.DestFolderFiles(TrashcanSlot).Refresh();
  Select_a_Folder(main, TrashcanSlot);
  run.Wait(0.08);
  run.LoadAll();
  SelectInView(1);
  DeleteIt();
  EXPECT_THAT(FilesIn("C:\\Program\\Trashcan"), ElementsAre("u.bmp"));
  EXPECT_THAT(ShownInView(), ElementsAre("u.bmp"));
  EXPECT_EQ(CountOf(TrashcanSlot), "1 pics");
  ExpectNoSelection();
}

TEST_F(DeleteSelectedFormTest, WhereStripAndOpenFolderAreOneFolderTheSlotSelectedLastLeavesTheStripAndTheCellStays) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Select_a_Folder(main, Display_a_New_Folder(main, "C:\\Strip"));
  run.Wait(0.08);
  run.LoadAll();
  SelectInStrip(1);
  SelectInView(3);
  DeleteIt();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp", "b.bmp"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("b.bmp", "c.bmp"));
  EXPECT_THAT(ShownInView(), ElementsAre("a.bmp", "b.bmp", "c.bmp"));
}

TEST_F(DeleteSelectedFormTest, InRemainingThePhotoLeavesTheViewTooAndTheOthersCloseUp) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Mark(3);
  person.Click(strip.RemainingOption);
  SelectInStrip(1);
  DeleteIt();
  EXPECT_THAT(ShownInStrip(), ElementsAre("b.bmp"));
  EXPECT_EQ(strip.SrcBackground(2).Left(), 97);
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "1 pics");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "2 Total");
}

TEST_F(DeleteSelectedFormTest, ADraggedPhotoThatHasGoneIsNoLongerAmongTheDraggedOnes) {
  LoadStrip({"a.bmp", "b.bmp"});
  Mark(1);
  SelectInStrip(1);
  DeleteIt();
  Answer("DeletePhotosForm", "CancelButton",
         [](Form& form) { EXPECT_FALSE(Find<CommandButton>(form, "DeleteDraggedButton").Enabled()); });
  person.Click(strip.DeleteButton);
}

TEST_F(DeleteSelectedFormTest, TheFolderIsFlushedAfterIt) {
  LoadStrip({"a.bmp", "b.bmp"});
  SelectInStrip(1);
  const int before = run.files.Count(FileCall::FlushFolder);
  DeleteIt();
  EXPECT_EQ(run.files.Count(FileCall::FlushFolder), before + 1);
}

TEST_F(DeleteSelectedFormTest, AWriteProtectedPhotoStaysWithAMessage) {
  LoadStrip({"a.bmp", "b.bmp"});
  SelectInStrip(1);
  drive.SetMode(Photo("a.bmp"), 0444);
  ExpectFailure(Photo("a.bmp"), "Path/File access error");
  Answer("DeleteSelectedForm", "DeleteButton");
  Choose("DeleteSelectedButton");
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Critical);
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
  EXPECT_THAT(ShownInStrip(), ElementsAre("a.bmp", "b.bmp"));
  EXPECT_EQ(main.preview.PicPreview.Tag(), Photo("a.bmp"));
  EXPECT_EQ(person.Window("DeleteSelectedForm"), nullptr);
}

TEST_F(DeleteSelectedFormTest, APhotoThatHasGoneBeforeIsReportedAsMissing) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  ExpectFailure(Photo("a.bmp"), "File not found");
  DeleteIt([&](Form&) { drive.Remove(Photo("a.bmp")); });
}

TEST_F(DeleteSelectedFormTest, AFileThatHasTakenThePhotosNameSinceItWasShownStays) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  ExpectFailure(Photo("a.bmp"), "The photo has been changed since it was shown.");
  DeleteIt([&](Form&) {
    drive.Remove(Photo("a.bmp"));
    drive.Write(Photo("a.bmp"), "another photo");
  });
  EXPECT_EQ(drive.Read(Photo("a.bmp")), "another photo");
}

TEST_F(DeleteSelectedFormTest, AFileThatHasTakenThePhotosNameSinceThePaneShowedItStays) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  drive.Write(Photo("a.bmp"), "another photo");
  ExpectFailure(Photo("a.bmp"), "The photo has been changed since it was shown.");
  DeleteIt();
  EXPECT_EQ(drive.Read(Photo("a.bmp")), "another photo");
}

TEST_F(DeleteSelectedFormTest, APhotoThatThePaneShowedAndThatCannotBeLookedAtAnyMoreStays) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  run.files.FailAlways(FileCall::Length, error::DeviceIO);
  ExpectFailure(Photo("a.bmp"), "The photo has been changed since it was shown.");
  DeleteIt();
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
}

TEST_F(DeleteSelectedFormTest, WhereTheFrameIsOnAnotherSlotThanThePanesPhotoTheSlotOfThePhotoLeavesTheStrip) {
  main.preferences.AutoPreviewCheckBox.SetValue(false);
  LoadStrip({"a.bmp", "b.bmp"});
  const int slot = OpenWith("Family", {"x.bmp"});
  SelectInStrip(1);
  person.Drag(strip.SrcThumbnail(2), desk.DestFolderPreview(slot));
  run.LoadAll();
  ASSERT_EQ(SelectedSlot(strip), 2);
  ASSERT_EQ(main.preview.PicPreview.Tag(), Photo("a.bmp"));
  DeleteIt();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("b.bmp"));
}

TEST_F(DeleteSelectedFormTest, WithoutAFilmStripAPhotoOfItsFormerFolderLeavesTheOpenFolder) {
  LoadStrip({"a.bmp", "b.bmp"});
  Select_a_Folder(main, Display_a_New_Folder(main, "C:\\Strip"));
  strip.NoFilmStrip = true;
  strip.SrcLoadedPath.clear();
  run.Wait(0.1);
  run.LoadAll();
  ASSERT_EQ(strip.SrcSlotCount, 0);
  SelectInView(1);
  DeleteIt();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp"));
  EXPECT_THAT(ShownInView(), ElementsAre("b.bmp"));
}

TEST_F(DeleteSelectedFormTest, TheWindowAtFullSizeThatShowsThePhotoGoesWithIt) {
  drive.Write(Photo("big.bmp"), BmpPhoto(640, 480));
  LoadStrip({"a.bmp"});
  SelectInStrip(2);
  DisplayFullSizePreview(main, Photo("big.bmp"));
  ASSERT_EQ(main.preview.sFullSizeFile, Photo("big.bmp"));
  DeleteIt();
  EXPECT_EQ(main.preview.sFullSizeFile, "");
}

TEST_F(DeleteSelectedFormTest, AFolderThatHasTakenThePhotosNameStaysWithAllInIt) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  ExpectFailure(Photo("a.bmp"), "Path/File access error");
  DeleteIt([&](Form&) {
    drive.Remove(Photo("a.bmp"));
    drive.Write(Photo("a.bmp") + "\\kept.bmp", "kept");
  });
  EXPECT_EQ(drive.Read(Photo("a.bmp") + "\\kept.bmp"), "kept");
}

TEST_F(DeleteSelectedFormTest, ALinkThatHasTakenThePhotosNameGoesAndWhatItLeadsToStays) {
  LoadStrip({"a.bmp"});
  drive.Write("C:\\Elsewhere\\kept.bmp", "kept");
  drive.SetMode("C:\\Elsewhere\\kept.bmp", 0444);
  SelectInStrip(1);
  DeleteIt([&](Form&) {
    drive.Remove(Photo("a.bmp"));
    drive.MakeLink(Photo("a.bmp"), drive.HostPath("C:\\Elsewhere\\kept.bmp"));
  });
  EXPECT_FALSE(drive.Exists(Photo("a.bmp")));
  EXPECT_EQ(drive.Read("C:\\Elsewhere\\kept.bmp"), "kept");
}

TEST_F(DeleteSelectedFormTest, APhotoOfAnotherFolderThatHasTakenTheFoldersNameStays) {
  LoadStrip({"a.bmp"});
  MakePhoto("C:\\Elsewhere\\a.bmp");
  SelectInStrip(1);
  ExpectFailure(Photo("a.bmp"), "");
  DeleteIt([&](Form&) {
    drive.DriveFiles().Rename("C:\\Strip", "C:\\Away");
    drive.MakeLink("C:\\Strip", drive.HostPath("C:\\Elsewhere"));
  });
  EXPECT_TRUE(drive.Exists("C:\\Elsewhere\\a.bmp"));
  EXPECT_TRUE(drive.Exists("C:\\Away\\a.bmp"));
}

TEST_F(DeleteSelectedFormTest, APhotoThatCannotBeShownCanBeDeletedFromTheStrip) {
  drive.Write(Photo("b.bmp"), "BM and nothing of a bitmap");
  LoadStrip({"a.bmp"});
  SelectInStrip(2);
  ASSERT_EQ(main.preview.PicPreview.Tag(), "");
  Answer("DeleteSelectedForm", "DeleteButton", [&](Form& form) {
    EXPECT_EQ(TextOf(form, "PhotoName"), "b.bmp");
    EXPECT_TRUE(Find<ImageBox>(form, "Image1").GetPicture() == main.pictures.InvalidPicture);
  });
  Choose("DeleteSelectedButton");
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("a.bmp"));
}

TEST_F(DeleteSelectedFormTest, ACellThatHasMovedWhileItWasAskedIsStillTheOneThatGoes) {
  OpenWith("Family", {"x.bmp", "y.bmp", "z.bmp"});
  SelectInView(2);
  DeleteIt([&](Form&) { desk.DestThumbFrame.SetTag("3"); });
  EXPECT_THAT(FilesIn(Folder("Family")), ElementsAre("x.bmp", "z.bmp"));
  EXPECT_THAT(ShownInView(), ElementsAre("x.bmp", "z.bmp"));
}

}  // namespace
}  // namespace pixorra
