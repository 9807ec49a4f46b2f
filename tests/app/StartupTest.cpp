// The start-up: what stands when the window is on the screen, and what the order of its steps brings about.
#include <functional>
#include <gmock/gmock.h>
#include <vector>

#include "app/Startup.h"
#include "platform/runtime/Numbers.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

using StartupTest = ProgramTest;

// Of the menus, in their order: what can be chosen.
constexpr const char* UsableItems[] = {
    "OpenFilmStripMenuItem",
    "ShowFolderMenuItem",
    "HideFolderMenuItem",
    "PrintSelectedPhotoMenuItem",
    "BatchPrintFilmStripMenuItem",
    "BatchPrintOpenFolderMenuItem",
    "PrintProofFilmStripMenuItem",
    "PrintProofOpenFolderMenuItem",
    "PrinterSetupMenuItem",
    "PreferenceMenuItem",
    "CompanyNameMenuItem",
    "SetCameraLocationMenuItem",
    "ChangeBackgroundMenuItem",
    "ExitMenuItem",
    "CopyMenuItem",
    "SelectedEditMenuItem",
    "SelectedPrintMenuItem",
    "RenameMenuItem",
    "DeleteMenuItem",
    "SelectedViewFullSizeMenuItem",
    "UndoMenuItem",
    "PasteMenuItem",
    "RefreshOpenFolderMenuItem",
    "SwapOpenFolderMenuItem",
    "PrintOpenFolderIndividualPhotosMenuItem",
    "PrintOpenFolderProofSheetsMenuItem",
    "RenameOpenFolderMenuItem",
    "DeleteOpenFolderMenuItem",
    "SlideShowPlayFilmStripMenuItem",
    "SlideShowPlayOpenFolderMenuItem",
    "SlideShowSpeedFastMenuItem",
    "SlideShowSpeedMediumMenuItem",
    "SlideShowSpeedSlowMenuItem",
    "SlideShowTitleCounterMenuItem",
    "SlideShowScreenSaverMenuItem",
    "HelpMenuItem_General",
    "HelpSelectFilmStripMenuItem",
    "HelpShowFolderMenuItem",
    "HelpSetCameraLocationMenuItem",
    "HelpMenuItem_Preferences",
    "HelpMenuItem_Rename",
    "HelpMenuItem_Duplicate",
    "HelpMenuItem_Delete",
    "HelpMenuItem_Printing",
    "HelpMenuItem_SlideShow",
    "ManualMenuItem",
    "ViewReadmeMenuItem",
    "AboutMenuItem",
    "OpenFolderPopupItem",
    "RefreshFolderPopupItem",
    "SwapFolderMenuItem",
    "ShowFolderPopupItem",
    "HideFolderPopupItem",
    "RenameFolderPopupItem",
    "DeleteFolderPopupItem",
    "OpenTrashcanPopupItem",
    "RefreshTrashcanPopupItem",
    "SwapTrashcanMenuItem",
    "EmptyTrashcanPopupItem",
    "SelectedPhotoPrintPopupMenuItem",
    "IndividualsFilmStripPrintPopupMenuItem",
    "ProofsFilmStripPrintPopupMenuItem",
    "IndividualsOpenFolderPrintPopupMenuItem",
    "ProofsOpenFolderPrintPopupMenuItem",
};

