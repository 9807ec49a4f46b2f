// What a screen reader is told of the main window's controls.
#include "tests/app/SpokenTest.h"

#include "filmstrip/Marks.h"
#include "preview/PreviewPane.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

TEST_F(SpokenTest, APhotoOfTheStripSaysItsNameAndWhetherItHasBeenDragged) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  EXPECT_EQ(Name(strip.SrcThumbnail(1)), "a.jpg, not dragged");
  MarkDragged(run.main, strip.SrcThumbnail(1));
  EXPECT_EQ(Name(strip.SrcThumbnail(1)), "a.jpg, dragged");
  EXPECT_EQ(Name(strip.SrcThumbnail(2)), "b.jpg, not dragged");
  EXPECT_EQ(Name(strip.SrcBackground(1)), "") << "its frame is a part of it";
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

// A screen reader that walks along the strip asks each photo once.
TEST_F(SpokenTest, APhotosPlaceIsKnownWithoutALookAtAnyOther) {
  constexpr int Count = 120;
  for (int i = 1; i <= Count; ++i) drive.Write("C:\\Many\\p" + std::to_string(1000 + i) + ".bmp", BmpPhoto(8, 8));
  WriteSavedState(StateLines("C:\\Many", {}));
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  const auto expectPlaces = [&] {
    for (int i = 1; i <= Count; ++i) EXPECT_EQ(Place(strip.SrcThumbnail(i)), std::pair(i, Count));
  };
  expectPlaces();
  run.person.MoveBar(strip.SrcScrollbar, strip.SrcScrollbar.Max());
  ASSERT_EQ(strip.SrcPageBase, 100);
  expectPlaces();
  MarkDragged(run.main, strip.SrcThumbnail(7));
  run.person.Click(strip.RemainingOption);
  EXPECT_EQ(Place(strip.SrcThumbnail(6)), std::pair(6, Count - 1));
  EXPECT_EQ(Place(strip.SrcThumbnail(7)).first, 0) << "it is not shown";
  EXPECT_EQ(Place(strip.SrcThumbnail(8)), std::pair(7, Count - 1));
  for (int i = 1; i < Count; ++i) strip.SrcThumbnail.Unload(i);
  EXPECT_EQ(Place(strip.SrcThumbnail(Count)), std::pair(Count - 1, Count - 1));
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

TEST_F(SpokenTest, APhotoSaysThatItIsTheSelectedOne) {
  ProgramRun& run = Started();
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  DesktopState& desk = run.main.desk;
  const auto isChosen = [](const Control& photo) { return photo.On().SpokenPlace(photo).Chosen; };
  run.person.Click(strip.SrcThumbnail(2));
  EXPECT_TRUE(isChosen(strip.SrcThumbnail(2)));
  EXPECT_FALSE(isChosen(strip.SrcThumbnail(1)));
  EXPECT_FALSE(isChosen(desk.DestThumbnail(1)));
  run.person.Click(desk.DestThumbnail(1));
  EXPECT_FALSE(isChosen(strip.SrcThumbnail(2)));
  EXPECT_TRUE(isChosen(desk.DestThumbnail(1)));
  desk.DestThumbFrame.SetVisible(false);
  EXPECT_FALSE(isChosen(desk.DestThumbnail(1)));
}

TEST_F(SpokenTest, ASelectionThatHasNoPhotoIsNotFollowed) {
  ProgramRun& run = Started();
  run.LoadAll();
  DesktopState& desk = run.main.desk;
  run.person.Click(desk.DestThumbnail(1));
  for (const char* cell : {"99", "0", "", "no number"}) {
    desk.DestThumbFrame.SetTag(cell);
    EXPECT_EQ(run.main.Window.On().SpokenChoice(run.main.Window), nullptr) << cell;
  }
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
