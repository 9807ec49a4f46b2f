// The keyboard of the main window: arrows that move the selection, keys that drop, and what a key must not reach.
#include <gtest/gtest.h>

#include "app/Keys.h"
#include "desktop/FolderRename.h"
#include "desktop/FolderSlots.h"
#include "tests/filmstrip/StripTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

const std::string Family = "C:\\Home\\Family";

// A strip at the smallest window: 488 pixels, five frames.
class MainKeysTest : public StripTest {
 protected:
  ProgramRun& WithPhotos(int count) {
    WriteEmpty(count);
    return LoadedStrip();
  }
  // A strip of three photos and one folder, closed, all of them shown.
  ProgramRun& WithFolder() {
    drive.MakeFolder(Family);
    WritePhotos(3);
    ProgramRun& run = LoadedStrip({Family});
    run.person.Click(run.main.strip.AllOption);
    run.main.preferences.RenameExistsOption.SetValue(true);
    run.main.preferences.DuplicatesAllowOption.SetValue(true);
    return run;
  }
  static int Beeps(const ProgramRun& run) { return run.platform.dialogs.Beeps(); }
  // 0 while none is.
  static int Selected(const ProgramRun& run) {
    return run.main.strip.SrcThumbFrame.Visible() ? SelectedSlot(run.main.strip) : 0;
  }
  static void PressTimes(ProgramRun& run, int keyCode, int times) {
    for (int i = 0; i < times; ++i) run.person.Key(keyCode);
  }
};

TEST_F(MainKeysTest, WithNothingSelectedLeftAndRightSelectTheFirstPhoto) {
  for (const int keyCode : {key::Right, key::Left}) {
    ProgramRun& run = WithPhotos(3);
    run.person.Key(keyCode);
    EXPECT_EQ(Selected(run), 1);
    EXPECT_EQ(run.main.strip.SrcScrollbar.Value(), run.main.strip.SrcScrollbar.LargeChange());
    EXPECT_EQ(Beeps(run), 1) << "the photo is no picture";
  }
}

TEST_F(MainKeysTest, AnArrowSelectsAsAClickDoes) {
  WritePhotos(3);
  ProgramRun& run = LoadedStrip();
  run.main.preview.bPicEdited = true;
  run.person.Key(key::Right);
  run.person.Key(key::Right);
  EXPECT_EQ(SelectedPhoto(run.main.preview), PathOf(NumberedName(2)));
  EXPECT_FALSE(run.main.preview.bPicEdited);
  EXPECT_EQ(run.main.strip.SrcThumbFrame.Left(), run.main.strip.SrcThumbnail(2).Left());
  EXPECT_EQ(run.main.strip.SrcThumbFrame.Tag(), "2");
}

TEST_F(MainKeysTest, AtEitherEndOfTheStripAnArrowBeepsAndMovesNothing) {
  WritePhotos(2);
  ProgramRun& run = LoadedStrip();
  PressTimes(run, key::Right, 2);
  EXPECT_EQ(Beeps(run), 0);
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 2);
  EXPECT_EQ(Beeps(run), 1);
  run.person.Key(key::Left);
  run.person.Key(key::Left);
  EXPECT_EQ(Selected(run), 1);
  EXPECT_EQ(Beeps(run), 2);
}

TEST_F(MainKeysTest, OnAnEmptyStripAnArrowBeepsAndSelectsNothing) {
  ProgramRun& run = StartedOnStrip();
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 0);
  EXPECT_EQ(Beeps(run), 1);
}

TEST_F(MainKeysTest, WhatIsNotShownIsPassedOver) {
  WritePhotos(6);
  ProgramRun& run = LoadedStrip();
  run.person.Click(run.main.strip.RemainingOption);
  for (const int slot : {1, 3}) run.person.DoubleClick(run.main.strip.SrcBackground(slot));
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 2);
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 4);
  // Four are shown: slots 5 and 6 lie beyond that number.
  PressTimes(run, key::Right, 2);
  EXPECT_EQ(Selected(run), 6);
  EXPECT_EQ(Beeps(run), 0);
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 6);
  EXPECT_EQ(Beeps(run), 1);
  PressTimes(run, key::Left, 2);
  EXPECT_EQ(Selected(run), 4);
  run.person.Key(key::Left);
  run.person.Key(key::Left);
  EXPECT_EQ(Selected(run), 2) << "nothing is shown before it";
  EXPECT_EQ(Beeps(run), 1);
}

