// A folder or a photo that the program was started with, or that a later start has handed over.
#include <gtest/gtest.h>

#include "app/GivenPath.h"
#include "browse/BrowseFolderLocationForm.h"
#include "filmstrip/Scrolling.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DropState.h"
#include "window/ModelessForms.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr const char* CardFolder = "C:\\Home\\Card";
constexpr const char* NotSelected = "WARNING: Unable to Select Film Strip";

class GivenPathTest : public ProgramTest {
 protected:
  // So many photos, named p001.bmp and so on.
  void MakeCard(int count) {
    drive.MakeFolder(CardFolder);
    for (int i = 1; i <= count; ++i) drive.Write(Photo(i), BmpPhoto(8, 8));
  }
  static std::string Photo(int number) {
    const std::string digits = std::to_string(1000 + number).substr(1);
    return std::string(CardFolder) + "\\p" + digits + ".bmp";
  }
  ProgramRun& StartedWith(const std::string& path) {
    ProgramRun& run = NewRun();
    given_ = std::make_unique<GivenPath>(run.main);
    given_->Give(path);
    run.Start();
    run.Wait(0.3);
    return run;
  }
  void Give(ProgramRun& run, const std::string& path) {
    given_->Give(path);
    run.Wait(0.3);
  }
  ~GivenPathTest() override { given_.reset(); }

  std::unique_ptr<GivenPath> given_;
};

TEST_F(GivenPathTest, TheFolderOfTheStartBecomesTheFilmStrip) {
  MakeCard(3);
  ProgramRun& run = StartedWith(CardFolder);
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3);
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "Card");
  EXPECT_EQ(run.main.strip.PreviousList.List(0), CardFolder);
  EXPECT_TRUE(given_->IsDone());
}

TEST_F(GivenPathTest, AFinalBackslashAndOtherLettersCaseLeadToTheSameFolder) {
  MakeCard(1);
  ProgramRun& run = StartedWith("C:\\HOME\\card\\");
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), CardFolder);
}

TEST_F(GivenPathTest, ItIsTakenInsteadOfTheStripOfTheRunBefore) {
  MakeCard(2);
  drive.Write("C:\\Strip\\a.bmp", BmpPhoto(8, 8));
  WriteSavedState(StateLines("C:\\Strip", {}));
  ProgramRun& run = StartedWith(CardFolder);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), CardFolder);
}

// Read anew, the strip's photos count as not dragged.
TEST_F(GivenPathTest, TheFilmStripsOwnFolderIsReadAnewOnlyWhenThatIsWanted) {
  MakeCard(2);
  for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
    WriteSavedState(StateLines(CardFolder, {}));
    ProgramRun& run = Started();
    given_ = std::make_unique<GivenPath>(run.main);
    run.LoadAll();
    if (answer == BoxAnswer::No) run.person.DoubleClick(run.main.strip.SrcThumbName(2));
    ASSERT_TRUE(IsMarked(run.main.strip, 2));
    drive.Write(Photo(3), BmpPhoto(8, 8));
    run.person.ExpectBox("The Film Strip has not changed", "Do you want to refresh the Film Strip?", answer);
    Give(run, CardFolder);
    run.LoadAll();
    EXPECT_TRUE(given_->IsDone());
    EXPECT_EQ(run.main.strip.SrcSlotCount, answer == BoxAnswer::Yes ? 3 : 2);
    EXPECT_EQ(IsMarked(run.main.strip, 2), answer == BoxAnswer::No);
    drive.Remove(Photo(3));
    given_.reset();
  }
}

TEST_F(GivenPathTest, AFolderOfTheDesktopIsMovedUpOnlyWhenThatIsWanted) {
  MakeCard(2);
  WriteSavedState(StateLines("", {CardFolder}));
  ProgramRun& run = NewRun();
  given_ = std::make_unique<GivenPath>(run.main);
  given_->Give(Photo(1));
  run.person.ExpectBox("Already Selected as a Folder [Card]", "move the folder up", BoxAnswer::No);
  run.Start();
  run.Wait(0.5);
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
  EXPECT_EQ(run.main.desk.FoldersShown, 1);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), "");
  run.person.ExpectBox("Already Selected as a Folder [Card]", "move the folder up", BoxAnswer::Yes);
  Give(run, Photo(1));
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), CardFolder);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 2);
  EXPECT_EQ(run.main.desk.FoldersShown, 0);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Photo(1));
}

