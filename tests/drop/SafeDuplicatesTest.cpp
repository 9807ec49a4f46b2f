// A duplicate is deleted only while the other file is there, whole and safe on the disk.
#include <gtest/gtest.h>

#include "tests/drop/DropTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

class SafeDuplicatesTest : public DropTest {
 protected:
  SafeDuplicatesTest() { main.preferences.DuplicatesAutoOption.SetValue(true); }

  // One photo in the strip; the folder holds an equal one, old.bmp.
  void Prepare() {
    LoadStrip({"a.bmp"});
    drive.Write(old_, drive.Read(Photo("a.bmp")));
    Show("F");
  }
  void Drop() {
    const bool covered = desk.DestFolderPreview(1).Visible();
    person.Drag(strip.SrcThumbnail(1), covered ? desk.DestFolderPreview(1) : desk.DestFolder(1));
  }

  const std::string old_ = Folder("F") + "\\old.bmp";
  const std::string new_ = Folder("F") + "\\a.bmp";
};

TEST_F(SafeDuplicatesTest, ACopyThatTheDiskRefusedNeverBecomesTheOriginal) {
  LoadStrip({"a.bmp"});
  Show("F");
  run.files.FailNth(FileCall::Flush, 1, error::DeviceIO, "F\\a.bmp");
  person.ExpectBox("Pixorra - Unable to Drop Photo",
                   "C:\\Home\\F\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, "
                   "or your\ndisk drive maybe full.");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_FALSE(IsMarked(1));
  EXPECT_EQ(drive.Read(new_), "");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(drive.Read(main.drop.LastDropFile), drive.Read(Photo("a.bmp")));
}

TEST_F(SafeDuplicatesTest, BesideAnEqualFileThatCannotBeFlushedTheNewOneStays) {
  Prepare();
  run.files.FailAlways(FileCall::Flush, error::DeviceIO, "F\\old.bmp");
  Drop();
  EXPECT_EQ(drive.Read(new_), drive.Read(Photo("a.bmp")));
  EXPECT_TRUE(IsMarked(1));
}

TEST_F(SafeDuplicatesTest, BesideAnEqualFileWhoseFolderCannotBeFlushedTheNewOneStays) {
  Prepare();
  run.files.FailNth(FileCall::FlushFolder, 2, error::DeviceIO);  // the first one is the copy's own
  Drop();
  EXPECT_EQ(drive.Read(new_), drive.Read(Photo("a.bmp")));
}

TEST_F(SafeDuplicatesTest, ALinkToAnEqualFileIsNoCopy) {
  LoadStrip({"a.bmp"});
  drive.MakeFolder(Folder("F"));
  drive.MakeLink(old_, drive.HostPath(Photo("a.bmp")));
  Show("F");
  Drop();
  EXPECT_EQ(drive.Read(new_), drive.Read(Photo("a.bmp")));
  EXPECT_TRUE(IsMarked(1));
}

TEST_F(SafeDuplicatesTest, TheNewFileStaysWhereItsEqualGoesWhileTheQuestionIsUp) {
  main.preferences.DuplicatesAskOption.SetValue(true);
  Prepare();
  person.ExpectForm("DuplicateAskForm", [this](Person& hand, Form& form) {
    drive.DriveFiles().Delete(old_);
    hand.Click(Find<CommandButton>(form, "DeleteDuplicateButton"));
  });
  Drop();
  EXPECT_EQ(drive.Read(new_), drive.Read(Photo("a.bmp")));
}

TEST_F(SafeDuplicatesTest, TheOriginalStaysWhereItBecomesAnotherPhotoWhileTheQuestionIsUp) {
  main.preferences.DuplicatesAskOption.SetValue(true);
  Prepare();
  person.ExpectForm("DuplicateAskForm", [this](Person& hand, Form& form) {
    drive.Write(old_, "another photo");
    hand.Click(Find<CommandButton>(form, "DeleteOriginalButton"));
  });
  Drop();
  EXPECT_EQ(drive.Read(old_), "another photo");
}

// --- the strip's own folder ------------------------------------------------------------------------------------------

TEST_F(SafeDuplicatesTest, APhotoDroppedIntoItsOwnFolderIsNotMarkedWhereTheCopyGoesAsADuplicate) {
  LoadStrip({"a.bmp", "b.bmp"});
  const int slot = Display_a_New_Folder(main, "C:\\Strip");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  EXPECT_FALSE(drive.Exists(Photo("a1.bmp")));
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
  EXPECT_FALSE(IsMarked(1)) << "there is no copy of it";
  EXPECT_EQ(main.drop.LastDropFile, "");
}

TEST_F(SafeDuplicatesTest, ItsOwnFolderIsKnownBehindALinkToo) {
  LoadStrip({"a.bmp", "b.bmp"});
  drive.MakeLink(Folder("L"), drive.HostPath("C:\\Strip"));
  const int slot = Display_a_New_Folder(main, Folder("L"));
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  EXPECT_FALSE(drive.Exists(Photo("a1.bmp")));
  EXPECT_FALSE(IsMarked(1));
}

TEST_F(SafeDuplicatesTest, APhotoDroppedIntoItsOwnFolderIsMarkedOnlyWhereTheCopyIsKept) {
  main.preferences.DuplicatesAskOption.SetValue(true);
  LoadStrip({"a.bmp", "b.bmp"});
  const int slot = Display_a_New_Folder(main, "C:\\Strip");
  const auto answer = [this](const std::string& button) {
    person.ExpectForm("DuplicateAskForm",
                      [=](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, button)); });
  };
  answer("DeleteDuplicateButton");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  EXPECT_FALSE(IsMarked(1));
  answer("IgnoreButton");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  EXPECT_TRUE(drive.Exists(Photo("a1.bmp")));
  EXPECT_TRUE(IsMarked(1));
}

}  // namespace
}  // namespace pixorra
