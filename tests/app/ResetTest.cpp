// The reset to the state of a new installation.
#include <gtest/gtest.h>

#include "app/Reset.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/PreviousFolders.h"
#include "tests/filmstrip/StripTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* BackgroundPicture = "C:\\Program\\Background.pic";

class ResetTest : public StripTest {
 protected:
  // In use: strip, camera, folders 1 and 2, a background, other settings, a window that has been moved.
  ProgramRun& InUse() {
    for (const char* folder : {"C:\\Home\\A", "C:\\Home\\B", "C:\\Home\\C"}) drive.MakeFolder(folder);
    WritePhotos(3);
    drive.Write(BackgroundPicture, BmpOf(PlainBitmap(30, 20, 0x00123456)));
    ProgramRun& run = LoadedStrip({"C:\\Home\\A", "C:\\Home\\B"});
    run.main.strip.CameraLocation = "C:\\Home\\C";
    AddToPreviousList(run.main.strip, "C:\\Home\\C");
    run.main.core.CompanyNameLabel.SetCaption("Anna's photos");
    run.main.preferences.RenameAskOption.SetValue(true);
    run.main.preferences.GifCheckbox.SetValue(0);
    run.person.MoveWindow(run.main.Window, 0, 0);
    return run;
  }
  static void PressReset(ProgramRun& run) { run.person.Key(key::F1, shift::Shift | shift::Ctrl | shift::Alt); }
};

TEST_F(ResetTest, TheKeyBringsBackTheStateOfANewInstallation) {
  ProgramRun& run = InUse();
  const FilmStripState& strip = run.main.strip;
  const DesktopState& desk = run.main.desk;
  PressReset(run);
  EXPECT_EQ(strip.PreviousList.ListCount(), 0);
  EXPECT_EQ(strip.CameraLocation, "");
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\");
  EXPECT_TRUE(strip.NoFilmStrip);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Select a Film Strip");
  EXPECT_EQ(strip.SrcFolderPath.ToolTipText(), "");
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "");
  EXPECT_EQ(desk.FoldersShown, 0);
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  for (int i = 1; i <= 8; ++i) EXPECT_FALSE(IsSlotInUse(desk, i)) << i;
  EXPECT_TRUE(IsSlotInUse(desk, 9));
  EXPECT_EQ(desk.DestFileList.Path(), "C:\\");
  EXPECT_FALSE(drive.Exists(BackgroundPicture));
  EXPECT_EQ(desk.DesktopImage.GetPicture().Width(), run.pictures.Load("C:\\Program\\Clouds.jpg").Width());
  EXPECT_EQ(run.main.Window.TwipsWidth(), 11730);
  EXPECT_EQ(run.main.Window.TwipsHeight(), 9090);
  const Screen screen = run.host.toolkit.GetScreen();
  EXPECT_EQ(run.main.Window.TwipsLeft(), (screen.Width - 11730) / 2);
  EXPECT_EQ(run.main.Window.TwipsTop(), (screen.Height - 9090) / 2);
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "Pixorra - Kestrelia Corp");
  EXPECT_TRUE(run.main.preferences.RenameAlwaysOption.Value());
  EXPECT_EQ(run.main.preferences.GifCheckbox.Value(), 1);
  run.Wait(0.1);
  EXPECT_EQ(strip.SrcSlotCount, 0);
  EXPECT_EQ(desk.DestSlotCount, 0);
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty()) << "no question is asked";
}

TEST_F(ResetTest, NoPhotoIsTouchedAndTheNextStartIsAFirstOne) {
  ProgramRun& run = InUse();
  PressReset(run);
  run.Close();
  for (int i = 1; i <= 3; ++i) EXPECT_TRUE(drive.Exists(PathOf(NumberedName(i))));
  ProgramRun& next = Started();
  EXPECT_TRUE(next.main.strip.NoFilmStrip);
  EXPECT_EQ(next.main.desk.FoldersShown, 0);
  EXPECT_EQ(next.main.desk.DesktopImage.GetPicture().ArtName(), "Clouds");
}

TEST_F(ResetTest, FoldersGoAlsoWhereThereIsAGapBetweenThem) {
  ProgramRun& run = InUse();
  Display_a_New_Folder(run.main, "C:\\Home\\C");
  Select_a_Folder(run.main, 2);
  Remove_Open_Folder(run.main);
  ASSERT_TRUE(IsSlotInUse(run.main.desk, 1) && !IsSlotInUse(run.main.desk, 2) && IsSlotInUse(run.main.desk, 3));
  PressReset(run);
  EXPECT_EQ(run.main.desk.FoldersShown, 0);
}

TEST_F(ResetTest, AnOpenTrashcanIsClosedAlsoWhereItIsAlone) {
  ProgramRun& run = InUse();
  for (const int slot : {1, 2}) {
    Select_a_Folder(run.main, slot);
    Remove_Open_Folder(run.main);
  }
  Select_a_Folder(run.main, 9);
  PressReset(run);
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 0);
}

TEST_F(ResetTest, AFolderThatHasGoneMeanwhileGoesWithAWord) {
  ProgramRun& run = InUse();
  drive.Remove("C:\\Home\\A");
  run.person.ExpectBox("Pixorra - Unable to Open folder", "?? Folder Not Found");
  PressReset(run);
  EXPECT_EQ(run.main.desk.FoldersShown, 0);
}

TEST_F(ResetTest, AMaximisedWindowIsANormalOneAgain) {
  ProgramRun& run = InUse();
  run.person.Maximise(run.main.Window);
  PressReset(run);
  EXPECT_EQ(run.main.Window.WindowState(), windowstate::Normal);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 11730);
}

TEST_F(ResetTest, TheKeyAloneOrWithTwoOthersResetsNothing) {
  ProgramRun& run = InUse();
  run.person.Key(key::F1, shift::Shift | shift::Ctrl);
  run.person.Key(key::F1, shift::Ctrl | shift::Alt);
  EXPECT_EQ(run.main.desk.FoldersShown, 2);
}

TEST_F(ResetTest, ThereIsNothingToTakeBackAfterIt) {
  ProgramRun& run = InUse();
  run.person.Click(run.main.strip.SrcThumbnail(1));
  run.person.Key('1');
  ASSERT_FALSE(run.main.drop.LastDropFile.empty());
  PressReset(run);
  EXPECT_TRUE(run.main.drop.LastDropFile.empty());
}

}  // namespace
}  // namespace pixorra