TEST_F(StartupTest, WithNoSavedStateTheStripIsEmptyAndNoFolderIsShown) {
  const MainForm& main = Started().main;
  EXPECT_TRUE(main.Window.Visible());
  EXPECT_TRUE(main.strip.NoFilmStrip);
  EXPECT_EQ(main.strip.SrcFolderPath.Caption(), "Select a Film Strip");
  EXPECT_EQ(main.strip.SrcFolderPath.ToolTipText(), "");
  EXPECT_EQ(main.strip.SrcPicsCount.Caption(), "");
  EXPECT_EQ(main.strip.SrcPicsTotal.Caption(), "");
  EXPECT_EQ(main.strip.SrcSlotCount, 0);
  EXPECT_EQ(main.strip.SrcShownCount, 0);
  EXPECT_EQ(main.strip.SrcLoadedPath, "");
  EXPECT_EQ(main.strip.SrcFileList.Path(), "C:\\");
  EXPECT_EQ(main.strip.CameraLocation, "");
  EXPECT_EQ(main.strip.PreviousList.ListCount(), 0);
  EXPECT_EQ(main.desk.FoldersShown, 0);
  EXPECT_EQ(main.desk.OpenFolderIndex, 0);
  EXPECT_EQ(main.desk.DestSlotCount, 0);
  EXPECT_EQ(main.desk.DestLoadedPath, "");
  EXPECT_EQ(main.desk.DestCountLabel.Caption(), "");
  EXPECT_TRUE(main.strip.AutoScrollOption.Value());
  EXPECT_FALSE(main.strip.AutoScrollPending);
  EXPECT_EQ(main.strip.ThumbsPaused, "False");
}

TEST_F(StartupTest, WithNoSavedStateThePreferencesAreTheFactorys) {
  const PreferencesForm& preferences = Started().main.preferences;
  EXPECT_TRUE(preferences.Window.IsLoaded());
  EXPECT_FALSE(preferences.Window.Visible());
  EXPECT_TRUE(preferences.RenameAlwaysOption.Value());
  EXPECT_TRUE(preferences.DuplicatesAskOption.Value());
  EXPECT_EQ(preferences.RememberFilmStripCheckbox.Value(), 1);
  EXPECT_EQ(preferences.RememberFoldersCheckbox.Value(), 1);
  EXPECT_EQ(preferences.EmptyTrashcanCheckbox.Value(), 1);
  EXPECT_EQ(preferences.AutoPreviewCheckBox.Value(), 0);
}

TEST_F(StartupTest, OfTheMenusOnlyWhatCanBeDoneCanBeChosen) {
  const MainForm& main = Started().main;
  std::vector<std::string> enabled;
  const std::function<void(const MenuItem&)> collect = [&](const MenuItem& item) {
    if (item.Items().empty() && !item.IsSeparator() && item.Enabled()) enabled.push_back(item.Name());
    for (const MenuItem* below : item.Items()) collect(*below);
  };
  for (const MenuItem* menu : main.Window.Menus()) collect(*menu);
  EXPECT_THAT(enabled, ::testing::ElementsAreArray(UsableItems));
}

TEST_F(StartupTest, TheWindowIsCaptionedWithTitleAndVersion) {
  const MainForm& main = Started().main;
  EXPECT_EQ(main.Window.Caption(), "Pixorra v1.00");
  EXPECT_EQ(main.preview.PicPreview.ToolTipText(), "Pixorra v1.00");
  EXPECT_EQ(main.preview.PicPreviewSize.ToolTipText(), "Pixorra v1.00");
}

TEST_F(StartupTest, ThePreviewShowsTheLogoAndNoCaption) {
  const MainForm& main = Started().main;
  EXPECT_EQ(main.preview.PicPreview.GetPicture(), main.preview.Logo);
  EXPECT_EQ(main.preview.PicPreview.Tag(), "");
  EXPECT_EQ(main.preview.PicPreviewSize.Caption(), "");
  EXPECT_FALSE(main.preview.PicPreviewSize.Visible());
}

TEST_F(StartupTest, CanvasesBarsAndFramesHaveTheirFixedGeometry) {
  const MainForm& main = Started().main;
  EXPECT_EQ(main.strip.SrcCanvas.Bounds(), (Rect{-97, 0, 489, 109}));
  EXPECT_EQ(main.desk.DestCanvas.Left(), 0);
  EXPECT_EQ(main.desk.DestCanvas.Width(), 198);
  EXPECT_EQ(main.desk.DestCanvas.Height(), 348);
  for (const ScrollBar* bar : {&main.strip.SrcScrollbar, &main.desk.DestScrollbar}) {
    EXPECT_EQ(bar->LargeChange(), 1) << bar->Name();
    EXPECT_EQ(bar->Max(), 50) << bar->Name();
    EXPECT_TRUE(bar->Enabled()) << bar->Name();
    EXPECT_FALSE(bar->HasFocus()) << bar->Name();
  }
  EXPECT_EQ(main.strip.SrcThumbFrame.Width(), 80);
  EXPECT_EQ(main.strip.SrcThumbFrame.Height(), 60);
  EXPECT_EQ(main.desk.DestThumbFrame.Width(), 80);
  EXPECT_EQ(main.desk.DestThumbFrame.Height(), 60);
  EXPECT_EQ(main.strip.SrcPageBase, 0);
  EXPECT_EQ(main.desk.DestPageBase, 0);
}

