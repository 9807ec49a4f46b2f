// The window without a mouse: Tab from control to control, Return in place of a click, menus of folders, paging.
#include <gtest/gtest.h>
#include <vector>

#include "desktop/FolderSlots.h"
#include "tests/filmstrip/StripTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

class KeyStopsTest : public StripTest {
 protected:
  KeyStopsTest() {
    for (const char* folder : {"C:\\Home\\A", "C:\\Home\\B"})
      drive.Write(std::string(folder) + "\\x.bmp", BmpPhoto(80, 60));
    WritePhotos(12);
  }
  ProgramRun& WithFolders() {
    ProgramRun& run = LoadedStrip({"C:\\Home\\A", "C:\\Home\\B"});
    run.person.Click(run.main.strip.AllOption);
    run.host.toolkit.SetFocus(nullptr);
    return run;
  }
  static std::string FocusOf(const ProgramRun& run) {
    const Control* focus = run.host.toolkit.Focus();
    if (focus == nullptr) return "";
    return focus->Name() + (focus->Index() != 0 ? " " + std::to_string(focus->Index()) : "");
  }
  static void TabTo(ProgramRun& run, const std::string& stop) {
    for (int i = 0; i < 30 && FocusOf(run) != stop; ++i) run.person.Key(key::Tab);
    ASSERT_EQ(FocusOf(run), stop);
  }
};

TEST_F(KeyStopsTest, TabGoesThroughTheWindowFromTopToBottomAndRoundAgain) {
  ProgramRun& run = WithFolders();
  std::vector<std::string> way;
  do {
    run.person.Key(key::Tab);
    way.push_back(FocusOf(run));
  } while (way.size() < 40 && (way.size() == 1 || way.back() != way.front()));
  EXPECT_EQ(way, (std::vector<std::string>{"SrcScrollbar", "CameraButton", "BrowseButton", "SwapButton", "DeleteButton",
                                           "UndoButton", "PrintButton", "AllOption", "RemainingOption",
                                           "AutoScrollOption", "DestFolder 1", "DestFolder 2", "ShowFolder",
                                           "HideFolder", "DestFolder 9", "DestScrollbar", "SrcScrollbar"}));
  run.person.Key(key::Tab, shift::Shift);
  EXPECT_EQ(FocusOf(run), "DestScrollbar");
}

TEST_F(KeyStopsTest, ReturnOpensAndClosesTheFolderThatHasTheFocus) {
  ProgramRun& run = WithFolders();
  const int open = run.main.desk.OpenFolderIndex;
  const int other = open == 1 ? 2 : 1;
  TabTo(run, "DestFolder " + std::to_string(other));
  run.person.Key(key::Return);
  EXPECT_EQ(run.main.desk.OpenFolderIndex, other);
  EXPECT_EQ(FocusOf(run), "DestFolder " + std::to_string(other));
  run.person.Key(key::Return);
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 0);
  TabTo(run, "DestFolder 9");
  run.person.Key(key::Return);
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 9);
}

TEST_F(KeyStopsTest, ReturnPressesAButtonOfTheRow) {
  ProgramRun& run = WithFolders();
  TabTo(run, "SwapButton");
  run.person.Key(key::Return);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Home\\B");
  EXPECT_EQ(run.main.strip.SwapButton.BorderStyle(), 0);
  TabTo(run, "BrowseButton");
  run.person.Key(key::Return);
  EXPECT_NE(run.person.Window("BrowseFolderLocationForm"), nullptr);
}

TEST_F(KeyStopsTest, OnThePrintButtonReturnPrintsAndShiftF10IsItsMenu) {
  ProgramRun& run = WithFolders();
  TabTo(run, "PrintButton");
  run.person.ExpectBox("Can't Print Photo", "No Photo Selected");
  run.person.Key(key::Return);
  EXPECT_EQ(run.main.strip.PrintButton.BorderStyle(), 0);
  EXPECT_EQ(FocusOf(run), "PrintButton");
  run.person.ExpectMenu(run.main.menu.PrintPopupMenu, &run.main.menu.SelectedPhotoPrintPopupMenuItem);
  run.person.ExpectBox("Can't Print Photo", "No Photo Selected");
  run.person.Key(key::F1 + 9, shift::Shift);
}

TEST_F(KeyStopsTest, ReturnChoosesAViewOfTheStrip) {
  ProgramRun& run = WithFolders();
  TabTo(run, "RemainingOption");
  run.person.Key(key::Return);
  EXPECT_TRUE(run.main.strip.RemainingOption.Value());
}

