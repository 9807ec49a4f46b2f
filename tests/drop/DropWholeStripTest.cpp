// The drag of the whole film strip: what it copies, how it is stopped, and what may happen meanwhile.
#include <gmock/gmock.h>

#include "drop/DragGestures.h"
#include "platform/runtime/Errors.h"
#include "tests/drop/DropTest.h"
#include "window/DropState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* StopTitle = "Dragging ALL remaining Photos";

using DropWholeStripTest = DropTest;

TEST_F(DropWholeStripTest, EveryPhotoIsCopiedAndTheLastOneIsRemembered) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) EXPECT_EQ(BytesIn("F", name), drive.Read(Photo(name)));
  EXPECT_EQ(CountOf(1), "3 pics");
  EXPECT_EQ(main.drop.LastDropSrcIndex, 3);
  EXPECT_FALSE(main.drop.DropAllRunning);
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(DropWholeStripTest, PhotosMarkedAlreadyAreSkipped) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  Show("G");
  person.Drag(strip.SrcThumbnail(2), desk.DestFolder(1));
  person.Drag(strip.AllButton, desk.DestFolder(2));
  EXPECT_TRUE(Has("G", "a.bmp"));
  EXPECT_FALSE(Has("G", "b.bmp"));
  EXPECT_TRUE(Has("G", "c.bmp"));
}

TEST_F(DropWholeStripTest, WithAllPhotosMarkedItDoesNothingHourglassAside) {
  LoadStrip({"a.bmp"});
  Show("F");
  Show("G");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  const std::string last = main.drop.LastDropFile;
  person.Drag(strip.AllButton, desk.DestFolder(2));
  EXPECT_FALSE(Has("G", "a.bmp"));
  EXPECT_EQ(main.drop.LastDropFile, last);
}

TEST_F(DropWholeStripTest, OnAnEmptyFilmStripItReturnsAtOnceWithoutHourglass) {
  Show("F");
  main.drop.DropAllAbort = true;
  main.Window.SetMousePointer(pointer::Arrow);
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(main.Window.MousePointer(), pointer::Arrow);
  EXPECT_FALSE(main.drop.DropAllAbort);
}

TEST_F(DropWholeStripTest, APhotoDeletedBehindTheProgramsBackIsToldAndTheLoopGoesOn) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  drive.Remove(Photo("b.bmp"));
  person.ExpectBox(CopyFailed, "C:\\Home\\F");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_FALSE(IsMarked(2));
  EXPECT_TRUE(IsMarked(3));
}

TEST_F(DropWholeStripTest, DeadSlotsAreSkipped) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  strip.SrcThumbnail(1).SetTag("");
  main.preferences.RenameAlwaysOption.SetValue(true);
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_FALSE(Has("F", "PXR00001"));
}

TEST_F(DropWholeStripTest, EscapeStopsItAfterThePhotoInWork) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  person.During([this] { person.Type("\x1b"); });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_FALSE(IsMarked(2));
  EXPECT_FALSE(main.drop.DropAllRunning);
  // The same gesture carries on with what remains.
  person.Drag(strip.AllButton, desk.DestFolderPreview(1));
  EXPECT_EQ(CountOf(1), "3 pics");
}

TEST_F(DropWholeStripTest, EscThatClosesAFailuresBoxStopsTheRunToo) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  run.files.FailAlways(FileCall::Write, error::DiskFull, "C:\\Home\\F");
  person.ExpectBox(CopyFailed, "C:\\Home\\F", BoxAnswer::Cancel);
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_FALSE(main.drop.DropAllRunning);
  // The same gesture begins again, with all three.
  run.files.Heal();
  person.Drag(strip.AllButton, desk.DestFolderPreview(1));
  for (int i = 1; i <= 3; ++i) EXPECT_TRUE(IsMarked(i)) << i;
}

TEST_F(DropWholeStripTest, ABoxThatItsButtonClosesLetsTheRunGoOn) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  run.files.FailAlways(FileCall::Write, error::DiskFull, "C:\\Home\\F");
  person.ExpectBox(CopyFailed, "C:\\Home\\F");
  person.ExpectBox(CopyFailed, "C:\\Home\\F");
  person.Drag(strip.AllButton, desk.DestFolder(1));
}