TEST_F(StartupTest, ThePrinterFollowsTheDefaultAndItsNameIsKept) {
  ProgramRun& run = NewRun();
  run.platform.printing.SetTrackDefault(false);
  run.Start();
  EXPECT_TRUE(run.platform.printing.TracksDefault());
  EXPECT_EQ(run.main.core.DefaultPrinterName, run.platform.printing.CurrentPrinterName());
}

TEST_F(StartupTest, ASplashIsUpWhileTheSavedStateIsReadAndGoneWhenTheWindowComes) {
  drive.MakeFolder("C:\\Strip");
  WriteSavedState(StateLines("C:\\Strip", {}));
  ProgramRun& run = NewRun();
  ConnectEvents(run.main);
  const Form* splash = nullptr;
  bool windowWasUp = true;
  run.main.strip.SrcFileList.On().PathChange = [&](Control&) {
    splash = run.person.Window("frmAbout");
    windowWasUp = run.main.Window.Visible();
  };
  StartUp(run.main);
  EXPECT_NE(splash, nullptr);
  EXPECT_FALSE(windowWasUp);
  EXPECT_EQ(run.person.Window("frmAbout"), nullptr);
  EXPECT_TRUE(run.main.Window.Visible());
  EXPECT_EQ(run.host.toolkit.ActiveForm(), &run.main.Window);
}

TEST_F(StartupTest, AQuestionOfTheStartIsAnsweredOverTheSplash) {
  WriteSavedState(StateLines("", {"C:\\Gone"}));
  ProgramRun& run = NewRun();
  std::string above;
  run.person.ExpectBox("WARNING: Can't display the folder", "Folder not found", BoxAnswer::Ok, [&] {
    const Form* active = run.host.toolkit.ActiveForm();
    if (active != nullptr && !active->StaysOnTop()) above = active->Name();
  });
  run.Start();
  EXPECT_EQ(above, "frmAbout") << "a box belongs to the window that is in front";
  EXPECT_EQ(run.person.Window("frmAbout"), nullptr);
}

TEST_F(StartupTest, ASplashThatItsUserClosesEndsNothing) {
  WriteSavedState(StateLines("", {"C:\\Gone"}));
  ProgramRun& run = NewRun();
  run.person.ExpectBox("WARNING: Can't display the folder", "Folder not found", BoxAnswer::Ok, [&] {
    Form* splash = run.person.Window("frmAbout");
    ASSERT_NE(splash, nullptr);
    splash->Unload();
  });
  run.Start();
  EXPECT_TRUE(run.main.Window.Visible());
  EXPECT_FALSE(run.host.toolkit.Ended());
}

TEST_F(StartupTest, TimersRunFromTheEndOfTheLoadExceptTheCaptions) {
  ProgramRun& run = NewRun();
  ConnectEvents(run.main);
  bool ranDuringLoad = false;
  run.main.strip.SrcFileList.On().PathChange = [&](Control&) { ranDuringLoad = run.main.strip.ThumbsTimer.Enabled(); };
  drive.MakeFolder("C:\\Strip");
  WriteSavedState(StateLines("C:\\Strip", {}));
  StartUp(run.main);
  EXPECT_FALSE(ranDuringLoad);
  EXPECT_TRUE(run.main.strip.ThumbsTimer.Enabled());
  EXPECT_TRUE(run.main.strip.AutoScrollTimer.Enabled());
  EXPECT_TRUE(run.main.core.SystemResourceStatusTimer.Enabled());
  EXPECT_TRUE(run.main.preview.AutoPicPreviewTimer.Enabled());
  EXPECT_FALSE(run.main.preview.PicPreviewSizeAutoClrTimer.Enabled());
}