TEST_F(GivenPathTest, APhotosFolderIsTakenAndThePhotoSelectedAndScrolledTo) {
  MakeCard(60);
  ProgramRun& run = StartedWith(Photo(50));
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), CardFolder);
  // The pane does not wait for the thumbnails before it.
  EXPECT_LT(run.main.strip.SrcSlotCount, 50);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Photo(50));
  run.LoadAll();
  run.Wait(0.2);
  const FilmStripState& strip = run.main.strip;
  EXPECT_TRUE(strip.SrcThumbFrame.Visible());
  ASSERT_EQ(PhotoOf(strip, SelectedSlot(strip)), Photo(50));
  const int left = strip.SrcBackground(SelectedSlot(strip)).Left() + strip.SrcCanvas.Left();
  EXPECT_GE(left, 0);
  EXPECT_LT(left, strip.SrcThumbsWindow.Width());
  EXPECT_TRUE(given_->IsDone());
}

TEST_F(GivenPathTest, WhoSelectsAnotherPhotoMeanwhileKeepsIt) {
  MakeCard(60);
  ProgramRun& run = StartedWith(Photo(50));
  ASSERT_GT(run.main.strip.SrcSlotCount, 0);
  run.person.Click(run.main.strip.SrcThumbnail(1));
  run.LoadAll();
  run.Wait(0.2);
  EXPECT_EQ(SelectedSlot(run.main.strip), 1);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Photo(1));
  EXPECT_TRUE(given_->IsDone());
}

TEST_F(GivenPathTest, AnotherPhotoOfTheStripIsSelectedWithoutAQuestion) {
  MakeCard(5);
  ProgramRun& run = StartedWith(Photo(2));
  run.LoadAll();
  Give(run, Photo(4));
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Photo(4));
  EXPECT_EQ(SelectedSlot(run.main.strip), 4);
  // One that has come since.
  drive.Write(Photo(6), BmpPhoto(8, 8));
  Give(run, Photo(6));
  run.LoadAll();
  run.Wait(0.2);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Photo(6));
}

TEST_F(GivenPathTest, APhotoThatIsHiddenAsDraggedIsShownFirst) {
  MakeCard(5);
  ProgramRun& run = StartedWith(CardFolder);
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  run.person.DoubleClick(strip.SrcThumbName(2));
  run.person.Click(strip.RemainingOption);
  ASSERT_FALSE(strip.SrcThumbnail(2).Visible());
  // One that remains is selected in the view as it is.
  Give(run, Photo(4));
  EXPECT_TRUE(strip.RemainingOption.Value());
  EXPECT_EQ(strip.SrcThumbFrame.Left(), strip.SrcThumbnail(4).Left());
  Give(run, Photo(2));
  EXPECT_TRUE(strip.AllOption.Value());
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Photo(2));
  EXPECT_EQ(SelectedSlot(strip), 2);
  EXPECT_TRUE(strip.SrcThumbnail(2).Visible());
  EXPECT_TRUE(strip.SrcThumbFrame.Visible());
  EXPECT_EQ(strip.SrcThumbFrame.Left(), strip.SrcThumbnail(2).Left());
  EXPECT_TRUE(IsInView(strip, 2));
}

TEST_F(GivenPathTest, APhotoOfWhichOnlyAnEdgeIsInViewIsScrolledTo) {
  MakeCard(60);
  ProgramRun& run = StartedWith(CardFolder);
  run.LoadAll();
  FilmStripState& strip = run.main.strip;
  for (const int moved : {10, SrcFrameWidth - 10}) {  // pixels that the first frame in sight has lost
    run.person.MoveBar(strip.SrcScrollbar, (20 * SrcFrameWidth + moved) / strip.SrcBarScale.Unit);
    int cut = 1;
    while (strip.SrcBackground(cut).Left() + strip.SrcCanvas.Left() + SrcFrameWidth <= 0) ++cut;
    ASSERT_FALSE(IsInView(strip, cut));
    Give(run, Photo(cut));
    EXPECT_EQ(SelectedSlot(strip), cut);
    EXPECT_TRUE(IsInView(strip, cut)) << moved;
  }
  // One that is wholly in view stays where it is.
  const int before = strip.SrcScrollbar.Value();
  Give(run, Photo(SelectedSlot(strip) + 1));
  EXPECT_EQ(strip.SrcScrollbar.Value(), before);
}

