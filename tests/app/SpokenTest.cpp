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
  static std::pair<int, int> Place(const Control& control) {
    const PlaceAmong place = control.On().SpokenPlace(control);
    return {place.Place, place.Count};
  }
  static std::vector<std::string> Actions(const Control& control) {
    std::vector<std::string> names;
    for (const NamedAction& action : control.On().SpokenActions(control)) names.push_back(action.Name);
    return names;
  }
  static void Do(const Control& control, const std::string& name) {
    for (const NamedAction& action : control.On().SpokenActions(control)) {
      if (action.Name == name) {
        action.Run();
        return;
      }
    }
    FAIL() << "no action " << name;
  }
  static std::string Description(Control& control) { return control.On().SpokenDescription(control); }
};

TEST_F(SpokenTest, APhotoOfTheStripSaysItsNameAndWhetherItHasBeenDragged) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  EXPECT_EQ(Name(strip.SrcThumbnail(1)), "a.jpg, not dragged");
  MarkDragged(run.main, strip.SrcThumbnail(1));
  EXPECT_EQ(Name(strip.SrcThumbnail(1)), "a.jpg, dragged");
  EXPECT_EQ(Name(strip.SrcThumbnail(2)), "b.jpg, not dragged");
}

TEST_F(SpokenTest, APhotoSaysItsPlaceAmongThoseThatAreShown) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  EXPECT_EQ(Place(strip.SrcThumbnail(2)), std::pair(2, 2));
  MarkDragged(run.main, strip.SrcThumbnail(1));
  run.person.Click(strip.RemainingOption);
  EXPECT_EQ(Place(strip.SrcThumbnail(2)), std::pair(1, 1));
  EXPECT_EQ(Place(run.main.desk.DestThumbnail(1)), std::pair(1, 1));
}

TEST_F(SpokenTest, TheSelectedPhotoIsWhatIsFollowed) {
  ProgramRun& run = Started();
  run.LoadAll();
  const auto followed = [&run] { return run.main.Window.On().SpokenChoice(run.main.Window); };
  EXPECT_EQ(followed(), nullptr);
  run.person.Click(run.main.strip.SrcThumbnail(2));
  EXPECT_EQ(followed(), &run.main.strip.SrcThumbnail(2));
  run.person.Click(run.main.desk.DestThumbnail(1));
  EXPECT_EQ(followed(), &run.main.desk.DestThumbnail(1));
}

TEST_F(SpokenTest, APhotoIsCopiedByAnActionOfItsOwn) {
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

TEST_F(SpokenTest, AFolderTakesTheSelectedPhotoByAnActionAndTheStripAllThatRemain) {
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

TEST_F(SpokenTest, AnActionOnAPhotoThatHasGoneSinceDoesNothing) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  const std::vector<NamedAction> offered = strip.SrcThumbnail.On().SpokenActions(strip.SrcThumbnail(2));
  strip.SrcThumbnail(2).SetTag("");
  offered.front().Run();
  EXPECT_FALSE(IsMarked(strip, 2));
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