TEST_F(StartupTest, NoSlotIsLoadedBeforeTheFirstTick) {
  drive.Write("C:\\Strip\\a.bmp", BmpPhoto(8, 8));
  WriteSavedState(StateLines("C:\\Strip", {}));
  ProgramRun& run = Started();
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
  EXPECT_EQ(run.main.strip.SrcPicsTotal.Caption(), "1 Total");
  EXPECT_TRUE(run.platform.toolkit.WaitUntil([&run] { return run.main.strip.SrcSlotCount == 1; }));
}

TEST_F(StartupTest, ASizeFromTheSavedStateIsLaidOutOnceAndNotAgain) {
  SavedState saved;
  saved.Window = "11880,10500,300,300,0";
  WriteSavedState(saved);
  ProgramRun& run = Started();
  EXPECT_EQ(run.main.core.LayoutCountdown, 1) << "the resize during the load is overwritten";
  EXPECT_EQ(run.main.core.LastWidth, 11880);
  run.main.strip.CameraButton.SetLeft(5);
  run.Wait(1);
  EXPECT_EQ(run.main.strip.CameraButton.Left(), 5);
}

TEST_F(StartupTest, AMaximisedStartIsLaidOutForTheScreenAtOnceAndNotAgain) {
  SavedState saved;
  saved.Window = "19200,15360,0,0,2";
  WriteSavedState(saved);
  ProgramRun& run = Started();
  EXPECT_GE(run.main.Window.TwipsWidth(), run.platform.toolkit.GetScreen().Width);
  EXPECT_EQ(run.main.core.LastWidth, run.main.Window.TwipsWidth());
  EXPECT_EQ(run.main.strip.SrcThumbsWindow.Bounds().Right(), CLng(run.main.Window.TwipsWidth() / 15) - 22);
  run.main.strip.CameraButton.SetLeft(5);
  run.Wait(1);
  EXPECT_EQ(run.main.strip.CameraButton.Left(), 5);
  EXPECT_EQ(run.main.Window.WindowState(), windowstate::Maximised);
}

TEST_F(StartupTest, AMinimisedStartStaysDownAndIsLaidOutWhenItComesUp) {
  SavedState saved;
  saved.Window = "11880,10500,300,300,1";
  WriteSavedState(saved);
  ProgramRun& run = Started();
  run.Wait(0.5);
  EXPECT_EQ(run.main.Window.WindowState(), windowstate::Minimised);
  EXPECT_EQ(run.main.core.LastWidth, 0);
  run.person.Restore(run.main.Window);
  EXPECT_TRUE(run.platform.toolkit.WaitUntil([&run] { return run.main.core.LastWidth != 0; }));
  EXPECT_EQ(run.main.core.LastWidth, run.main.Window.TwipsWidth());
  EXPECT_EQ(run.main.Window.WindowState(), windowstate::Normal);
}

TEST_F(StartupTest, FileTypesFromTheSavedStateGovernAllLists) {
  for (const char* name : {"a.jpg", "b.JPEG", "c.bmp", "d.gif", "e.txt"}) {
    drive.Write(std::string("C:\\Strip\\") + name, "");
    drive.Write(std::string("C:\\One\\") + name, "");
  }
  SavedState saved;
  saved.Gif = false;
  saved.FilmStrip = "C:\\Strip";
  saved.Folders = {"C:\\One"};
  WriteSavedState(saved);
  const MainForm& main = Started().main;
  EXPECT_EQ(main.core.PicturePattern, "*.jpg;*.jpeg;*.bmp");
  EXPECT_EQ(main.strip.SrcFileList.ListCount(), 3);
  EXPECT_EQ(main.desk.DestFolderFiles(1).ListCount(), 3);
  EXPECT_EQ(main.desk.DestPicsCount(1).Caption(), "3 pics");
  EXPECT_EQ(main.desk.DestFileList.ListCount(), 3);
  EXPECT_EQ(main.desk.DestFileList.Pattern(), main.core.PicturePattern);
}

