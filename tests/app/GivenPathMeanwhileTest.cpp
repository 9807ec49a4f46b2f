// What a folder or photo that a later start hands over does to what is going on in the window, and what goes on before
// its thumbnail is there.
#include <gtest/gtest.h>

#include "app/GivenPath.h"
#include "browse/FolderChoices.h"
#include "desktop/FolderRename.h"
#include "filmstrip/Listing.h"
#include "platform/runtime/Errors.h"
#include "preview/PreviewPane.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DropState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class GivenPathMeanwhileTest : public ProgramTest {
 protected:
  static constexpr const char* Here = "C:\\Here";
  static constexpr const char* There = "C:\\There";

  // So many photos in either folder; the strip shows the first one.
  ProgramRun& StartedHere(int here, int there, bool loaded = true) {
    drive.MakeFolder("C:\\Family");
    for (int i = 1; i <= here; ++i) drive.Write(Of(Here, i), BmpPhoto(8, 8));
    for (int i = 1; i <= there; ++i) drive.Write(Of(There, i), BmpPhoto(8, 8));
    WriteSavedState(StateLines(Here, {"C:\\Family"}));
    ProgramRun& run = Started();
    loaded ? run.LoadAll() : run.Wait(0.1);
    given_ = std::make_unique<GivenPath>(run.main);
    return run;
  }
  ~GivenPathMeanwhileTest() override { given_.reset(); }

  static std::string Of(const std::string& folder, int number) {
    return folder + "\\q" + std::to_string(1000 + number).substr(1) + ".bmp";
  }
  void Give(ProgramRun& run, const std::string& path) {
    given_->Give(path);
    run.Wait(0.3);
  }
  // It waits while the flag is set, and is taken afterwards.
  void ExpectToWaitFor(ProgramRun& run, bool& flag) {
    flag = true;
    Give(run, There);
    run.Wait(1);
    EXPECT_EQ(run.main.strip.SrcFileList.Path(), Here);
    flag = false;
    run.Wait(0.3);
    EXPECT_EQ(run.main.strip.SrcFileList.Path(), There);
  }
  static void DeleteSelected(ProgramRun& run, const Person::Action& whileOpen = {}) {
    run.person.ExpectForm("DeleteSelectedForm", [](Person& hand, Form& form) {
      for (Control* control : form.Controls())
        if (control->Name() == "DeleteButton") hand.Click(*control);
    });
    run.person.ChooseMenu(run.main.menu.DeleteMenuItem, whileOpen);
  }

  std::unique_ptr<GivenPath> given_;
};

TEST_F(GivenPathMeanwhileTest, WhilePhotosArePrintedItWaits) {
  ProgramRun& run = StartedHere(2, 2);
  ExpectToWaitFor(run, run.main.core.PrintJobRuns);
}

TEST_F(GivenPathMeanwhileTest, WhileOnePhotoIsDroppedItWaits) {
  ProgramRun& run = StartedHere(2, 2);
  ExpectToWaitFor(run, run.main.drop.DropRunning);
}

TEST_F(GivenPathMeanwhileTest, AMenuThatIsOpenActsOnThePhotoThatItWasOpenedFor) {
  ProgramRun& run = StartedHere(3, 0);
  run.person.Click(run.main.strip.SrcThumbnail(1));
  DeleteSelected(run, [&] {
    Give(run, Of(Here, 3));
    run.Wait(1);
    EXPECT_EQ(PhotoOf(run.main.strip, SelectedSlot(run.main.strip)), Of(Here, 1));
  });
  EXPECT_FALSE(drive.Exists(Of(Here, 1)));
  EXPECT_TRUE(drive.Exists(Of(Here, 3)));
  run.Wait(0.3);
  EXPECT_EQ(PhotoOf(run.main.strip, SelectedSlot(run.main.strip)), Of(Here, 3));
}

TEST_F(GivenPathMeanwhileTest, WhileAFoldersMenuIsOpenItWaits) {
  ProgramRun& run = StartedHere(2, 2);
  run.person.ExpectMenu(run.main.menu.FolderPopupMenu, [&] {
    Give(run, There);
    run.Wait(1);
    EXPECT_EQ(run.main.strip.SrcFileList.Path(), Here);
  });
  run.person.RightClick(run.main.desk.DestFolder(1));
  run.Wait(0.3);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), There);
}

TEST_F(GivenPathMeanwhileTest, AFolderKeepsItsNameUntilTheNewOneIsTypedToItsEnd) {
  ProgramRun& run = StartedHere(2, 2);
  RenameFolderStart(run.main, 1);
  ASSERT_TRUE(IsFolderBeingRenamed(run.main.desk));
  run.person.Type("Hol");
  Give(run, There);
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), Here);
  EXPECT_TRUE(drive.Exists("C:\\Family"));
  run.person.Type("iday");
  run.person.Key(key::Return);
  run.Wait(0.5);
  EXPECT_TRUE(drive.Exists("C:\\Holiday"));
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), There);
}