TEST_F(MainKeysTest, OfThePhotosThatRemainTheFirstOneIsSelectedWhereverItIs) {
  WritePhotos(6);
  ProgramRun& run = LoadedStrip();
  run.person.Click(run.main.strip.RemainingOption);
  for (int slot = 1; slot <= 4; ++slot) run.person.DoubleClick(run.main.strip.SrcBackground(slot));
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 5);
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 6);
  EXPECT_EQ(Beeps(run), 0);
  run.person.DoubleClick(run.main.strip.SrcBackground(6));
  run.person.Key(key::Left);
  EXPECT_EQ(Selected(run), 5);
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 5) << "the last one that is shown";
  EXPECT_EQ(Beeps(run), 1);
}

TEST_F(MainKeysTest, ASelectionThatLeavesTheWindowTakesTheStripAlong) {
  ProgramRun& run = WithPhotos(20);
  const ScrollBar& bar = run.main.strip.SrcScrollbar;
  PressTimes(run, key::Right, 5);
  EXPECT_EQ(bar.Value(), 1);
  run.person.Key(key::Right);
  EXPECT_EQ(bar.Value(), 196);  // (2 x 1 + 97) / 2 is 50, (2 x 50 + 291) / 2 is 196
  EXPECT_TRUE(IsInView(run, 6));
  run.person.Key(key::Left);
  EXPECT_EQ(bar.Value(), 2);  // (2 x 196 - 97) / 2 is 148, (2 x 148 - 291) / 2 is 2
  PressTimes(run, key::Left, 4);
  EXPECT_EQ(Selected(run), 1);
  EXPECT_EQ(bar.Value(), 1);
}

TEST_F(MainKeysTest, FromEndToEndOfSeveralPagesTheSelectionStaysInView) {
  ProgramRun& run = WithPhotos(120);
  for (int slot = 1; slot <= 120; ++slot) {
    run.person.Key(key::Right);
    ASSERT_EQ(Selected(run), slot);
    ASSERT_GE(OnScreen(run, slot), -2);
    ASSERT_LE(OnScreen(run, slot) + 97, run.main.strip.SrcThumbsWindow.Width());
  }
  for (int slot = 119; slot >= 1; --slot) {
    run.person.Key(key::Left);
    ASSERT_EQ(Selected(run), slot);
    ASSERT_GE(OnScreen(run, slot), -4);
    ASSERT_LE(OnScreen(run, slot) + 97, run.main.strip.SrcThumbsWindow.Width());
  }
}

TEST_F(MainKeysTest, AtTheBarsLargerUnitsTheSelectionStaysInView) {
  ProgramRun& run = WithPhotos(900);
  FilmStripState& strip = run.main.strip;
  ASSERT_GT(strip.SrcBarScale.Unit, 2);
  run.person.MoveBar(strip.SrcScrollbar, strip.SrcScrollbar.Max());
  run.person.Click(strip.SrcThumbnail(898));
  for (int slot = 897; slot >= 840; --slot) {
    const double before = ScrolledPixels(strip.SrcScrollbar, strip.SrcBarScale);
    run.person.Key(key::Left);
    ASSERT_EQ(Selected(run), slot);
    ASSERT_LE(before - ScrolledPixels(strip.SrcScrollbar, strip.SrcBarScale), 4 * 97 + strip.SrcBarScale.Unit);
    ASSERT_GE(OnScreen(run, slot), -strip.SrcBarScale.Unit);
    ASSERT_LE(OnScreen(run, slot) + 97, strip.SrcThumbsWindow.Width());
  }
  for (int slot = 841; slot <= 900; ++slot) {
    run.person.Key(key::Right);
    ASSERT_EQ(Selected(run), slot);
    ASSERT_GE(OnScreen(run, slot), -strip.SrcBarScale.Unit);
    ASSERT_LE(OnScreen(run, slot) + 97, strip.SrcThumbsWindow.Width());
  }
}

TEST_F(MainKeysTest, ASelectionThatWasScrolledFarAwayComesBackIntoView) {
  ProgramRun& run = WithPhotos(60);
  run.person.Key(key::Right);
  run.person.MoveBar(run.main.strip.SrcScrollbar, run.main.strip.SrcScrollbar.Max());
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 2);
  EXPECT_TRUE(IsInView(run, 2));
}