TEST_F(GivenPathTest, ACardWhosePhotosAreInOneFolderGivesThatFolder) {
  for (const char* folder : {"100ABCDE", "101ABCDE", "MISC"})
    drive.MakeFolder(std::string("C:\\Media\\Card\\dcim\\") + folder);
  drive.Write("C:\\Media\\Card\\dcim\\101ABCDE\\a.bmp", BmpPhoto(8, 8));
  drive.Write("C:\\Media\\Card\\dcim\\MISC\\notes.txt", "notes");
  ProgramRun& run = StartedWith("C:\\Media\\Card\\");
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Media\\Card\\dcim\\101ABCDE");
  EXPECT_EQ(run.main.strip.SrcSlotCount, 1);
  EXPECT_EQ(run.person.Window("BrowseFolderLocationForm"), nullptr);
  // Its question comes as for any other folder.
  run.person.ExpectBox("The Film Strip has not changed", "refresh", BoxAnswer::No);
  Give(run, "C:\\Media\\Card");
}

TEST_F(GivenPathTest, ACardWhosePhotosAreInSeveralFoldersOpensTheBrowserThere) {
  for (const char* folder : {"100ABCDE", "101ABCDE"})
    drive.Write(std::string("C:\\Media\\Card\\DCIM\\") + folder + "\\a.bmp", BmpPhoto(8, 8));
  ProgramRun& run = StartedWith("C:\\Media\\Card");
  run.Wait(0.2);
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
  EXPECT_TRUE(given_->IsDone());
  const auto& browser = run.main.modeless.Get<BrowseFolderLocationForm>(run.main);
  EXPECT_TRUE(browser.IsRunning());
  EXPECT_EQ(browser.SelectButton.Caption(), "Select Film Strip");
  EXPECT_EQ(browser.File1.Path(), "C:\\Media\\Card\\DCIM");
  EXPECT_EQ(browser.PreviousList.Text(), "C:\\Media\\Card\\DCIM");
  // A browser that is open already goes there.
  run.person.Close(*run.person.Window("BrowseFolderLocationForm"));
  ShowBrowser(run.main, BrowseMode::Show);
  run.Wait(0.2);
  Give(run, "C:\\Media\\Card");
  run.Wait(0.2);
  EXPECT_EQ(browser.SelectButton.Caption(), "Select Film Strip");
  EXPECT_EQ(browser.File1.Path(), "C:\\Media\\Card\\DCIM");
}

TEST_F(GivenPathTest, WhatTheBrowserWasToDoWithAFolderItStillLookedForIsNotDoneWithACard) {
  for (const char* folder : {"100ABCDE", "101ABCDE"})
    drive.Write(std::string("C:\\Media\\Card\\DCIM\\") + folder + "\\a.bmp", BmpPhoto(8, 8));
  drive.MakeFolder("C:\\Other");
  ProgramRun& run = Started();
  run.main.strip.PreviousList.AddItem("C:\\Other");
  ShowBrowser(run.main, BrowseMode::FilmStrip);
  run.Wait(0.2);
  auto& browser = run.main.modeless.Get<BrowseFolderLocationForm>(run.main);
  browser.PreviousList.SetListIndex(0);
  Raise(browser.SelectButton.On().Click, static_cast<Control&>(browser.SelectButton));
  ASSERT_TRUE(browser.IsRunning());
  ShowBrowserAt(run.main, "C:\\Media\\Card\\DCIM");
  run.Wait(0.3);
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
  EXPECT_TRUE(browser.IsRunning());
}

TEST_F(GivenPathTest, APhotoThatNoListShowsStillMeansItsOwnFolder) {
  drive.Write("C:\\Media\\Card\\.a.bmp", BmpPhoto(8, 8));
  drive.Write("C:\\Media\\Card\\DCIM\\100ABCDE\\a.bmp", BmpPhoto(8, 8));
  ProgramRun& run = StartedWith("C:\\Media\\Card\\.a.bmp");
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Media\\Card");
}

TEST_F(GivenPathTest, PhotosInTheCardsOwnFolderCountAsAFolderToo) {
  drive.Write("C:\\Media\\Card\\DCIM\\a.bmp", BmpPhoto(8, 8));
  drive.MakeFolder("C:\\Media\\Card\\DCIM\\100ABCDE");
  ProgramRun& run = StartedWith("C:\\Media\\Card");
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Media\\Card\\DCIM");
  drive.Write("C:\\Media\\Card\\DCIM\\100ABCDE\\a.bmp", BmpPhoto(8, 8));
  Give(run, "C:\\Media\\Card");
  EXPECT_TRUE(run.main.modeless.Get<BrowseFolderLocationForm>(run.main).IsRunning());
}