TEST_F(GivenPathMeanwhileTest, NoKeyDropsThePhotoSelectedBeforeInstead) {
  ProgramRun& run = StartedHere(60, 0, false);
  ASSERT_GE(run.main.strip.SrcSlotCount, 1);
  run.person.Click(run.main.strip.SrcThumbnail(1));
  Give(run, Of(Here, 60));
  ASSERT_EQ(run.main.preview.PicPreview.Tag(), Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  run.person.Key('1');
  EXPECT_EQ(run.main.drop.LastDropFile, "");
  run.LoadAll();
  run.Wait(0.3);
  EXPECT_EQ(PhotoOf(run.main.strip, SelectedSlot(run.main.strip)), Of(Here, 60));
  run.person.Key('1');
  EXPECT_EQ(run.main.drop.LastDropSrcIndex, 60);
}

TEST_F(GivenPathMeanwhileTest, APhotoDeletedAheadOfItsThumbnailTakesNoOtherOutOfTheStrip) {
  ProgramRun& run = StartedHere(3, 60);
  run.person.Click(run.main.strip.SrcThumbnail(2));
  Give(run, Of(There, 60));
  ASSERT_EQ(run.main.preview.PicPreview.Tag(), Of(There, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(There, 60)), 0);
  ASSERT_GE(run.main.strip.SrcSlotCount, 2);
  DeleteSelected(run);
  EXPECT_FALSE(drive.Exists(Of(There, 60)));
  run.LoadAll();
  for (int i = 1; i < 60; ++i) EXPECT_NE(SlotOf(run.main.strip, Of(There, i)), 0) << i;
  EXPECT_EQ(SlotOf(run.main.strip, Of(There, 60)), 0);
}

TEST_F(GivenPathMeanwhileTest, ADamagedPhotoThatIsClickedMeanwhileStaysSelected) {
  drive.Write(Of(There, 1), "no photo");
  ProgramRun& run = StartedHere(1, 0);
  for (int i = 2; i <= 60; ++i) drive.Write(Of(There, i), BmpPhoto(8, 8));
  Give(run, Of(There, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(There, 60)), 0);
  ASSERT_GE(run.main.strip.SrcSlotCount, 1);
  run.person.Click(run.main.strip.SrcThumbnail(1));
  run.LoadAll();
  run.Wait(0.3);
  EXPECT_EQ(SelectedSlot(run.main.strip), 1);
}

// The question lets the loading go on.
TEST_F(GivenPathMeanwhileTest, APhotoDeletedAheadLeavesTheStripThoughItsThumbnailHasComeMeanwhile) {
  ProgramRun& run = StartedHere(60, 0, false);
  Give(run, Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  run.person.ExpectForm("DeleteSelectedForm", [&run](Person& hand, Form& form) {
    run.LoadAll();
    EXPECT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 60);
    for (Control* control : form.Controls())
      if (control->Name() == "DeleteButton") hand.Click(*control);
  });
  run.person.ChooseMenu(run.main.menu.DeleteMenuItem);
  EXPECT_FALSE(drive.Exists(Of(Here, 60)));
  EXPECT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  EXPECT_EQ(run.main.strip.SrcShownCount, 59);
}

TEST_F(GivenPathMeanwhileTest, WhileAPhotoIsDraggedByHandItWaits) {
  ProgramRun& run = StartedHere(2, 2);
  run.person.Press(run.main.strip.SrcThumbnail(1));
  run.person.MoveTo(run.main.strip.SrcThumbnail(2));
  Give(run, There);
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), Here);
  run.person.Release();
  run.Wait(0.3);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), There);
}

TEST_F(GivenPathMeanwhileTest, OnceTheEndIsAskedForItIsNotBegunWith) {
  ProgramRun& run = StartedHere(2, 2);
  given_->Give(There);
  run.platform.toolkit.AskToEnd();
  run.platform.clock.AdvanceTo(run.platform.clock.Seconds() + 1);
  run.platform.toolkit.RunDueTimers();
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), Here);
  run.Wait(1);
  EXPECT_TRUE(run.platform.toolkit.Ended());
}

TEST_F(GivenPathMeanwhileTest, APhotoShownAheadOfItsThumbnailTakesTheSelectionFromTheOpenFolderToo) {
  drive.Write("C:\\Family\\f.bmp", BmpPhoto(8, 8));
  ProgramRun& run = StartedHere(60, 0, false);
  run.Wait(0.3);
  ASSERT_GE(run.main.desk.DestSlotCount, 1);
  run.person.Click(run.main.desk.DestThumbnail(1));
  Give(run, Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Of(Here, 60));
  EXPECT_FALSE(run.main.desk.DestThumbFrame.Visible());
  run.LoadAll();
  run.Wait(0.3);
  EXPECT_EQ(SelectedSlot(run.main.strip), 60);
}

