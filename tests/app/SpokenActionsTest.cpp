// What a screen reader can do with the main window's controls beside a press, such as what a drag does by hand.
#include "desktop/FolderRename.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Marks.h"
#include "filmstrip/Views.h"
#include "tests/app/SpokenTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class SpokenActionsTest : public SpokenTest {
 protected:
  static int Beeps(const ProgramRun& run) { return run.platform.dialogs.Beeps(); }
  // Each by its name and its keys.
  static std::vector<std::string> Keys(const Control& control) {
    std::vector<std::string> keys;
    for (const NamedAction& action : control.On().SpokenActions(control)) keys.push_back(action.Keys);
    return keys;
  }
  static std::function<void()> Offered(const Control& control, const std::string& name) {
    for (const NamedAction& action : control.On().SpokenActions(control))
      if (action.Name == name) return action.Run;
    throw std::runtime_error("no action " + name);
  }
};

TEST_F(SpokenActionsTest, APhotoIsCopiedByAnActionOfItsOwn) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  EXPECT_EQ(Actions(strip.SrcThumbnail(2)),
            std::vector<std::string>({"Copy to Pets", "Copy to Family", "Copy to Trashcan", "Discard"}));
  Do(strip.SrcThumbnail(2), "Copy to Pets");
  EXPECT_EQ(SelectedSlot(strip), 2);
  EXPECT_TRUE(IsMarked(strip, 2));
  EXPECT_EQ(Name(run.main.desk.DestFolder(1)), "Pets, 1 pics, closed");
  Do(strip.SrcThumbnail(2), "Recover");
  EXPECT_FALSE(IsMarked(strip, 2));
}

TEST_F(SpokenActionsTest, AFolderTakesTheSelectedPhotoByAnActionAndTheStripAllThatRemain) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  DesktopState& desk = run.main.desk;
  EXPECT_EQ(Actions(desk.DestFolder(1)), std::vector<std::string>({"Show Menu"}));
  run.person.Click(strip.SrcThumbnail(1));
  Do(desk.DestFolder(1), "Copy the selected photo here");
  EXPECT_TRUE(IsMarked(strip, 1));
  EXPECT_FALSE(IsMarked(strip, 2));
  // What is edited outside is not watched any more, as with a drag.
  run.main.preview.bPicEdited = true;
  Do(strip.AllButton, "Copy all remaining to Trashcan");
  EXPECT_TRUE(IsMarked(strip, 2));
  EXPECT_FALSE(run.main.preview.bPicEdited);
  EXPECT_EQ(Name(desk.DestFolder(1)), "Pets, 1 pics, closed");
  EXPECT_EQ(Name(desk.DestFolder(9)), "Trashcan, 1 pics, closed");
}

TEST_F(SpokenActionsTest, OfFoldersOfOneNameEachIsCopiedToByItsNumber) {
  for (const char* folder : {"C:\\A\\2024", "C:\\B\\2024", "C:\\B\\trashcan"}) drive.MakeFolder(folder);
  WriteSavedState(StateLines("C:\\Card", {"C:\\A\\2024", "C:\\Home\\Pets", "C:\\B\\2024", "C:\\B\\trashcan"}));
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  DesktopState& desk = run.main.desk;
  EXPECT_EQ(Actions(strip.SrcThumbnail(1)),
            std::vector<std::string>({"Copy to 2024, folder 1", "Copy to Pets", "Copy to 2024, folder 3",
                                      "Copy to trashcan, folder 4", "Copy to Trashcan", "Discard"}));
  Do(strip.SrcThumbnail(1), "Copy to 2024, folder 3");
  EXPECT_EQ(Name(desk.DestFolder(1)), "2024, Empty, closed");
  EXPECT_EQ(Name(desk.DestFolder(3)), "2024, 1 pics, closed");
  Do(strip.AllButton, "Copy all remaining to trashcan, folder 4");
  EXPECT_EQ(Name(desk.DestFolder(4)), "trashcan, 1 pics, open");
  EXPECT_EQ(Name(desk.DestFolder(9)), "Trashcan, Empty, closed");
}

TEST_F(SpokenActionsTest, AnActionOnAPhotoThatHasGoneSinceDoesNothing) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  const std::vector<NamedAction> offered = strip.SrcThumbnail.On().SpokenActions(strip.SrcThumbnail(2));
  strip.SrcThumbnail(2).SetTag("");
  offered.front().Run();
  EXPECT_FALSE(IsMarked(strip, 2));
}

TEST_F(SpokenActionsTest, AnActionOnAPhotoWhoseSlotHasAnotherNowDoesNothing) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  const std::function<void()> copy = Offered(strip.SrcThumbnail(2), "Copy to Pets");
  const std::function<void()> copyLast = Offered(strip.SrcThumbnail(1), "Copy to Pets");
  SetSrcSlotPath(strip, 2, "C:\\Card\\other.jpg");
  copy();
  EXPECT_FALSE(IsMarked(strip, 2));
  EXPECT_NE(SelectedSlot(strip), 2);
  EXPECT_EQ(Beeps(run), 1);
  ClearFilmStrip(run.main);
  copyLast();
  EXPECT_EQ(Beeps(run), 2);
}