TEST_F(GivenPathTest, ACardWhoseFoldersOfPhotosCannotBeReadOpensTheBrowser) {
  drive.Write("C:\\Media\\Card\\DCIM\\100ABCDE\\a.bmp", BmpPhoto(8, 8));
  ProgramRun& run = Started();
  given_ = std::make_unique<GivenPath>(run.main);
  run.files.FailAlways(FileCall::Folders, error::PathAccess, "DCIM");
  Give(run, "C:\\Media\\Card");
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
  EXPECT_NE(run.person.Window("BrowseFolderLocationForm"), nullptr);
}

TEST_F(GivenPathTest, AFolderWithPhotosOfItsOwnOrWithoutAnyIsTakenItself) {
  drive.Write("C:\\Own\\a.bmp", BmpPhoto(8, 8));
  drive.Write("C:\\Own\\DCIM\\100ABCDE\\a.bmp", BmpPhoto(8, 8));
  drive.MakeFolder("C:\\Blank\\DCIM\\100ABCDE");
  drive.MakeFolder("C:\\Bare");
  ProgramRun& run = Started();
  given_ = std::make_unique<GivenPath>(run.main);
  for (const char* folder : {"C:\\Own", "C:\\Blank", "C:\\Bare", "C:\\Own\\DCIM"}) {
    Give(run, folder);
    EXPECT_EQ(run.main.strip.SrcFileList.Path(), folder);
  }
}

TEST_F(GivenPathTest, APhotoThatGoesBeforeItsThumbnailIsLoadedIsWaitedForNoLonger) {
  MakeCard(60);
  ProgramRun& run = StartedWith(Photo(50));
  ASSERT_LT(run.main.strip.SrcSlotCount, 50);
  drive.Remove(Photo(50));
  run.main.strip.SrcFileList.Refresh();
  run.LoadAll();
  run.Wait(0.2);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 59);
  EXPECT_TRUE(given_->IsDone());
}

TEST_F(GivenPathTest, WhatIsEditedOutsideIsLookedAtNoLonger) {
  MakeCard(2);
  ProgramRun& run = StartedWith(Photo(1));
  run.LoadAll();
  drive.MakeFolder("C:\\Other");
  run.main.preview.bPicEdited = true;
  Give(run, "C:\\Other");
  EXPECT_FALSE(run.main.preview.bPicEdited);
}

TEST_F(GivenPathTest, WhatIsEditedOutsideIsLookedAtNoLongerForACardOrAnotherPhotoOfTheStrip) {
  MakeCard(2);
  for (const char* folder : {"100ABCDE", "101ABCDE"})
    drive.Write(std::string("C:\\Media\\Card\\DCIM\\") + folder + "\\a.bmp", BmpPhoto(8, 8));
  ProgramRun& run = StartedWith(Photo(1));
  run.LoadAll();
  for (const std::string& path : {Photo(2), std::string("C:\\Media\\Card")}) {
    run.main.preview.bPicEdited = true;
    Give(run, path);
    EXPECT_FALSE(run.main.preview.bPicEdited) << path;
  }
}

TEST_F(GivenPathTest, WhatIsEditedOutsideIsLookedAtStillWhereThePathIsRefused) {
  MakeCard(2);
  drive.Write("C:\\Home\\Card\\notes.txt", "notes");
  drive.MakeFolder("C:\\Locked");
  ProgramRun& run = StartedWith(Photo(1));
  run.LoadAll();
  run.files.FailAlways(FileCall::Names, error::PathAccess, "Locked");
  run.main.preview.bPicEdited = true;
  for (const char* path : {"C:\\Home\\Nowhere", "C:\\Home\\Card\\notes.txt", "C:\\Locked"}) {
    run.person.ExpectBox(NotSelected, "");
    Give(run, path);
    EXPECT_TRUE(run.main.preview.bPicEdited) << path;
  }
  run.person.ExpectBox("The Film Strip has not changed", "refresh", BoxAnswer::No);
  Give(run, CardFolder);
  EXPECT_TRUE(run.main.preview.bPicEdited) << "the answer is no";
}

