// A maximised or minimised window in the saved state file, by the numbers of the headless screen; x11/come_back.sh has
// it on a real one.
#include <gtest/gtest.h>

#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"

namespace pixorra {
namespace {

class WindowStateTest : public ProgramTest {
 protected:
  ProgramRun& StartedFrom(const std::string& window) {
    SavedState saved;
    saved.Window = window;
    WriteSavedState(saved);
    return Started();
  }
  std::string FirstLineAfter(ProgramRun& run) {
    run.Close();
    const std::string state = drive.Read("C:\\Windows\\Pixorra.sav");
    return state.substr(0, state.find("\r\n"));
  }
};

TEST_F(WindowStateTest, AMaximisedWindowStoresItsMaximisedSizeAndTheNormalPlace) {
  ProgramRun& run = Started();
  run.person.MoveWindow(run.main.Window, 300, 150);
  run.person.Maximise(run.main.Window);
  EXPECT_EQ(FirstLineAfter(run), "19200,15360,150,300,2");
}

TEST_F(WindowStateTest, AMaximisedWindowComesBackSoAndItsNormalSizeIsUntouched) {
  ProgramRun& run = StartedFrom("19200,15360,0,0,2");
  EXPECT_EQ(run.main.Window.WindowState(), windowstate::Maximised);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 19200);
  run.person.Restore(run.main.Window);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 11730);
  EXPECT_EQ(run.main.Window.TwipsHeight(), 9090);
}

TEST_F(WindowStateTest, AMinimisedWindowComesBackSoAndIsLaidOutWhenItIsRestored) {
  ProgramRun& run = StartedFrom("15000,12000,300,300,1");
  EXPECT_EQ(run.main.Window.WindowState(), windowstate::Minimised);
  EXPECT_EQ(run.main.core.LastWidth, 0);
  run.person.Restore(run.main.Window);
  EXPECT_TRUE(run.platform.toolkit.WaitUntil([&] { return run.main.core.LastWidth == 11730; }, 5));
}

}  // namespace
}  // namespace pixorra
