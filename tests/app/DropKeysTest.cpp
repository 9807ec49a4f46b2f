// Dropping by key: a digit drops the selected photo into the folder of that number, and is a drag in all but the hand.
#include <gtest/gtest.h>

#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "tests/drop/DropTest.h"
#include "window/DropState.h"

namespace pixorra {
namespace {

class DropKeysTest : public DropTest {
 protected:
  int Beeps() const { return run.platform.dialogs.Beeps(); }
};

TEST_F(DropKeysTest, ADigitDropsTheSelectedPhotoIntoTheFolderOfThatNumber) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("One");
  Show("Two");
  person.Click(strip.SrcThumbnail(2));
  person.Key('2');
  EXPECT_TRUE(Has("Two", "b.bmp"));
  EXPECT_FALSE(Has("One", "b.bmp"));
  EXPECT_TRUE(IsMarked(2));
  EXPECT_EQ(CountOf(2), "1 pics");
  EXPECT_TRUE(desk.DestFolderPreview(2).Visible());
  EXPECT_EQ(main.drop.LastDropFile, Folder("Two") + "\\b.bmp");
  EXPECT_EQ(main.drop.LastDropFolder, 2);
  EXPECT_EQ(main.drop.LastDropSrcIndex, 2);
  EXPECT_EQ(Beeps(), 0);
}

TEST_F(DropKeysTest, NineDropsIntoTheTrashcan) {
  LoadStrip({"a.bmp"});
  person.Click(strip.SrcThumbnail(1));
  person.Key('9');
  EXPECT_TRUE(drive.Exists("C:\\Program\\Trashcan\\a.bmp"));
  EXPECT_EQ(CountOf(9), "1 pics");
  EXPECT_TRUE(IsMarked(1));
}

TEST_F(DropKeysTest, ItLeavesTheSameAsADrag) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("Drag");
  Show("Key");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  person.Click(strip.SrcThumbnail(1));
  person.Key('2');
  EXPECT_EQ(BytesIn("Drag", "a.bmp"), BytesIn("Key", "a.bmp"));
  EXPECT_EQ(CountOf(1), CountOf(2));
  EXPECT_EQ(desk.DestFolderPreview(1).Visible(), desk.DestFolderPreview(2).Visible());
  // A second time by either is a second copy.
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  person.Click(strip.SrcThumbnail(1));
  person.Key('2');
  EXPECT_TRUE(Has("Drag", "a1.bmp"));
  EXPECT_TRUE(Has("Key", "a1.bmp"));
}

TEST_F(DropKeysTest, ItBeepsWhereNothingIsSelectedOrTheNumberHasNoFolder) {
  LoadStrip({"a.bmp"});
  Show("One");
  person.Key('1');
  EXPECT_EQ(Beeps(), 1) << "nothing is selected";
  person.Click(strip.SrcThumbnail(1));
  person.Key('2');
  EXPECT_EQ(Beeps(), 2) << "no second folder";
  EXPECT_FALSE(IsMarked(1));
  // A photo of the open folder is not one of the strip.
  drive.Write(Folder("One") + "\\own.bmp", BmpOf(PlainBitmap(80, 60, 7)));
  Select_a_Folder(main, 1);
  desk.DestFolderFiles(1).Refresh();
  desk.DestFileList.Refresh();
  run.Wait(0.2);
  person.Click(desk.DestThumbnail(1));
  person.Key('9');
  EXPECT_EQ(Beeps(), 3);
  EXPECT_EQ(CountOf(9), " Empty");
}

TEST_F(DropKeysTest, ADigitWithCtrlOrAltDropsNothing) {
  LoadStrip({"a.bmp"});
  Show("One");
  person.Click(strip.SrcThumbnail(1));
  person.Key('1', shift::Ctrl);
  person.Key('1', shift::Alt);
  EXPECT_FALSE(IsMarked(1));
  person.Key('1', shift::Shift);
  EXPECT_TRUE(IsMarked(1)) << "keyboards are there that make their digits so";
}

TEST_F(DropKeysTest, ADropThatFailsSaysSoAsForADrag) {
  LoadStrip({"a.bmp"});
  Show("One");
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, "One");
  person.Click(strip.SrcThumbnail(1));
  person.ExpectBox(CopyFailed, "This folder cannot be written to.");
  person.Key('1');
  EXPECT_FALSE(IsMarked(1));
}

TEST_F(DropKeysTest, WhileTheNameIsAskedForASecondDigitDoesNothing) {
  LoadStrip({"a.bmp"});
  Show("One");
  drive.Write(Folder("One") + "\\a.bmp", "taken");
  main.preferences.RenameAskOption.SetValue(true);
  person.Click(strip.SrcThumbnail(1));
  person.ExpectForm("RenameAskForm", [&](Person& hand, Form& form) {
    EXPECT_TRUE(run.host.toolkit.KeyPressed(main.Window, '9', 0));
    // After the answer the drop waits for a moment, in which events run.
    hand.During([&] { return run.host.toolkit.TakesInput(main.Window); }, [&] { person.Key('9'); });
    hand.Click(Find<CommandButton>(form, "UniqueNameButton"));
  });
  person.Key('1');
  EXPECT_TRUE(Has("One", "a1.bmp"));
  EXPECT_EQ(CountOf(9), " Empty");
}

TEST_F(DropKeysTest, TheFoldersSayWhichKeyDropsThere) {
  Show("One");
  EXPECT_EQ(person.ToolTip(desk.DestFolder(1)), "Press 1 to drop the selected photo here");
  EXPECT_EQ(desk.DestFolderPreview(8).ToolTipText(), "Press 8 to drop the selected photo here");
  EXPECT_EQ(person.ToolTip(desk.DestFolder(9)), "Trashcan\nPress 9 to drop the selected photo here");
  EXPECT_EQ(desk.DestFolderName(1).ToolTipText(), Folder("One"));
}

TEST_F(DropKeysTest, InsertMarksTheSelectedPhotoAndTakesTheMarkAway) {
  LoadStrip({"a.bmp", "b.bmp"});
  person.Key(key::Insert);
  EXPECT_EQ(Beeps(), 1);
  person.Click(strip.SrcThumbnail(2));
  person.Key(key::Insert);
  EXPECT_TRUE(IsMarked(2));
  EXPECT_FALSE(IsMarked(1));
  person.Key(key::Insert);
  EXPECT_FALSE(IsMarked(2));
}

}  // namespace
}  // namespace pixorra
