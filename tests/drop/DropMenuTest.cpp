// Which items of the menu of drops can be chosen, in each state.
#include <gtest/gtest.h>

#include "tests/drop/UndoTest.h"

namespace pixorra {
namespace {

class DropMenuTest : public UndoTest {
 protected:
  // As the menu shows them when it opens.
  bool CanUndo() { return Opened(main.menu.UndoMenuItem); }
  bool CanPaste() { return Opened(main.menu.PasteMenuItem); }
  void PutPicture() { run.platform.clipboard.CopyElsewhere(Picture(PlainBitmap(4, 3, 0))); }

 private:
  bool Opened(const MenuItem& item) {
    main.menu.OpenFolderMenu.UserClicked();
    main.menu.DropMenu.UserClicked();
    return item.CanBeChosen();
  }
};

TEST_F(DropMenuTest, UndoCanBeChosenFromADropUntilItsUndo) {
  Prepare();
  EXPECT_FALSE(CanUndo());
  Drop(2);
  EXPECT_TRUE(CanUndo());
  Undo();
  EXPECT_FALSE(CanUndo());
}

TEST_F(DropMenuTest, PasteCanBeChosenWithAnOpenFolderAndAPicture) {
  Prepare();
  EXPECT_FALSE(CanPaste());
  PutPicture();
  EXPECT_FALSE(CanPaste()) << "no folder is open";
  Select_a_Folder(main, 1);
  EXPECT_TRUE(CanPaste());
  run.platform.clipboard.Clear();
  EXPECT_FALSE(CanPaste()) << "there is no picture";
  PutPicture();
  Select_a_Folder(main, TrashcanSlot);
  EXPECT_TRUE(CanPaste());
}

// The menu was opened when there was nothing to be done, and not since.
TEST_F(DropMenuTest, TheShortcutsActByWhatCanBeDoneAtTheKey) {
  Prepare();
  EXPECT_FALSE(CanUndo());
  EXPECT_FALSE(CanPaste());
  Select_a_Folder(main, 1);
  PutPicture();
  person.Key('V', shift::Ctrl);
  EXPECT_TRUE(Has("F", "Clipboard.jpg"));
  person.Key('Z', shift::Ctrl);
  EXPECT_FALSE(Has("F", "Clipboard.jpg"));
}

// The program that has put something there is asked for what it is, and may take its time.
TEST_F(DropMenuTest, TheShortcutOfUndoDoesNotAskForTheClipboard) {
  Prepare();
  Select_a_Folder(main, 1);
  Drop(2);
  const int asked = run.platform.clipboard.Asked();
  person.Key('Z', shift::Ctrl);
  EXPECT_FALSE(CanUndo());
  EXPECT_EQ(run.platform.clipboard.Asked(), asked + 1) << "by the menu that was opened afterwards";
}

}  // namespace
}  // namespace pixorra