TEST_F(SpokenActionsTest, EachSaysTheKeysThatDoTheSame) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  EXPECT_EQ(Keys(strip.SrcThumbnail(2)), std::vector<std::string>({"1", "2", "9", "Ins"}));
  run.person.Click(strip.SrcThumbnail(2));
  EXPECT_EQ(Keys(run.main.desk.DestFolder(2)), std::vector<std::string>({"2", "Shift+F10"}));
  EXPECT_EQ(Keys(run.main.desk.DestThumbnail(1)), std::vector<std::string>({"Space"}));
  EXPECT_EQ(Keys(strip.AllButton), std::vector<std::string>(3));
}

TEST_F(SpokenActionsTest, ASlotWithoutAPhotoOffersNothing) {
  ProgramRun& run = Started();
  run.LoadAll();
  SetSrcSlotPath(run.main.strip, 2, "");
  EXPECT_TRUE(Actions(run.main.strip.SrcThumbnail(2)).empty());
  run.main.desk.DestThumbnail(1).SetTag("");
  EXPECT_TRUE(Actions(run.main.desk.DestThumbnail(1)).empty());
}

TEST_F(SpokenActionsTest, WhileADropRunsNoneIsDone) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  run.main.drop.DropRunning = true;
  Do(strip.SrcThumbnail(2), "Discard");
  EXPECT_EQ(Beeps(run), 1);
  EXPECT_FALSE(IsMarked(strip, 2));
  EXPECT_EQ(SelectedSlot(strip), 0);
  run.main.drop.DropRunning = false;
  Do(strip.SrcThumbnail(2), "Discard");
  EXPECT_EQ(Beeps(run), 1);
  EXPECT_TRUE(IsMarked(strip, 2));
}

TEST_F(SpokenActionsTest, AFoldersNewNameThatIsBeingTypedIsTakenBeforeAnActionIsDone) {
  ProgramRun& run = Started();
  run.LoadAll();
  run.person.Click(run.main.strip.SrcThumbnail(2));
  RenameFolderStart(run.main, 1);
  run.person.Type("Holiday");
  Do(run.main.strip.SrcThumbnail(2), "Discard");
  EXPECT_FALSE(IsFolderBeingRenamed(run.main.desk));
  EXPECT_TRUE(drive.Exists("C:\\Home\\Holiday"));
  EXPECT_TRUE(IsMarked(run.main.strip, 2));
}

TEST_F(SpokenActionsTest, AFolderThatHasGoneSinceItWasOfferedTakesNoPhoto) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  const std::function<void()> one = Offered(strip.SrcThumbnail(1), "Copy to Pets");
  const std::function<void()> all = Offered(strip.AllButton, "Copy all remaining to Pets");
  run.main.desk.DestFolder(1).SetVisible(false);
  one();
  EXPECT_EQ(Beeps(run), 1);
  all();
  EXPECT_FALSE(IsMarked(strip, 1));
  EXPECT_FALSE(drive.Exists("C:\\Home\\Pets\\a.jpg"));
}

TEST_F(SpokenActionsTest, APhotoOfTheOpenFolderIsShownAtFullSize) {
  drive.Write("C:\\Home\\Family\\c.jpg", JpegPhoto(640, 480));
  ProgramRun& run = Started();
  run.LoadAll();
  ImageBox& cell = run.main.desk.DestThumbnail(1);
  EXPECT_EQ(Actions(cell), std::vector<std::string>({"View Full Size"}));
  const std::function<void()> show = Offered(cell, "View Full Size");
  const std::string photo = cell.Tag();
  cell.SetTag("C:\\Home\\Family\\other.jpg");
  show();
  EXPECT_EQ(run.person.Window("PreviewForm"), nullptr) << "the cell has another photo now";
  cell.SetTag(photo);
  const int count = std::exchange(run.main.desk.DestSlotCount, 0);
  show();
  EXPECT_EQ(run.person.Window("PreviewForm"), nullptr) << "the folder has no photos now";
  run.main.desk.DestSlotCount = count;
  show();
  ASSERT_NE(run.person.Window("PreviewForm"), nullptr);
  EXPECT_TRUE(run.person.Window("PreviewForm")->Caption().starts_with("c - W"));
}

TEST_F(SpokenActionsTest, AFoldersMenuComesUpByAnActionWhileTheFolderIsThere) {
  ProgramRun& run = Started();
  run.LoadAll();
  DesktopState& desk = run.main.desk;
  run.person.ExpectMenu(run.main.menu.FolderPopupMenu, nullptr);
  Do(desk.DestFolder(1), "Show Menu");
  EXPECT_EQ(desk.PopupFolderIndex, 1);
  const std::function<void()> show = Offered(desk.DestFolder(2), "Show Menu");
  desk.DestFolder(2).SetVisible(false);
  show();
  EXPECT_EQ(desk.PopupFolderIndex, 1);
}

TEST_F(SpokenActionsTest, TheStripIsNotCopiedBeforeAllOfItIsLoaded) {
  for (int i = 1; i <= 60; ++i) drive.Write("C:\\Card\\p" + std::to_string(100 + i) + ".bmp", BmpPhoto(8, 8));
  ProgramRun& run = Started();
  run.Wait(0.1);
  FilmStripState& strip = run.main.strip;
  ASSERT_GE(strip.SrcSlotCount, 1);
  ASSERT_LT(strip.SrcSlotCount, 62);
  run.person.ExpectBox("WARNING: Can't Drag Film Strip yet.", "The thumbnails are still loading.");
  Do(strip.AllButton, "Copy all remaining to Trashcan");
  run.LoadAll();
  for (int i = 1; i <= strip.SrcSlotCount; ++i) EXPECT_FALSE(IsMarked(strip, i));
}

}  // namespace
}  // namespace pixorra
