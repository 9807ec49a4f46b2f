// What a screen reader is told of the main window's controls.
#include <gtest/gtest.h>

#include "filmstrip/Marks.h"
#include "preview/PreviewPane.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class SpokenTest : public ProgramTest {
 protected:
  SpokenTest() {
    for (const char* photo : {"C:\\Card\\a.jpg", "C:\\Card\\b.jpg", "C:\\Home\\Family\\c.jpg"}) {
      drive.Write(photo, JpegPhoto(80, 60));
    }
    drive.MakeFolder("C:\\Home\\Pets");
    WriteSavedState(StateLines("C:\\Card", {"C:\\Home\\Pets", "C:\\Home\\Family"}));
  }
  static std::string Name(Control& control) { return control.On().SpokenName(control); }
  static std::string Description(Control& control) { return control.On().SpokenDescription(control); }
};

TEST_F(SpokenTest, APhotoOfTheStripSaysItsNameAndWhetherItHasBeenDragged) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  EXPECT_EQ(Name(strip.SrcThumbnail(1)), "a.jpg, not dragged");
  EXPECT_EQ(Description(strip.SrcBackground(1)), "Double-Click to Discard Photo");
  MarkDragged(run.main, strip.SrcThumbnail(1));
  EXPECT_EQ(Name(strip.SrcThumbnail(1)), "a.jpg, dragged");
  EXPECT_EQ(Name(strip.SrcBackground(1)), "Frame of a.jpg");
  EXPECT_EQ(Description(strip.SrcBackground(1)), "Double-Click to Recover Photo");
  EXPECT_EQ(Name(strip.SrcThumbnail(2)), "b.jpg, not dragged");
}

TEST_F(SpokenTest, AFolderSaysItsNameItsCountAndWhetherItIsOpen) {
  ProgramRun& run = Started();
  run.LoadAll();
  DesktopState& desk = run.main.desk;
  EXPECT_EQ(Name(desk.DestFolder(1)), "Pets, Empty, closed");
  EXPECT_EQ(Name(desk.DestFolder(2)), "Family, 1 pics, open");
  EXPECT_EQ(Description(desk.DestFolder(2)), "C:\\Home\\Family");
  EXPECT_EQ(Name(desk.DestFolder(9)), "Trashcan, Empty, closed");
  EXPECT_EQ(Name(desk.DestFolderPreview(2)), "Newest photo in Family");
  EXPECT_EQ(Name(desk.DestThumbnail(1)), "c.jpg");
}

TEST_F(SpokenTest, ThePaneSaysWhatItShows) {
  ProgramRun& run = Started();
  run.LoadAll();
  EXPECT_EQ(Name(run.main.preview.PicPreview), "Preview, empty");
  PaintPicPreview(run.main, run.main.strip.SrcThumbnail(2).Tag());
  EXPECT_EQ(Name(run.main.preview.PicPreview), "Preview of b.jpg");
}

}  // namespace
}  // namespace pixorra
