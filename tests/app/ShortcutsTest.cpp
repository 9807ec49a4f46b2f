// The menu shortcuts: each runs its item, and only while that can be chosen.
#include <gtest/gtest.h>
#include <vector>

#include "desktop/OpenFolder.h"
#include "tests/desktop/DesktopTest.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

struct Shortcut {
  MenuItem& Item;
  int Key;
  int Shift;
};

std::vector<Shortcut> Shortcuts(MenuBar& menu) {
  constexpr int F1 = key::F1;
  constexpr int Ctrl = shift::Ctrl;
  return {
      {menu.OpenFilmStripMenuItem, 'O', Ctrl},
      {menu.ShowFolderMenuItem, 'S', Ctrl},
      {menu.HideFolderMenuItem, 'H', Ctrl},
      {menu.PrintSelectedPhotoMenuItem, F1 + 1, 0},
      {menu.BatchPrintFilmStripMenuItem, F1 + 2, 0},
      {menu.BatchPrintOpenFolderMenuItem, F1 + 3, 0},
      {menu.PrintProofFilmStripMenuItem, F1 + 4, 0},
      {menu.PrintProofOpenFolderMenuItem, F1 + 5, 0},
      {menu.PrinterSetupMenuItem, F1 + 6, 0},
      {menu.PreferenceMenuItem, 'R', Ctrl},
      {menu.SetCameraLocationMenuItem, 'L', Ctrl},
      {menu.ChangeBackgroundMenuItem, 'B', Ctrl},
      {menu.ExitMenuItem, 'X', Ctrl},
      {menu.CopyMenuItem, 'C', Ctrl},
      {menu.SelectedEditMenuItem, 'E', Ctrl},
      {menu.SelectedPrintMenuItem, 'P', Ctrl},
      {menu.RenameMenuItem, 'N', Ctrl},
      {menu.DeleteMenuItem, key::Delete, 0},
      {menu.UndoMenuItem, 'Z', Ctrl},
      {menu.PasteMenuItem, 'V', Ctrl},
      {menu.RefreshOpenFolderMenuItem, 'F', Ctrl},
      {menu.SwapOpenFolderMenuItem, 'W', Ctrl},
      {menu.PrintOpenFolderIndividualPhotosMenuItem, 'T', Ctrl},
      {menu.PrintOpenFolderProofSheetsMenuItem, 'U', Ctrl},
      {menu.RenameOpenFolderMenuItem, 'M', Ctrl},
      {menu.DeleteOpenFolderMenuItem, key::Delete, shift::Shift},
      {menu.SlideShowPlayFilmStripMenuItem, F1 + 7, 0},
      {menu.SlideShowPlayOpenFolderMenuItem, F1 + 8, 0},
      {menu.SlideShowSpeedFastMenuItem, F1, Ctrl},
      {menu.SlideShowSpeedMediumMenuItem, F1 + 1, Ctrl},
      {menu.SlideShowSpeedSlowMenuItem, F1 + 2, Ctrl},
      {menu.SlideShowTitleCounterMenuItem, F1 + 3, Ctrl},
      {menu.SlideShowScreenSaverMenuItem, F1 + 4, Ctrl},
      {menu.AboutMenuItem, F1, 0},
  };
}

class ShortcutsTest : public DesktopTest {};

TEST_F(ShortcutsTest, EachRunsItsItemAndOnlyWhileThatIsEnabled) {
  for (const Shortcut& shortcut : Shortcuts(main.menu)) {
    int runs = 0;
    shortcut.Item.On().Click = [&runs](Control&) { ++runs; };
    // The menus above would settle by themselves what can be chosen.
    for (MenuItem* menu = shortcut.Item.Parent(); menu != nullptr; menu = menu->Parent()) menu->On().Click = nullptr;
    shortcut.Item.SetEnabled(false);
    person.Key(shortcut.Key, shortcut.Shift);
    EXPECT_EQ(runs, 0) << shortcut.Item.Name();
    shortcut.Item.SetEnabled(true);
    person.Key(shortcut.Key, shortcut.Shift);
    EXPECT_EQ(runs, 1) << shortcut.Item.Name();
    shortcut.Item.On().Click = nullptr;
  }
}

TEST_F(ShortcutsTest, AnItemThatHasNoOperationYetIsGrey) {
  for (const Shortcut& shortcut : Shortcuts(main.menu)) {
    EXPECT_EQ(shortcut.Item.Enabled(), static_cast<bool>(shortcut.Item.On().Click)) << shortcut.Item.Name();
  }
}

TEST_F(ShortcutsTest, AnItemThatWasGreyWhenItsMenuWasLastOpenIsLookedAtAnew) {
  person.ChooseMenu(main.menu.RefreshOpenFolderMenuItem);  // no folder is open: renaming is grey
  ASSERT_FALSE(main.menu.RenameOpenFolderMenuItem.Enabled());
  const int slot = ShowAndOpen(MakePhotos("A", 1));
  person.Key('M', shift::Ctrl);
  EXPECT_EQ(desk.FolderRenameBox.Tag(), std::to_string(slot));
  person.Key(key::Escape);
  // And the other way round: the Trashcan has no name to change.
  Select_a_Folder(main, TrashcanSlot);
  person.Key('M', shift::Ctrl);
  EXPECT_FALSE(main.menu.RenameOpenFolderMenuItem.Enabled());
}

}  // namespace
}  // namespace pixorra