TEST_F(KeyStopsTest, ReturnOnABarTakesTheSelectionToItsPhotos) {
  ProgramRun& run = WithFolders();
  run.person.Key(key::Right);
  run.person.Key(key::Right);
  TabTo(run, "DestScrollbar");
  run.person.Key(key::Return);
  EXPECT_TRUE(run.main.desk.DestThumbFrame.Visible());
  EXPECT_FALSE(run.main.strip.SrcThumbFrame.Visible());
  EXPECT_EQ(SelectedCell(run.main.desk), 1);
  TabTo(run, "SrcScrollbar");
  run.person.Key(key::Return);
  EXPECT_TRUE(run.main.strip.SrcThumbFrame.Visible());
  EXPECT_EQ(SelectedSlot(run.main.strip), 2) << "the photo that was selected there last";
}

TEST_F(KeyStopsTest, TheMenuOfTheFolderThatHasTheFocusComesUpByKey) {
  ProgramRun& run = WithFolders();
  TabTo(run, "DestFolder 1");
  run.person.ExpectMenu(run.main.menu.FolderPopupMenu, &run.main.menu.HideFolderPopupItem);
  run.person.Key(key::F1 + 9, shift::Shift);
  EXPECT_FALSE(IsSlotInUse(run.main.desk, 1));
  TabTo(run, "DestFolder 9");
  run.person.ExpectMenu(run.main.menu.TrashcanPopupMenu, nullptr);
  run.person.Key(key::F1 + 9, shift::Shift);
}

TEST_F(KeyStopsTest, WithTheFocusElsewhereItIsTheMenuOfTheOpenFolder) {
  ProgramRun& run = WithFolders();
  run.person.ExpectMenu(run.main.menu.FolderPopupMenu, &run.main.menu.OpenFolderPopupItem);
  run.person.Key(key::F1 + 9, shift::Shift);
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 0);
  const int beeps = run.platform.dialogs.Beeps();
  run.person.Key(key::F1 + 9, shift::Shift);
  EXPECT_EQ(run.platform.dialogs.Beeps(), beeps + 1);
}

TEST_F(KeyStopsTest, ThePagingKeysScrollTheStripByWholeFrames) {
  ProgramRun& run = WithFolders();
  const ScrollBar& bar = run.main.strip.SrcScrollbar;
  run.person.Key(key::PageDown);
  EXPECT_EQ(OnScreen(run, 6), 1) << "485 pixels, to the bar's unit";
  run.person.Key(key::PageUp);
  EXPECT_EQ(bar.Value(), 0);
  run.person.Key(key::End);
  EXPECT_EQ(bar.Value(), bar.Max());
  run.person.Key(key::Home);
  EXPECT_EQ(bar.Value(), bar.Min());
  EXPECT_FALSE(run.main.strip.SrcThumbFrame.Visible()) << "nothing is selected by that";
}

TEST_F(KeyStopsTest, ThePagingKeysGoOnScrollingTheViewWhoseBarHasTheFocus) {
  for (int i = 0; i < 60; ++i) drive.Write("C:\\Home\\A\\y" + std::to_string(i) + ".bmp", BmpPhoto(80, 60));
  ProgramRun& run = WithFolders();
  TabTo(run, "DestFolder 1");
  if (run.main.desk.OpenFolderIndex != 1) run.person.Key(key::Return);
  run.LoadAll();
  TabTo(run, "DestScrollbar");
  const ScrollBar& bar = run.main.desk.DestScrollbar;
  int before = bar.Value();
  for (int i = 0; i < 2; ++i) {
    run.person.Key(key::PageDown);
    EXPECT_GT(bar.Value(), before);
    EXPECT_EQ(FocusOf(run), "DestScrollbar");
    before = bar.Value();
  }
  EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), 0);
  TabTo(run, "SrcScrollbar");
  run.person.Key(key::PageDown);
  EXPECT_EQ(FocusOf(run), "SrcScrollbar");
}

TEST_F(KeyStopsTest, AMouseClickTakesTheFocusOffAFolder) {
  ProgramRun& run = WithFolders();
  TabTo(run, "DestFolder 1");
  run.person.Click(run.main.strip.SrcBackground(2));
  EXPECT_EQ(FocusOf(run), "");
}

}  // namespace
}  // namespace pixorra