TEST_F(MainKeysTest, SpaceIsARightPressOnThePane) {
  ProgramRun& run = WithPhotos(1);
  int button = 0;
  run.main.preview.PicPreview.On().MouseDown = [&](Control&, const MouseArgs& mouse) { button = mouse.Button; };
  run.person.Key(key::Space);
  EXPECT_EQ(button, button::Right);
  int code = key::Space;
  Form_KeyDown(run.main, code, shift::None);
  EXPECT_EQ(code, 0);
}

TEST_F(MainKeysTest, WhileAFoldersNameIsTypedNoKeyActsOnThePhotos) {
  ProgramRun& run = WithFolder();
  run.person.Key(key::Right);
  int presses = 0;
  RenameFolderStart(run.main, 1);
  run.main.preview.PicPreview.On().MouseDown = [&](Control&, const MouseArgs&) { ++presses; };
  run.person.Key(key::Right);
  run.person.Type("My 1 9");
  EXPECT_EQ(Selected(run), 1);
  EXPECT_EQ(presses, 0);
  EXPECT_EQ(run.main.desk.FolderRenameBox.Text(), "My 1 9");
  run.person.Key(key::Return);
  EXPECT_TRUE(drive.Exists("C:\\Home\\My 1 9"));
  // The box is closed, and holds the text of its last use.
  run.person.Key(key::Right);
  EXPECT_EQ(Selected(run), 2);
}

TEST_F(MainKeysTest, WhileAFoldersNameIsTypedNoShortcutRuns) {
  ProgramRun& run = WithFolder();
  RenameFolderStart(run.main, 1);
  run.person.Type("Ab");
  for (const int keyCode : {'H', 'S', 'R', 'M', 'A', 'X', 'W', 'O'}) run.person.Key(keyCode, shift::Ctrl);
  run.person.Key(key::F1);
  EXPECT_TRUE(IsFolderBeingRenamed(run.main.desk));
  EXPECT_TRUE(IsSlotInUse(run.main.desk, 1));
  EXPECT_TRUE(drive.Exists(Family));
  EXPECT_EQ(run.host.toolkit.Focus(), &run.main.desk.FolderRenameBox);
  run.person.Key(key::Return);
  EXPECT_TRUE(drive.Exists("C:\\Home\\Ab"));
  run.person.Key('H', shift::Ctrl);
  EXPECT_FALSE(IsSlotInUse(run.main.desk, 1)) << "with the name settled shortcuts run again";
}

TEST_F(MainKeysTest, WhileABoxIsUpNoKeyReachesTheWindowBelow) {
  ProgramRun& run = WithFolder();
  run.person.Key(key::Right);
  run.person.ExpectBox("WARNING: Unable to rename folder", "blank", BoxAnswer::Ok, [&] {
    for (const int keyCode : {key::Right, key::Space, static_cast<int>('1'), key::Insert})
      EXPECT_TRUE(run.host.toolkit.KeyPressed(run.main.Window, keyCode, 0));
    EXPECT_EQ(Selected(run), 1);
    EXPECT_FALSE(IsMarked(run, 1));
  });
  RenameFolderStart(run.main, 1);
  run.person.Fill(run.main.desk.FolderRenameBox, "");
  run.person.Key(key::Return);
  EXPECT_FALSE(IsMarked(run, 1));
}

TEST_F(MainKeysTest, DuringARunOfDropsOnlyEscDoesAnything) {
  ProgramRun& run = WithFolder();
  run.person.Key(key::Right);
  run.person.During([&] { return IsMarked(run, 1); },
                    [&] {
                      run.person.Key(key::Right);
                      run.person.Key('9');
                      run.person.Key('R', shift::Ctrl);  // the preferences
                      EXPECT_EQ(Selected(run), 1);
                      run.person.Key(key::Escape);
                    });
  run.person.Drag(run.main.strip.AllButton, run.main.desk.DestFolderPreview(1));
  EXPECT_TRUE(run.main.drop.DropAllAbort);
  EXPECT_TRUE(IsMarked(run, 1));
  EXPECT_FALSE(IsMarked(run, 3));
  EXPECT_EQ(run.main.desk.DestPicsCount(9).Caption(), " Empty");
}

TEST_F(MainKeysTest, EscStopsARunAlsoWhileThePhotosHaveTheFocus) {
  ProgramRun& run = WithFolder();
  run.person.Click(run.main.strip.SrcThumbnail(1));
  ASSERT_TRUE(run.main.strip.SrcScrollbar.HasFocus());
  run.main.drop.DropAllAbort = false;
  run.person.Key(key::Escape);
  EXPECT_TRUE(run.main.drop.DropAllAbort);
}

}  // namespace
}  // namespace pixorra
