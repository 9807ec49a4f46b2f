// What an undo brings back and what it does not, over disk, cache file, views and counts, after each kind of drop.
#include <gmock/gmock.h>

#include "tests/drop/UndoTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class UndoOutcomesTest : public UndoTest {
 protected:
  void AnswerDuplicateBy(const std::string& button) {
    main.preferences.DuplicatesAskOption.SetValue(true);
    person.ExpectForm("DuplicateAskForm",
                      [=](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, button)); });
  }
  // The folder has an equal of the second photo.
  void PrepareEqual() {
    PrepareOpen();
    drive.Write(Folder("F") + "\\equal.bmp", drive.Read(Photo("b.bmp")));
    desk.DestFileList.Refresh();
    desk.DestFolderFiles(1).Refresh();
    run.LoadAll();
  }
  void ExpectRecovered(int slot, const std::string& photo) {
    EXPECT_TRUE(IsClean(slot));
    EXPECT_FALSE(IsMarkedOnDisk(Photo(photo)));
    EXPECT_TRUE(drive.Exists(Photo(photo)));
    EXPECT_FALSE(RemembersADrop());
    EXPECT_EQ(main.drop.LastDropSrcIndex, 0);
    EXPECT_EQ(main.drop.LastDropFolder, 0);
    EXPECT_TRUE(strip.SrcThumbFrame.Visible());
    EXPECT_EQ(SelectedSlot(strip), slot);
  }
};

TEST_F(UndoOutcomesTest, APlainDrop) {
  Prepare();
  const Colour before = MiddleOf(desk.DestFolderPreview(1).GetPicture());
  Drop(2);
  EXPECT_TRUE(IsMarkedOnDisk(Photo("b.bmp")));
  EXPECT_NE(MiddleOf(desk.DestFolderPreview(1).GetPicture()), before);
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("old.bmp"));
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  EXPECT_EQ(MiddleOf(desk.DestFolderPreview(1).GetPicture()), before);
  ExpectRecovered(2, "b.bmp");
}

TEST_F(UndoOutcomesTest, ADropIntoAFolderThatWasEmpty) {
  Prepare();
  drive.Remove(Folder("F") + "\\old.bmp");
  desk.DestFolderFiles(1).Refresh();
  Drop(2);
  EXPECT_EQ(CountOf(1), "1 pics");
  Undo();
  EXPECT_THAT(In(Folder("F")), IsEmpty());
  EXPECT_EQ(CountOf(1), " Empty");
  EXPECT_FALSE(desk.DestFolderPreview(1).Visible());
  EXPECT_TRUE(desk.DestFolderPreview(1).GetPicture().IsNothing());
  ExpectRecovered(2, "b.bmp");
}

// The preview is that of the last file by name, which need not be the one that was shown before the drop.
TEST_F(UndoOutcomesTest, ThePreviewIsThatOfTheFoldersLastFile) {
  Prepare();
  MakePhoto(Folder("F") + "\\zz.bmp", 0x00112233);
  desk.DestFolderFiles(1).Refresh();
  Drop(2);
  Undo();
  EXPECT_EQ(MiddleOf(desk.DestFolderPreview(1).GetPicture()), 0x00112233U);
}

TEST_F(UndoOutcomesTest, ADropThatWasNamedByEachPolicy) {
  Prepare();
  MakePhoto(Folder("F") + "\\b.bmp", 0x00445566);
  const std::string taken = BytesIn("F", "b.bmp");
  Drop(2);
  EXPECT_TRUE(Has("F", "b1.bmp"));
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("b.bmp", "old.bmp"));
  ExpectRecovered(2, "b.bmp");

  main.preferences.RenameAlwaysOption.SetValue(true);
  Drop(2);
  EXPECT_TRUE(Has("F", "PXR00001.bmp"));
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("b.bmp", "old.bmp"));
  ExpectRecovered(2, "b.bmp");

  main.preferences.RenameAskOption.SetValue(true);
  person.ExpectForm("RenameAskForm", [](Person& hand, Form& form) {
    hand.Fill(Find<TextBox>(form, "AlwaysName"), "Typed");
    hand.Click(Find<CommandButton>(form, "AlwaysNameButton"));
  });
  Drop(2);
  EXPECT_TRUE(Has("F", "Typed.bmp"));
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("b.bmp", "old.bmp"));
  ExpectRecovered(2, "b.bmp");
  EXPECT_EQ(BytesIn("F", "b.bmp"), taken);
  EXPECT_EQ(CountOf(1), "2 pics");
}

TEST_F(UndoOutcomesTest, ADropIntoTheTrashcan) {
  Prepare();
  person.Drag(strip.SrcThumbnail(2), desk.DestFolder(TrashcanSlot));
  EXPECT_EQ(CountOf(TrashcanSlot), "1 pics");
  Undo();
  EXPECT_THAT(In("C:\\Program\\Trashcan"), IsEmpty());
  EXPECT_EQ(CountOf(TrashcanSlot), " Empty");
  ExpectRecovered(2, "b.bmp");
}

TEST_F(UndoOutcomesTest, ADropIntoTheOpenFolder) {
  PrepareOpen();
  Drop(2);
  run.LoadAll();
  EXPECT_THAT(ViewNames(), ElementsAre("old", "b"));
  Undo();
  EXPECT_THAT(ViewNames(), ElementsAre("old"));
  EXPECT_EQ(desk.DestCountLabel.Caption(), "1");
  EXPECT_EQ(CountOf(1), "1 pics");
  run.Wait(0.5);
  EXPECT_THAT(ViewNames(), ElementsAre("old"));
  ExpectRecovered(2, "b.bmp");
}

