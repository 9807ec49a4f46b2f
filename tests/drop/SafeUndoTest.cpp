// An undo leaves neither a mark without a copy nor a photo that is nowhere any more.
#include <gmock/gmock.h>

#include "desktop/FolderRename.h"
#include "platform/runtime/Errors.h"
#include "tests/drop/UndoTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

class SafeUndoTest : public UndoTest {
 protected:
  const std::string made_ = Folder("F") + "\\b.bmp";
  const std::string marked_ = "The photo's mark could not be taken off, so the copy stays.";
  const std::string gone_ = "The photo that was dropped is no longer where it was, so the copy stays.";
  const std::string cache_ = "Strip\\Thumbnails.tmp";

  void ReloadStrip() {
    strip.SrcLoadedPath.clear();
    strip.SrcFileList.Refresh();
    run.Wait(0.1);
    run.LoadAll();
  }
  void RenameSelectedTo(const std::string& name) {
    person.ExpectForm("RenamePreviewPicForm", [name](Person& hand, Form& form) {
      hand.Fill(Find<TextBox>(form, "NewPicNameBox"), name);
      hand.Key(key::Return);
    });
    person.ChooseMenu(main.menu.RenameMenuItem);
  }
  BoxIcon LastIcon() {
    return run.platform.dialogs.Boxes().empty() ? BoxIcon::None : run.platform.dialogs.Boxes().back().Icon;
  }
  void ExpectTheCopyStaysFor(const std::string& why) {
    person.ExpectBox("Pixorra", made_ + "\n\n" + why);
    Undo();
    EXPECT_TRUE(drive.Exists(made_));
  }
};

// --- the mark --------------------------------------------------------------------------------------------------------

TEST_F(SafeUndoTest, TheCopyOfAPhotoWhoseMarkCannotBeTakenOffStaysAndTheUndoCanBeTriedAgain) {
  Prepare();
  Drop(2);
  const std::pair<FileCall, int> faults[] = {{FileCall::OpenToWrite, error::PathAccess},
                                             {FileCall::Write, error::DiskFull},
                                             {FileCall::Flush, error::DeviceIO}};
  for (const auto& [call, number] : faults) {
    run.files.FailAlways(call, number, cache_);
    ExpectTheCopyStaysFor(marked_);
    EXPECT_EQ(LastIcon(), BoxIcon::Exclamation);
    EXPECT_TRUE(IsMarked(2));
    EXPECT_TRUE(RemembersADrop());
    run.files.Heal();
  }
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
  EXPECT_TRUE(IsClean(2));
  EXPECT_FALSE(IsMarkedOnDisk(Photo("b.bmp")));
}

TEST_F(SafeUndoTest, APhotoThatHasNoMarkAnyMoreNeedsNoneTakenOff) {
  Prepare();
  Drop(2);
  person.DoubleClick(strip.SrcBackground(2));
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, cache_);
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
}

TEST_F(SafeUndoTest, APhotoThatIsInNoCacheFileNeedsNoMarkTakenOff) {
  Prepare();
  Drop(2);
  drive.Remove("C:\\" + cache_);
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, cache_);
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
}

TEST_F(SafeUndoTest, APhotoThatWasRenamedSinceLosesItsMarkAlsoAfterTheStripWasLoadedAnew) {
  Prepare();
  Drop(2);
  person.Click(strip.SrcThumbnail(2));
  RenameSelectedTo("z");
  ASSERT_TRUE(drive.Exists(Photo("z.bmp")));
  ReloadStrip();
  ASSERT_TRUE(IsMarkedOnDisk(Photo("z.bmp")));
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
  EXPECT_FALSE(IsMarkedOnDisk(Photo("z.bmp")));
  EXPECT_TRUE(IsClean(3));
}

TEST_F(SafeUndoTest, APhotoWhoseFolderWasRenamedSinceLosesItsMark) {
  Prepare();
  const int slot = Display_a_New_Folder(main, "C:\\Strip");
  Drop(2);
  drive.MakeFolder("C:\\Next");
  MakePhoto("C:\\Next\\x.bmp");
  strip.SrcFileList.SetPath("C:\\Next");
  run.Wait(0.1);
  run.LoadAll();
  RenameFolderFinish(main, slot, "Old");
  ASSERT_TRUE(IsMarkedOnDisk("C:\\Old\\b.bmp"));
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
  EXPECT_FALSE(IsMarkedOnDisk("C:\\Old\\b.bmp"));
}

TEST_F(SafeUndoTest, APhotoOfTheStripsOwnFolderThatWasRenamedSinceLosesItsMark) {
  Prepare();
  const int slot = Display_a_New_Folder(main, "C:\\Strip");
  Drop(2);
  RenameFolderFinish(main, slot, "Old");
  ASSERT_TRUE(IsMarkedOnDisk("C:\\Old\\b.bmp"));
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
  EXPECT_FALSE(IsMarkedOnDisk("C:\\Old\\b.bmp"));
}

// --- the last copy ---------------------------------------------------------------------------------------------------

TEST_F(SafeUndoTest, TheCopyOfAPhotoThatHasGoneSinceStays) {
  PrepareOpen();
  Drop(2);
  run.LoadAll();
  drive.Remove(Photo("b.bmp"));
  ExpectTheCopyStaysFor(gone_);
  EXPECT_EQ(LastIcon(), BoxIcon::Exclamation);
  EXPECT_THAT(ViewNames(), ElementsAre("old", "b"));
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(SafeUndoTest, TheCopyOfAPhotoThatCannotBeLookedAtStays) {
  Prepare();
  Drop(2);
  run.files.FailAlways(FileCall::OpenToRead, error::DeviceIO, "Strip\\b.bmp");
  ExpectTheCopyStaysFor(gone_);
}

TEST_F(SafeUndoTest, TheCopyOfAPhotoThatHasBecomeALinkToItStays) {
  Prepare();
  Drop(2);
  drive.Remove(Photo("b.bmp"));
  drive.MakeLink(Photo("b.bmp"), drive.HostPath(made_));
  person.ExpectBox("Pixorra", made_ + "\n\n" + gone_);
  Undo();
  EXPECT_TRUE(drive.Exists(made_));
}

TEST_F(SafeUndoTest, TheCopyOfAPhotoThatGoesDuringTheComparisonStays) {
  Prepare();
  Drop(2);
  run.files.BeforeNth(
      FileCall::Read, 1, [this] { drive.Remove(Photo("b.bmp")); }, "F\\b.bmp");
  ExpectTheCopyStaysFor(gone_);
}

TEST_F(SafeUndoTest, WhatAnEditorSavesDuringTheComparisonStays) {
  Prepare();
  Drop(2);
  run.files.BeforeNth(
      FileCall::Read, 1,
      [this] {
        drive.Write(made_ + ".new", "Bedited");
        drive.DriveFiles().RenameOver(made_ + ".new", made_);
      },
      "F\\b.bmp");
  ExpectTheCopyStaysFor("This is no longer the file that was made, and it stays.");
  EXPECT_EQ(drive.Read(made_), "Bedited");
}

}  // namespace
}  // namespace pixorra
