// The quiet lines for a new user.
#include <gtest/gtest.h>

#include "desktop/ShownFolders.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"

namespace pixorra {
namespace {

class HintsTest : public ProgramTest {};

TEST_F(HintsTest, ANewUserIsToldWhatToDoFirst) {
  ProgramRun& run = Started();
  run.Wait(0.2);
  const Label& strip = run.main.strip.NoFilmStripHint;
  const Label& desktop = run.main.desk.NoFolderHint;
  EXPECT_TRUE(strip.Visible());
  EXPECT_EQ(strip.Caption(), "Choose the camera, or browse for a folder of photos");
  EXPECT_TRUE(desktop.Visible());
  EXPECT_EQ(desktop.Caption(), "Show a folder to sort into");
  const Rect film{0, 0, run.main.strip.SrcThumbsWindow.Width(), run.main.strip.SrcThumbsWindow.Height()};
  EXPECT_EQ(film.Intersected(strip.Bounds()), strip.Bounds());
  EXPECT_LE(std::abs(2 * strip.Left() + strip.Width() - film.Width), 1);
  const Rect desk = run.main.desk.DesktopImage.Bounds();
  EXPECT_EQ(desk.Intersected(desktop.Bounds()), desktop.Bounds());
}

TEST_F(HintsTest, EachIsGoneWhileThereIsSomethingToShowAndComesBack) {
  drive.Write("C:\\Card\\A.JPG", JpegPhoto(40, 30));
  drive.MakeFolder("C:\\Home\\Family");
  ProgramRun& run = Started();
  MainForm& main = run.main;
  main.strip.NoFilmStrip = false;
  main.strip.SrcFileList.SetPath("C:\\Card");
  run.LoadAll();
  EXPECT_FALSE(main.strip.NoFilmStripHint.Visible());
  EXPECT_TRUE(main.desk.NoFolderHint.Visible());
  main.desk.OpenFolderIndex = Display_a_New_Folder(main, "C:\\Home\\Family");
  run.Wait(0.1);
  EXPECT_FALSE(main.desk.NoFolderHint.Visible());
  Remove_Open_Folder(main);
  run.Wait(0.1);
  EXPECT_TRUE(main.desk.NoFolderHint.Visible());
}

}  // namespace
}  // namespace pixorra