// The view has not got its thumbnail yet.
TEST_F(UndoOutcomesTest, ADropIntoTheOpenFolderThatIsTakenBackAtOnce) {
  PrepareOpen();
  Drop(2);
  Undo();
  run.Wait(0.5);
  EXPECT_THAT(ViewNames(), ElementsAre("old"));
  EXPECT_THAT(In(Folder("F")), ElementsAre("old.bmp"));
}

TEST_F(UndoOutcomesTest, OfTheWholeStripOnlyTheLastPhoto) {
  PrepareOpen();
  person.Drag(strip.AllButton, desk.DestFolderPreview(1));
  run.LoadAll();
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("a.bmp", "b.bmp", "old.bmp"));
  EXPECT_THAT(ViewNames(), ElementsAre("old", "a", "b"));
  EXPECT_EQ(CountOf(1), "3 pics");
  EXPECT_TRUE(IsMarked(1));
  EXPECT_TRUE(IsMarked(2));
  EXPECT_TRUE(IsMarkedOnDisk(Photo("a.bmp")));
  ExpectRecovered(3, "c.bmp");
}

TEST_F(UndoOutcomesTest, AfterDeleteDuplicateTheFileIsMissingAndTheMarkGoes) {
  PrepareEqual();
  AnswerDuplicateBy("DeleteDuplicateButton");
  Drop(2);
  person.ExpectBox("Pixorra", "File not found");
  Undo();
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
  EXPECT_THAT(In(Folder("F")), ElementsAre("equal.bmp", "old.bmp"));
  EXPECT_THAT(ViewNames(), UnorderedElementsAre("equal", "old"));
  EXPECT_EQ(CountOf(1), "2 pics");
  ExpectRecovered(2, "b.bmp");
}

TEST_F(UndoOutcomesTest, AfterAutoResolveTheFileIsMissingAndTheMarkGoes) {
  PrepareEqual();
  main.preferences.DuplicatesAutoOption.SetValue(true);
  Drop(2);
  person.ExpectBox("Pixorra", "File not found");
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("equal.bmp", "old.bmp"));
  EXPECT_THAT(ViewNames(), UnorderedElementsAre("equal", "old"));
  EXPECT_EQ(CountOf(1), "2 pics");
  ExpectRecovered(2, "b.bmp");
}

TEST_F(UndoOutcomesTest, AfterDeleteOriginalNeitherOfTheTwoStaysInTheFolder) {
  PrepareEqual();
  AnswerDuplicateBy("DeleteOriginalButton");
  Drop(2);
  run.LoadAll();
  EXPECT_THAT(In(Folder("F")), ElementsAre("b.bmp", "old.bmp"));
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("old.bmp"));
  EXPECT_THAT(ViewNames(), ElementsAre("old"));
  EXPECT_EQ(CountOf(1), "1 pics");
  ExpectRecovered(2, "b.bmp");
}

TEST_F(UndoOutcomesTest, AfterIgnoreTheNewOneGoesAndTheOldOneStays) {
  PrepareEqual();
  AnswerDuplicateBy("IgnoreButton");
  Drop(2);
  run.LoadAll();
  EXPECT_THAT(In(Folder("F")), ElementsAre("b.bmp", "equal.bmp", "old.bmp"));
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("equal.bmp", "old.bmp"));
  EXPECT_THAT(ViewNames(), UnorderedElementsAre("equal", "old"));
  EXPECT_EQ(CountOf(1), "2 pics");
  ExpectRecovered(2, "b.bmp");
}

TEST_F(UndoOutcomesTest, AfterAPasteTheFilmStripStaysAsItIs) {
  PrepareOpen();
  Drop(1);
  run.LoadAll();
  person.Click(strip.SrcThumbnail(3));
  run.platform.clipboard.CopyElsewhere(Picture(PlainBitmap(40, 30, 0x00778899)));
  person.ChooseMenu(main.menu.PasteMenuItem);
  run.LoadAll();
  EXPECT_THAT(ViewNames(), ElementsAre("old", "a", "Clipboard"));
  const int place = strip.SrcScrollbar.Value();
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("a.bmp", "old.bmp"));
  EXPECT_THAT(ViewNames(), ElementsAre("old", "a"));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_TRUE(IsMarked(1));
  EXPECT_TRUE(IsMarkedOnDisk(Photo("a.bmp")));
  EXPECT_EQ(SelectedSlot(strip), 3);
  EXPECT_EQ(strip.SrcScrollbar.Value(), place);
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(UndoOutcomesTest, InRemainingThePhotoIsShownAgain) {
  Prepare();
  person.Click(strip.RemainingOption);
  Drop(2);
  EXPECT_FALSE(strip.SrcThumbnail(2).Visible());
  EXPECT_EQ(strip.SrcShownCount, 2);
  Undo();
  EXPECT_TRUE(strip.SrcThumbnail(2).Visible());
  EXPECT_EQ(strip.SrcShownCount, 3);
  EXPECT_EQ(strip.SrcBackground(2).Left(), strip.SrcBackground(1).Left() + SrcFrameWidth);
  ExpectRecovered(2, "b.bmp");
}

}  // namespace
}  // namespace pixorra