TEST_F(StartupTest, TheFactoryPatternHasJpgAheadOfJpeg) {
  const MainForm& main = Started().main;
  EXPECT_EQ(main.core.PicturePattern, "*.jpg;*.jpeg;*.bmp;*.gif");
  EXPECT_EQ(main.strip.SrcFileList.Pattern(), "*.jpg;*.jpeg;*.bmp;*.gif");
  EXPECT_EQ(main.desk.DestFolderFiles(9).Pattern(), "*.jpg;*.jpeg;*.bmp;*.gif");
}

TEST_F(StartupTest, ABackgroundBesideTheProgramBecomesTheDesktops) {
  drive.Write("C:\\Program\\Background.pic", BmpOf(PlainBitmap(30, 20, 0x00123456)));
  const Picture& picture = Started().main.desk.DesktopImage.GetPicture();
  ASSERT_EQ(picture.Width(), 30);
  ASSERT_EQ(picture.Height(), 20);
  EXPECT_EQ(picture.Pixels().Row(0)[0], 0x12);
}

TEST_F(StartupTest, ABackgroundThatCannotBeShownLeavesTheDesktopAndNoWord) {
  ProgramRun& plain = Started();
  const std::string name = plain.main.desk.DesktopImage.GetPicture().ArtName();
  EXPECT_EQ(name, "Clouds");
  for (const std::string& bytes : {std::string(), std::string("no picture"), JpegPhoto(40, 30).substr(0, 100)}) {
    drive.Write("C:\\Program\\Background.pic", bytes);
    EXPECT_EQ(Started().main.desk.DesktopImage.GetPicture().ArtName(), name);
  }
  ProgramRun& denied = NewRun();
  denied.files.FailAlways(FileCall::OpenToRead, error::PathAccess, "Background.pic");
  denied.Start();
  EXPECT_EQ(denied.main.desk.DesktopImage.GetPicture().ArtName(), name);
}

TEST_F(StartupTest, EscapeAsksARunningBatchToStop) {
  ProgramRun& run = Started();
  EXPECT_FALSE(run.main.drop.DropAllAbort);
  run.Wait(0.2);
  run.person.Key(key::Escape);
  EXPECT_TRUE(run.main.drop.DropAllAbort);
}

TEST_F(StartupTest, TwoMainWindowsLiveInOneProcessEachByItself) {
  TemporaryDrive otherDrive;
  for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) drive.Write(std::string("C:\\Strip\\") + name, BmpPhoto(8, 8));
  otherDrive.Write("C:\\Strip\\x.bmp", BmpPhoto(8, 8));
  WriteSavedState(StateLines("C:\\Strip", {}));
  std::string state;
  for (const std::string& line : StateLines("C:\\Strip", {})) state += line + "\r\n";
  otherDrive.Write("C:\\Windows\\Pixorra.sav", state);
  ProgramRun& one = Started();
  ProgramRun other(otherDrive);
  other.Start();
  one.LoadAll();
  EXPECT_EQ(one.main.strip.SrcSlotCount, 3);
  EXPECT_LE(other.main.strip.SrcSlotCount, 1);
  other.main.preferences.AutoPreviewCheckBox.SetValue(1);
  EXPECT_EQ(one.main.preferences.AutoPreviewCheckBox.Value(), 0);
  one.Close();
  EXPECT_TRUE(one.platform.toolkit.Ended());
  EXPECT_FALSE(other.platform.toolkit.Ended());
  other.LoadAll();
  EXPECT_EQ(other.main.strip.SrcSlotCount, 1);
  EXPECT_EQ(other.main.strip.SrcThumbName(1).Caption(), "x");
  other.Close();
}

}  // namespace
}  // namespace pixorra
