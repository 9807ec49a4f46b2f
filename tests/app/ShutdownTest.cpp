// The end of the main window: every way of closing it runs the same steps.
#include <gtest/gtest.h>

#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr const char* SavedAtExit = "C:\\Windows\\Pixorra.sav";

struct Way {
  const char* name;
  void (*close)(ProgramRun&);
};

void PrintTo(const Way& way, std::ostream* out) {
  *out << way.name;
}

class ShutdownTest : public ProgramTest, public ::testing::WithParamInterface<Way> {
 protected:
  ShutdownTest() {
    for (const char* file : {"C:\\Strip\\a.bmp", "C:\\Cam\\b.bmp", "C:\\One\\c.bmp"}) drive.Write(file, BmpPhoto(8, 8));
  }
  // Started with a camera's folder as film strip and an open folder, all loaded.
  ProgramRun& Loaded(const std::string& filmStrip) {
    SavedState saved;
    saved.CameraLocation = "C:\\Cam";
    saved.FilmStrip = filmStrip;
    saved.Folders = {"C:\\One"};
    WriteSavedState(saved);
    ProgramRun& run = Started();
    run.LoadAll();
    drive.Remove(SavedAtExit);
    return run;
  }
  std::string State() const { return drive.Read(SavedAtExit); }
};

INSTANTIATE_TEST_SUITE_P(
    EveryWay, ShutdownTest,
    ::testing::Values(Way{"Frame", [](ProgramRun& run) { run.Close(); }},
                      Way{"ExitMenuItem", [](ProgramRun& run) { run.person.ChooseMenu(run.main.menu.ExitMenuItem); }},
                      Way{"Shortcut", [](ProgramRun& run) { run.person.Key('X', shift::Ctrl); }}),
    [](const auto& test) { return test.param.name; });

TEST_P(ShutdownTest, TheStateIsWrittenWhileStripAndFoldersAreInPlace) {
  ProgramRun& run = Loaded("C:\\Strip");
  GetParam().close(run);
  EXPECT_NE(State().find("\"C:\\Strip\"\r\n\"C:\\One\"\r\n"), std::string::npos) << State();
}

TEST_P(ShutdownTest, SlotsAndFormsAreUnloadedAndTheProgramEnds) {
  ProgramRun& run = Loaded("C:\\Strip");
  GetParam().close(run);
  const MainForm& main = run.main;
  EXPECT_EQ(main.strip.SrcSlotCount, 0);
  EXPECT_EQ(main.strip.SrcThumbnail.UBound(), 0);
  EXPECT_EQ(main.strip.SrcBackground.UBound(), 0);
  EXPECT_EQ(main.strip.SrcThumbName.UBound(), 0);
  EXPECT_EQ(main.desk.DestSlotCount, 0);
  EXPECT_EQ(main.desk.DestThumbnail.UBound(), 0);
  EXPECT_EQ(main.desk.DestFolder.UBound(), 0);
  EXPECT_EQ(main.desk.DestFolderFiles.UBound(), 0);
  EXPECT_FALSE(main.preferences.Window.IsLoaded());
  EXPECT_FALSE(main.Window.IsLoaded());
  EXPECT_FALSE(main.Window.Visible());
  EXPECT_TRUE(run.platform.toolkit.Ended());
}

TEST_P(ShutdownTest, TheCamerasCacheFileGoesAndThoseOfFoldersStay) {
  ProgramRun& run = Loaded("C:\\Cam");
  ASSERT_TRUE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
  ASSERT_TRUE(drive.Exists("C:\\One\\Thumbnails.tmp"));
  GetParam().close(run);
  EXPECT_FALSE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
  EXPECT_TRUE(drive.Exists("C:\\One\\Thumbnails.tmp"));
  EXPECT_FALSE(drive.Exists("C:\\Cam\\Thumbnails.tmp"));
}

TEST_P(ShutdownTest, NoTimerIsStopped) {
  ProgramRun& run = Loaded("C:\\Strip");
  GetParam().close(run);
  EXPECT_TRUE(run.main.strip.ThumbsTimer.Enabled());
  EXPECT_TRUE(run.main.strip.AutoScrollTimer.Enabled());
  EXPECT_TRUE(run.main.core.SystemResourceStatusTimer.Enabled());
  EXPECT_TRUE(run.main.preview.AutoPicPreviewTimer.Enabled());
  run.Wait(1);
}

TEST_P(ShutdownTest, AStateThatCannotBeWrittenIsToldAndTheWindowClosesAllTheSame) {
  ProgramRun& run = Loaded("C:\\Strip");
  drive.Write(SavedAtExit, "the run before");
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, "Pixorra.sav");
  run.person.ExpectBox("Pixorra", "Error 75: Path/File access error");
  GetParam().close(run);
  EXPECT_EQ(State(), "the run before");
  EXPECT_FALSE(run.main.Window.IsLoaded());
  EXPECT_TRUE(run.platform.toolkit.Ended());
}

TEST_P(ShutdownTest, ACloseInTheMiddleOfALoadLeavesNothingBehind) {
  for (int i = 0; i < 20; ++i) drive.Write("C:\\Strip\\" + std::to_string(i) + ".bmp", BmpPhoto(8, 8));
  WriteSavedState(StateLines("C:\\Strip", {"C:\\One"}));
  ProgramRun& run = Started();
  run.Wait(0.3);
  ASSERT_GT(run.main.strip.SrcSlotCount, 0);
  ASSERT_LT(run.main.strip.SrcSlotCount, 21);
  GetParam().close(run);
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcThumbnail.UBound(), 0);
}

TEST_F(ShutdownTest, TheNextRunBeginsWhereThisOneEnded) {
  Loaded("C:\\Strip").Close();
  const std::string state = State();
  ProgramRun& next = Started();
  EXPECT_EQ(next.main.strip.SrcFileList.Path(), "C:\\Strip");
  EXPECT_EQ(next.main.desk.DestFolderFiles(1).Path(), "C:\\One");
  next.Close();
  EXPECT_EQ(State(), state);
}

}  // namespace
}  // namespace pixorra
