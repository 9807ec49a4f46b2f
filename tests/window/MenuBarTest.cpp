// The menu bar and the pop-up menus, item by item, against a table written by hand.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/headless/HeadlessPlatform.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

struct Line {
  int depth;
  std::string name;
  std::string caption;
  std::string shortcut;
  bool operator==(const Line&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Line& line) {
  return out << std::string(static_cast<std::size_t>(2 * line.depth), ' ') << line.name << " \"" << line.caption
             << "\" " << line.shortcut;
}

void Collect(const MenuItem& item, int depth, std::vector<Line>& lines) {
  // Separators have names of no importance.
  lines.push_back({depth, item.IsSeparator() ? "" : item.Name(), item.Caption(), item.ShortcutText()});
  for (const MenuItem* below : item.Items()) Collect(*below, depth + 1, lines);
}

class MenuBarTest : public ::testing::Test {
 protected:
  std::vector<Line> Lines() const {
    std::vector<Line> lines;
    for (const MenuItem* top : form.Menus()) Collect(*top, 0, lines);
    return lines;
  }

  HeadlessPlatform platform;
  Form form{platform.toolkit, "MainForm"};
  MenuBar menu{form};
};

Line Separator(int depth) {
  return {depth, "", "-", ""};
}

std::vector<Line> FileMenu() {
  return {
      {0, "filemenu", "&File", ""},
      {1, "OpenFilmStripMenuItem", "&Open Film Strip", "Ctrl+O"},
      Separator(1),
      {1, "ShowFolderMenuItem", "&Show Folder", "Ctrl+S"},
      {1, "HideFolderMenuItem", "&Hide Folder", "Ctrl+H"},
      Separator(1),
      {1, "PrintMenuItem", "&Print", ""},
      {2, "PrintSelectedPhotoMenuItem", "&Selected Photo", "F2"},
      {2, "BatchPrintMenuItem", "&Batch Print", ""},
      {3, "BatchPrintFilmStripMenuItem", "&Film Strip", "F3"},
      {3, "BatchPrintOpenFolderMenuItem", "&Open Folder", "F4"},
      {2, "PrintProofsMenuItem", "&Proof Sheet", ""},
      {3, "PrintProofFilmStripMenuItem", "&Film Strip", "F5"},
      {3, "PrintProofOpenFolderMenuItem", "&Open Folder", "F6"},
      {1, "PrinterSetupMenuItem", "Printer Se&tup", "F7"},
      Separator(1),
      {1, "PreferenceMenuItem", "P&references", "Ctrl+R"},
      {1, "CompanyNameMenuItem", "Company &Name", ""},
      {1, "SetCameraLocationMenuItem", "Set Camera &Location", "Ctrl+L"},
      {1, "ChangeBackgroundMenuItem", "Change &Background", "Ctrl+B"},
      Separator(1),
      {1, "ExitMenuItem", "&Exit", "Ctrl+X"},
  };
}

std::vector<Line> PhotoAndFolderMenus() {
  return {
      {0, "SelectedPhotoMenu", "&Selected Photo", ""},
      {1, "CopyMenuItem", "&COPY to Clipboard", "Ctrl+C"},
      Separator(1),
      {1, "SelectedEditMenuItem", "&Edit", "Ctrl+E"},
      {1, "SelectedPrintMenuItem", "&Print", "Ctrl+P"},
      {1, "RenameMenuItem", "&Rename", "Ctrl+N"},
      {1, "DeleteMenuItem", "&Delete", "Del"},
      Separator(1),
      {1, "SelectedViewFullSizeMenuItem", "&View Full Size            Space", ""},
      {0, "OpenFolderMenu", "&Open Folder", ""},
      {1, "DropMenu", "&Drop", ""},
      {2, "UndoMenuItem", "&Undo Last", "Ctrl+Z"},
      {2, "PasteMenuItem", "&PASTE from Clipboard", "Ctrl+V"},
      {1, "RefreshOpenFolderMenuItem", "&Refresh", "Ctrl+F"},
      {1, "SwapOpenFolderMenuItem", "&Swap with Film Strip", "Ctrl+W"},
      {1, "PrintOpenFolderMenuItem", "&Print", ""},
      {2, "PrintOpenFolderIndividualPhotosMenuItem", "as Individual Photos", "Ctrl+T"},
      {2, "PrintOpenFolderProofSheetsMenuItem", "as Proof Sheets", "Ctrl+U"},
      Separator(1),
      {1, "RenameOpenFolderMenuItem", "R&ename", "Ctrl+M"},
      {1, "DeleteOpenFolderMenuItem", "De&lete", "Shift+Del"},
  };
}

std::vector<Line> SlideShowAndHelpMenus() {
  return {
      {0, "SlideShowMenu", "S&lide Show", ""},
      {1, "SlideShowPlayMenuItem", "&Play", ""},
      {2, "SlideShowPlayFilmStripMenuItem", "&Film Strip", "F8"},
      {2, "SlideShowPlayOpenFolderMenuItem", "&Open Folder", "F9"},
      {1, "SlideShowSpeedMenuItem", "&Speed", ""},
      {2, "SlideShowSpeedFastMenuItem", "&Fast", "Ctrl+F1"},
      {2, "SlideShowSpeedMediumMenuItem", "&Medium", "Ctrl+F2"},
      {2, "SlideShowSpeedSlowMenuItem", "&Slow", "Ctrl+F3"},
      {1, "SlideShowTitleCounterMenuItem", "&Title and Counter", "Ctrl+F4"},
      Separator(1),
      {1, "SlideShowScreenSaverMenuItem", "&Use as ScreenSaver", "Ctrl+F5"},
      {0, "HelpMenu", "&Help", ""},
      {1, "TipsMenuItem", "Tips", ""},
      {2, "HelpMenuItem_General", "General", ""},
      {2, "HelpSelectFilmStripMenuItem", "Select a Film Strip", ""},
      {2, "HelpShowFolderMenuItem", "Show a Folder", ""},
      {2, "HelpSetCameraLocationMenuItem", "Set Camera Location", ""},
      {2, "HelpMenuItem_Preferences", "Preferences", ""},
      {2, "HelpMenuItem_Rename", "Renaming", ""},
      {2, "HelpMenuItem_Duplicate", "Duplicates", ""},
      {2, "HelpMenuItem_Delete", "Deleting", ""},
      {2, "HelpMenuItem_Printing", "Printing", ""},
      {2, "HelpMenuItem_SlideShow", "Slide Show", ""},
      {1, "ManualMenuItem", "Manual", ""},
      {1, "ViewReadmeMenuItem", "Read Me", ""},
      {1, "VisitKestreliaMenuItem", "Visit Kestrelia", ""},
      Separator(1),
      {1, "AboutMenuItem", "About", "F1"},
  };
}

std::vector<Line> PopupMenus() {
  return {
      {0, "FolderPopupMenu", "Folder Popup", ""},
      {1, "OpenFolderPopupItem", "Open", ""},
      {1, "RefreshFolderPopupItem", "Refresh", ""},
      {1, "SwapFolderMenuItem", "Swap", ""},
      Separator(1),
      {1, "ShowFolderPopupItem", "Show", ""},
      {1, "HideFolderPopupItem", "Hide", ""},
      Separator(1),
      {1, "RenameFolderPopupItem", "Rename", ""},
      {1, "DeleteFolderPopupItem", "Delete", ""},
      {0, "TrashcanPopupMenu", "Trashcan Popup", ""},
      {1, "OpenTrashcanPopupItem", "Open", ""},
      {1, "RefreshTrashcanPopupItem", "Refresh", ""},
      {1, "SwapTrashcanMenuItem", "Swap", ""},
      Separator(1),
      {1, "EmptyTrashcanPopupItem", "Empty", ""},
      {0, "PrintPopupMenu", "Print Popup", ""},
      {1, "SelectedPhotoPrintPopupMenuItem", "Print Selected Photo", ""},
      {1, "FilmStripPrintPopupMenuItem", "Print Film Strip", ""},
      {2, "IndividualsFilmStripPrintPopupMenuItem", "as Individual Photos", ""},
      {2, "ProofsFilmStripPrintPopupMenuItem", "as Proof Sheets", ""},
      {1, "OpenFolderPrintPopupMenuItem", "Print Open Folder", ""},
      {2, "IndividualsOpenFolderPrintPopupMenuItem", "as Individual Photos", ""},
      {2, "ProofsOpenFolderPrintPopupMenuItem", "as Proof Sheets", ""},
  };
}

TEST_F(MenuBarTest, CaptionsOrderNestingAndShortcutsAreTheTables) {
  std::vector<Line> wanted;
  for (const auto& menus : {FileMenu(), PhotoAndFolderMenus(), SlideShowAndHelpMenus(), PopupMenus()}) {
    wanted.insert(wanted.end(), menus.begin(), menus.end());
  }
  const std::vector<Line> lines = Lines();
  for (std::size_t i = 0; i < std::min(lines.size(), wanted.size()); ++i)
    EXPECT_EQ(lines[i], wanted[i]) << "line " << i;
  EXPECT_EQ(lines.size(), wanted.size());
}

TEST_F(MenuBarTest, NoTwoItemsShareAShortcut) {
  std::vector<std::string> shortcuts;
  for (const Line& line : Lines()) {
    if (!line.shortcut.empty()) shortcuts.push_back(line.shortcut);
  }
  EXPECT_EQ(shortcuts.size(), 34U);
  std::sort(shortcuts.begin(), shortcuts.end());
  EXPECT_EQ(std::adjacent_find(shortcuts.begin(), shortcuts.end()), shortcuts.end());
}

TEST_F(MenuBarTest, PopUpMenusAreHiddenInTheBarAndTheOthersSeen) {
  for (const MenuItem* top : form.Menus()) {
    const bool popup = top == &menu.FolderPopupMenu || top == &menu.TrashcanPopupMenu || top == &menu.PrintPopupMenu;
    EXPECT_EQ(top->Visible(), !popup) << top->Name();
  }
}

TEST_F(MenuBarTest, TheSlideShowStartsAtMediumWithTitleAndCounter) {
  EXPECT_FALSE(menu.SlideShowSpeedFastMenuItem.Checked());
  EXPECT_TRUE(menu.SlideShowSpeedMediumMenuItem.Checked());
  EXPECT_FALSE(menu.SlideShowSpeedSlowMenuItem.Checked());
  EXPECT_TRUE(menu.SlideShowTitleCounterMenuItem.Checked());
}

void CollectItems(const MenuItem& item, std::vector<const MenuItem*>& items) {
  if (item.Items().empty() && !item.IsSeparator()) items.push_back(&item);
  for (const MenuItem* below : item.Items()) CollectItems(*below, items);
}

TEST_F(MenuBarTest, AnItemCanBeChosenOnceItIsConnected) {
  std::vector<const MenuItem*> items;
  for (const MenuItem* top : form.Menus()) CollectItems(*top, items);
  EXPECT_EQ(items.size(), 65U);
  for (const MenuItem* item : items) EXPECT_FALSE(item->Enabled()) << item->Name();
  int runs = 0;
  Connect(menu.AboutMenuItem, [&runs] { ++runs; });
  EXPECT_TRUE(menu.AboutMenuItem.CanBeChosen());
  menu.AboutMenuItem.UserClicked();
  EXPECT_EQ(runs, 1);
}

TEST_F(MenuBarTest, MenusAndSeparatorsAreEnabledFromTheStart) {
  for (const MenuItem* top : form.Menus()) EXPECT_TRUE(top->Enabled()) << top->Name();
  EXPECT_TRUE(menu.DropMenu.Enabled());
  EXPECT_TRUE(menu.Separator1.Enabled());
}

}  // namespace
}  // namespace pixorra