TEST_F(GivenPathTest, APhotoOfATypeThatIsNotShownIsNotSelectedButItsFolderIsTaken) {
  MakeCard(2);
  SavedState saved;
  saved.Bitmap = false;
  WriteSavedState(saved);
  ProgramRun& run = StartedWith(Photo(2));
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), CardFolder);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), "");
  EXPECT_TRUE(given_->IsDone());
}

TEST_F(GivenPathTest, WhatIsNotThereIsToldAndTheProgramGoesOn) {
  ProgramRun& run = NewRun();
  given_ = std::make_unique<GivenPath>(run.main);
  given_->Give("C:\\Home\\Nowhere");
  run.person.ExpectBox(NotSelected, "C:\\Home\\Nowhere\ncannot be found or opened.");
  run.Start();
  run.Wait(0.3);
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
  for (const char* path : {"no path", "Q:\\DCIM", "C:\\Home\\Nowhere\\a.jpg"}) {
    run.person.ExpectBox(NotSelected, "cannot be found or opened.");
    Give(run, path);
  }
  EXPECT_TRUE(run.main.Window.Visible());
}

TEST_F(GivenPathTest, TheRootOfADriveIsAFolderLikeAnyOther) {
  drive.Write("C:\\a.bmp", BmpPhoto(8, 8));
  ProgramRun& run = StartedWith("C:\\");
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\");
  EXPECT_EQ(run.main.strip.SrcSlotCount, 1);
}

TEST_F(GivenPathTest, AFileThatIsNoPhotoIsTold) {
  MakeCard(1);
  drive.Write("C:\\Home\\Card\\notes.txt", "notes");
  ProgramRun& run = StartedWith(CardFolder);
  run.person.ExpectBox(NotSelected, "notes.txt\nis not a photo that Pixorra can show.");
  Give(run, "C:\\Home\\Card\\notes.txt");
}

TEST_F(GivenPathTest, AFolderThatCannotBeReadIsTold) {
  MakeCard(1);
  ProgramRun& run = Started();
  given_ = std::make_unique<GivenPath>(run.main);
  run.files.FailAlways(FileCall::Names, error::PathAccess, "Card");
  run.person.ExpectBox(NotSelected, "Card\ncannot be read.");
  Give(run, CardFolder);
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
}

TEST_F(GivenPathTest, ANameThatIsNoTextIsTaken) {
  const std::string name =
      "C:\\Home\\\xEF\x9F\xBF"
      "dd";  // the byte FF, as the program spells it
  drive.Write(name + "\\a b.bmp", BmpPhoto(8, 8));
  ProgramRun& run = StartedWith(name + "\\a b.bmp");
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), name);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), name + "\\a b.bmp");
}

TEST_F(GivenPathTest, WhileADialogIsUpItWaitsAndTheLastOneIsTaken) {
  MakeCard(2);
  drive.Write("C:\\Strip\\a.bmp", BmpPhoto(8, 8));
  ProgramRun& run = StartedWith("C:\\Strip");
  run.person.ExpectBox("Title", "Text", BoxAnswer::Ok, [&] {
    Give(run, "C:\\Home");
    Give(run, CardFolder);
    run.Wait(2);
    EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Strip");
    EXPECT_FALSE(given_->IsDone());
  });
  run.platform.dialogs.MsgBox("Text", BoxIcon::Information, BoxButtons::Ok, "Title");
  run.Wait(0.3);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), CardFolder);
}

TEST_F(GivenPathTest, WhilePhotosAreDroppedItWaits) {
  MakeCard(2);
  ProgramRun& run = Started();
  given_ = std::make_unique<GivenPath>(run.main);
  run.main.drop.DropAllRunning = true;
  Give(run, CardFolder);
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
  run.main.drop.DropAllRunning = false;
  run.Wait(0.3);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), CardFolder);
}

TEST_F(GivenPathTest, AnEndThatIsAskedForMeanwhileTakesNothingMore) {
  MakeCard(2);
  ProgramRun& run = Started();
  given_ = std::make_unique<GivenPath>(run.main);
  given_->Give(CardFolder);
  run.platform.toolkit.AskToEnd();
  run.Wait(1);
  EXPECT_TRUE(run.platform.toolkit.Ended());
  EXPECT_EQ(drive.Read("C:\\Windows\\Pixorra.sav").find("Card"), std::string::npos);
}

}  // namespace
}  // namespace pixorra
