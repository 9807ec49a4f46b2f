// The window's size from one run to the next, and what follows when its user changes it.
#include <gtest/gtest.h>

#include "platform/runtime/Numbers.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

class ResizeTest : public ProgramTest {
 protected:
  ProgramRun& StartedWith(const std::string& window) {
    SavedState saved;
    saved.Window = window;
    WriteSavedState(saved);
    return Started();
  }
  // The strip ends 22 pixels ahead of the window's right edge, the Desktop 7 above its lower one.
  static bool IsLaidOut(const ProgramRun& run) {
    const MainForm& main = run.main;
    return main.strip.SrcThumbsWindow.Bounds().Right() == CLng(main.Window.TwipsWidth() / 15) - 22 &&
           main.desk.DesktopImage.Bounds().Bottom() == main.Window.ScaleHeight() - 7;
  }
  static bool ComesToBeLaidOut(ProgramRun& run, double twipsWidth) {
    return run.platform.toolkit.WaitUntil(
        [&] { return run.main.Window.TwipsWidth() == twipsWidth && run.main.core.LastWidth == twipsWidth; });
  }
};

TEST_F(ResizeTest, WhatIsSavedIsTheWindowThatComesBack) {
  {
    ProgramRun& run = StartedWith("11880,10500,300,450,0");
    EXPECT_TRUE(IsLaidOut(run));
    run.Wait(0.3);
    run.Close();
  }
  EXPECT_EQ(drive.Read("C:\\Windows\\Pixorra.sav").substr(0, 23), "11880,10500,300,450,0\r\n");
  ProgramRun& run = Started();
  EXPECT_EQ(run.main.Window.TwipsWidth(), 11880);
  EXPECT_EQ(run.main.Window.TwipsHeight(), 10500);
  EXPECT_TRUE(IsLaidOut(run));
}

TEST_F(ResizeTest, AWindowThatItsUserResizesIsLaidOutAnew) {
  ProgramRun& run = StartedWith("11730,9090,300,450,0");
  run.Wait(0.3);
  run.person.Resize(run.main.Window, 787, 650);
  EXPECT_TRUE(ComesToBeLaidOut(run, 795 * 15));
  EXPECT_TRUE(IsLaidOut(run));
}

TEST_F(ResizeTest, AWindowThatIsMadeTooSmallSnapsBack) {
  ProgramRun& run = StartedWith("11880,10500,300,450,0");
  run.Wait(0.3);
  run.person.Resize(run.main.Window, 500, 400);
  EXPECT_TRUE(ComesToBeLaidOut(run, 782 * 15));
  EXPECT_EQ(run.main.Window.TwipsHeight(), 606 * 15);
  EXPECT_TRUE(IsLaidOut(run));
  EXPECT_TRUE(run.main.Window.Visible());
}

TEST_F(ResizeTest, AMaximisedWindowIsLaidOutForTheScreenAndComesBackFromIt) {
  ProgramRun& run = StartedWith("11730,9090,300,450,0");
  run.Wait(0.3);
  run.person.Maximise(run.main.Window);
  EXPECT_TRUE(run.platform.toolkit.WaitUntil(
      [&] { return run.main.core.LastWidth >= run.platform.toolkit.GetScreen().Width; }));
  EXPECT_TRUE(IsLaidOut(run));
  run.person.Restore(run.main.Window);
  EXPECT_TRUE(ComesToBeLaidOut(run, 11730));
  EXPECT_TRUE(IsLaidOut(run));
}

}  // namespace
}  // namespace pixorra