TEST_F(GivenPathMeanwhileTest, APhotoOfTheOpenFolderThatIsClickedMeanwhileStaysSelected) {
  drive.Write("C:\\Family\\f.bmp", "no photo");
  ProgramRun& run = StartedHere(60, 0, false);
  run.Wait(0.3);
  ASSERT_GE(run.main.desk.DestSlotCount, 1);
  Give(run, Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  run.person.Click(run.main.desk.DestThumbnail(1));
  run.LoadAll();
  run.Wait(0.3);
  EXPECT_TRUE(run.main.desk.DestThumbFrame.Visible());
  EXPECT_EQ(SelectedSlot(run.main.strip), 0);
}

TEST_F(GivenPathMeanwhileTest, APhotoThatCannotBeShownIsSelectedAllTheSameWhenItsThumbnailIsThere) {
  ProgramRun& run = StartedHere(60, 0, false);
  drive.Write(Of(Here, 60), "no photo");
  Give(run, Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  ASSERT_EQ(run.main.preview.PicPreview.Tag(), "");
  run.LoadAll();
  run.Wait(0.3);
  EXPECT_EQ(SelectedSlot(run.main.strip), 60);
}

TEST_F(GivenPathMeanwhileTest, APhotoWhoseStripHasBeenLeftMeanwhileIsNotSelected) {
  ProgramRun& run = StartedHere(60, 60, false);
  Give(run, Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  ASSERT_TRUE(SelectFilmStrip(run.main, There));
  run.Wait(0.3);
  EXPECT_TRUE(given_->IsDone());
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcThumbFrame.Visible(), false);
}

TEST_F(GivenPathMeanwhileTest, APhotoThatThePaneShowsInsteadMeanwhileStays) {
  ProgramRun& run = StartedHere(60, 0, false);
  Give(run, Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  PaintPicPreview(run.main, Of(Here, 3));
  run.LoadAll();
  run.Wait(0.3);
  EXPECT_EQ(run.main.preview.PicPreview.Tag(), Of(Here, 3));
  EXPECT_FALSE(run.main.strip.SrcThumbFrame.Visible());
}

TEST_F(GivenPathMeanwhileTest, APhotoIsWaitedForNoLongerOnceAnotherPathIsGivenThoughThatIsRefused) {
  ProgramRun& run = StartedHere(60, 0, false);
  Give(run, Of(Here, 60));
  ASSERT_EQ(SlotOf(run.main.strip, Of(Here, 60)), 0);
  run.person.ExpectBox("WARNING: Unable to Select Film Strip", "cannot be found or opened.");
  Give(run, "C:\\Nowhere");
  EXPECT_TRUE(given_->IsDone());
  run.LoadAll();
  run.Wait(0.3);
  EXPECT_FALSE(run.main.strip.SrcThumbFrame.Visible());
}

TEST_F(GivenPathMeanwhileTest, WhatBeginsWhileItIsLookedForIsWaitedForToo) {
  ProgramRun& run = StartedHere(2, 2);
  bool looked = false;
  run.files.BeforeNth(
      FileCall::FolderPath, 1, [&] { looked = run.main.core.PrintJobRuns = true; }, "There");
  Give(run, There);
  run.Wait(1);
  ASSERT_TRUE(looked);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), Here);
  run.main.core.PrintJobRuns = false;
  run.Wait(0.3);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), There);
}

TEST_F(GivenPathMeanwhileTest, APathThatIsGivenWhileAnotherIsLookedForIsTakenInsteadOfIt) {
  ProgramRun& run = StartedHere(2, 2);
  run.files.BeforeNth(
      FileCall::FolderPath, 1, [&] { given_->Give("C:\\Family"); }, "There");
  run.person.ExpectBox("Already Selected as a Folder [Family]", "move the folder up", BoxAnswer::Yes);
  Give(run, There);
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Family");
  for (int i = 0; i < run.main.strip.PreviousList.ListCount(); ++i)
    EXPECT_NE(run.main.strip.PreviousList.List(i), There);
}

TEST_F(GivenPathMeanwhileTest, WhatItCannotTakeYetWakesTheProgramNoMoreThanItSleeps) {
  ProgramRun& run = StartedHere(2, 2);
  run.main.core.PrintJobRuns = true;
  Give(run, There);
  run.Wait(3);
  int turns = 0;
  const double end = run.platform.clock.Seconds() + 10;
  for (double next = 0; (next = run.platform.toolkit.NextDeadline().value_or(end)) < end; ++turns) {
    run.platform.clock.AdvanceTo(next);
    run.platform.toolkit.RunDueTimers();
  }
  EXPECT_LT(turns, 5 * 10);
}

TEST_F(GivenPathMeanwhileTest, ANameWithLineEndsIsToldInOneLine) {
  ProgramRun& run = StartedHere(1, 0);
  run.person.ExpectBox("WARNING: Unable to Select Film Strip", "C:\\no such folder\ncannot be found or opened.");
  Give(run, "C:\\no\nsuch\nfolder");
}

}  // namespace
}  // namespace pixorra