TEST_F(DropWholeStripTest, EscStopsTheRunAlsoWhereItsFolderHasGone) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  drive.Remove(Folder("F"));
  person.ExpectBox("WARNING: Can't drop photo into this folder", "Folder not found", BoxAnswer::Cancel);
  person.ExpectBox("Pixorra - Unable to Open folder", "Folder Not Found");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(main.drop.DropAllAbort);
}

TEST_F(DropWholeStripTest, PressingTheButtonDuringTheRunAsksAndYesStopsIt) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  person.ExpectBox(StopTitle, "Do you want to STOP this process?", BoxAnswer::Yes);
  person.During([this] {
    EXPECT_TRUE(main.drop.DropAllRunning);
    EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
    person.Click(strip.AllButton);
  });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_FALSE(IsMarked(2));
}

TEST_F(DropWholeStripTest, NoLetsTheRunGoOn) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  person.ExpectBox(StopTitle, "Do you want to STOP this process?", BoxAnswer::No);
  person.During([this] { person.Click(strip.AllButton); });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), "2 pics");
}

TEST_F(DropWholeStripTest, ASinglePhotoDroppedDuringTheRunIsCopiedAndTheRunGoesOn) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  Show("G");
  person.During([this] {
    main.drop.DropAllAbort = true;
    person.Drag(strip.SrcThumbnail(3), desk.DestFolder(2));
    EXPECT_FALSE(main.drop.DropAllAbort);
    EXPECT_TRUE(main.drop.DropAllRunning);
    EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
  });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(Has("G", "c.bmp"));
  EXPECT_TRUE(Has("F", "b.bmp"));
  EXPECT_FALSE(Has("F", "c.bmp"));
}

TEST_F(DropWholeStripTest, AStripThatIsChangedDuringTheRunEndsIt) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  for (const char* name : {"x.bmp", "y.bmp", "z.bmp"}) MakePhoto(std::string("C:\\Other\\") + name);
  Show("F");
  person.During([this] {
    strip.SrcFileList.SetPath("C:\\Other");
    run.Wait(0.04);
    run.LoadAll();
  });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(Has("F", "a.bmp"));
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_FALSE(Has("F", "y.bmp"));
}

TEST_F(DropWholeStripTest, AFolderTakenOffDuringTheRunEndsIt) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  person.During([this] {
    Select_a_Folder(main, 1);
    Remove_Open_Folder(main);
    Show("G");
  });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(Has("F", "a.bmp"));
  EXPECT_FALSE(Has("F", "b.bmp"));
  EXPECT_FALSE(Has("G", "b.bmp"));
}

TEST_F(DropWholeStripTest, ClosingTheWindowDuringTheRunEndsIt) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  person.During([this] { run.Close(); });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_TRUE(Has("F", "a.bmp"));
  EXPECT_FALSE(Has("F", "b.bmp"));
  EXPECT_FALSE(main.Window.IsLoaded());
}

TEST_F(DropWholeStripTest, TheStripRunsAlongWithTheWork) {
  std::vector<std::string> names;
  for (char name = 'a'; name <= 'r'; ++name) names.push_back(std::string(1, name) + ".bmp");
  LoadStrip(names);
  Show("F");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), "18 pics");
  // As far as the bar reaches: the last assignments lay beyond its end.
  EXPECT_GT(strip.SrcScrollbar.Value(), 300);
}

TEST_F(DropWholeStripTest, WhileThumbnailsAreLoadingTheDragIsWarnedAboutAndGetsNoReel) {
  LoadStrip({"a.bmp", "b.bmp"});
  MakePhoto(Photo("c.bmp"));
  strip.ThumbsTimer.SetEnabled(false);
  strip.SrcFileList.Refresh();
  Show("F");
  person.ExpectBox("WARNING: Can't Drag Film Strip yet.",
                   "The thumbnails are still loading.\nWait until it is finished loading, then try again.");
  person.Press(strip.AllButton);
  EXPECT_TRUE(strip.AllButton.DragIcon().IsNothing());
  person.Release();
}

}  // namespace
}  // namespace pixorra
