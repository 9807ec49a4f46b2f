// Taking the last drop back: by what, what is never deleted, and what may have changed since the drop.
#include <gmock/gmock.h>
#include <unistd.h>

#include "drop/UndoLastDrop.h"
#include "filmstrip/Views.h"
#include "platform/runtime/Errors.h"
#include "tests/drop/UndoTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UndoLastDropTest : public UndoTest {
 protected:
  const std::string made_ = Folder("F") + "\\b.bmp";
  const std::string stays_ = "This is no longer the file that was made, and it stays.";

  int Beeps() { return run.platform.dialogs.Beeps(); }
  // The undo refuses to delete what has the name, and does the rest.
  void ExpectItStays() {
    person.ExpectBox("Pixorra", stays_);
    Undo();
    EXPECT_TRUE(drive.Exists(made_));
    EXPECT_TRUE(IsClean(2));
    EXPECT_FALSE(RemembersADrop());
  }
  void PressUndo(int button) {
    const Rect at = strip.UndoButton.FormRect();
    person.PressAt(main.Window, at.Left + 5, at.Top + 5, button);
  }
};

// --- by what ---------------------------------------------------------------------------------------------------------

TEST_F(UndoLastDropTest, EveryMouseButtonOnTheButtonUndoesAtThePressAndTheLeftOneDrawsABorder) {
  Prepare();
  for (const int button : {button::Left, button::Right, button::Middle}) {
    Drop(2);
    EXPECT_TRUE(drive.Exists(made_));
    PressUndo(button);
    EXPECT_FALSE(drive.Exists(made_));
    EXPECT_EQ(strip.UndoButton.BorderStyle(), button == button::Left ? 1 : 0);
    person.Release();
    EXPECT_EQ(strip.UndoButton.BorderStyle(), 0);
  }
}

TEST_F(UndoLastDropTest, AMessageTakesTheBorderOffAtTheNextMoveOfTheMouse) {
  Prepare();
  Drop(2);
  drive.Remove(made_);
  person.ExpectBox("Pixorra", "File not found");
  PressUndo(button::Left);
  person.Release();
  person.MoveTo(strip.UndoButton);
  EXPECT_EQ(strip.UndoButton.BorderStyle(), 0);
}

TEST_F(UndoLastDropTest, TheMenuItemUndoesAndSoDoesItsShortcut) {
  Prepare();
  Drop(2);
  person.ChooseMenu(main.menu.UndoMenuItem);
  EXPECT_FALSE(drive.Exists(made_));
  Drop(2);
  person.Key('Z', shift::Ctrl);
  EXPECT_FALSE(drive.Exists(made_));
}

TEST_F(UndoLastDropTest, WithNothingToUndoTheButtonBeepsAndNothingHappens) {
  Prepare();
  Undo();
  EXPECT_EQ(Beeps(), 1);
  Drop(2);
  Undo();
  EXPECT_EQ(Beeps(), 1);
  Undo();
  EXPECT_EQ(Beeps(), 2);
  EXPECT_THAT(In(Folder("F")), ElementsAre("old.bmp"));
}

TEST_F(UndoLastDropTest, TheShortcutOfAMenuThatHasNothingToUndoDoesNothing) {
  Prepare();
  person.Key('Z', shift::Ctrl);
  EXPECT_EQ(Beeps(), 0);
}

TEST_F(UndoLastDropTest, ARunningFolderRenameEndsFirst) {
  Prepare();
  Drop(2);
  Select_a_Folder(main, 1);
  run.LoadAll();
  person.ChooseMenu(main.menu.RenameOpenFolderMenuItem);
  person.Type("G");
  Undo();
  EXPECT_TRUE(drive.Exists(Folder("G") + "\\old.bmp"));
  EXPECT_FALSE(desk.FolderRenameBox.Visible());
}

TEST_F(UndoLastDropTest, TheButtonEndsTheWatchOfAnEditedPhoto) {
  Prepare();
  main.preview.bPicEdited = true;
  Undo();
  EXPECT_FALSE(main.preview.bPicEdited);
}

TEST_F(UndoLastDropTest, ThePointerOverTheButtonShowsWhetherThereIsAnythingToUndo) {
  Prepare();
  person.MoveTo(strip.UndoButton);
  EXPECT_TRUE(strip.UndoButton.MouseIcon() == main.drop.NotReadyIcon);
  Drop(2);
  person.MoveTo(strip.UndoButton);
  EXPECT_TRUE(strip.UndoButton.MouseIcon() == strip.BrowseButton.MouseIcon());
  Undo();
  person.MoveTo(strip.BrowseButton);
  person.MoveTo(strip.UndoButton);
  EXPECT_TRUE(strip.UndoButton.MouseIcon() == main.drop.NotReadyIcon);
}

// --- what is never deleted -------------------------------------------------------------------------------------------

TEST_F(UndoLastDropTest, AFileThatHasTakenItsNameStays) {
  Prepare();
  Drop(2);
  const CalendarTime date = drive.WriteTime(made_);
  std::string other = drive.Read(made_);
  other.back() = static_cast<char>(other.back() + 1);
  drive.Remove(made_);
  // Of the same length and date.
  drive.Write(made_, other);
  drive.SetTime(made_, date);
  ExpectItStays();
  EXPECT_EQ(drive.Read(made_), other);
  EXPECT_EQ(CountOf(1), "2 pics");
}

TEST_F(UndoLastDropTest, ACopyThatHasBeenEditedSinceStays) {
  PrepareOpen();
  Drop(2);
  run.LoadAll();
  drive.Write(made_, drive.Read(made_) + "edited");
  ExpectItStays();
  EXPECT_THAT(ViewNames(), ElementsAre("old", "b"));
}

// By a program that keeps the date: the file's number and length are the same as well.
TEST_F(UndoLastDropTest, ACopyThatHasBeenEditedInPlaceWithItsDateKeptStays) {
  Prepare();
  Drop(2);
  const CalendarTime date = drive.WriteTime(made_);
  std::string edited = drive.Read(made_);
  edited[60] = static_cast<char>(edited[60] + 1);
  drive.Write(made_, edited);
  drive.SetTime(made_, date);
  ExpectItStays();
}

TEST_F(UndoLastDropTest, ACopyOfAPhotoThatHasBeenEditedInTheStripSinceGoes) {
  Prepare();
  Drop(2);
  drive.Write(Photo("b.bmp"), BmpPhoto(80, 60));
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
}

TEST_F(UndoLastDropTest, AFileThatDiffersFromThePhotoInItsFirstByteAloneStays) {
  Prepare();
  Drop(2);
  std::string other = drive.Read(made_);
  other[0] = 'X';
  drive.Remove(made_);
  drive.Write(made_, other);
  ExpectItStays();
}

TEST_F(UndoLastDropTest, ALinkThatHasTakenItsNameStaysWithWhatItLeadsTo) {
  Prepare();
  Drop(2);
  drive.DriveFiles().Rename(made_, "C:\\Home\\elsewhere.bmp");
  drive.MakeLink(made_, drive.HostPath("C:\\Home\\elsewhere.bmp"));
  ExpectItStays();
  EXPECT_TRUE(drive.Exists("C:\\Home\\elsewhere.bmp"));
}

TEST_F(UndoLastDropTest, AFolderThatHasTakenItsNameStays) {
  Prepare();
  Drop(2);
  drive.Remove(made_);
  drive.Write(made_ + "\\inner.bmp", "x");
  person.ExpectBox("Pixorra", "Path/File access error");
  Undo();
  EXPECT_TRUE(drive.Exists(made_ + "\\inner.bmp"));
  EXPECT_TRUE(IsClean(2));
}

TEST_F(UndoLastDropTest, AHardLinkToThePhotoItselfStays) {
  Prepare();
  Drop(2);
  drive.Remove(made_);
  ASSERT_EQ(link(drive.HostPath(Photo("b.bmp")).c_str(), drive.HostPath(made_).c_str()), 0);
  ExpectItStays();
}

// Some disks number their files anew: then it is known by its bytes, of which the photo is another copy.
TEST_F(UndoLastDropTest, ACopyThatTheDiskHasGivenAnotherNumberGoesWhileThePhotoIsAsItWas) {
  Prepare();
  Drop(2);
  const std::string bytes = drive.Read(made_);
  drive.Write(made_ + ".new", bytes);
  drive.DriveFiles().RenameOver(made_ + ".new", made_);
  Undo();
  EXPECT_FALSE(drive.Exists(made_));

  Drop(2);
  drive.Write(made_ + ".new", bytes);
  drive.DriveFiles().RenameOver(made_ + ".new", made_);
  drive.Write(Photo("b.bmp"), BmpPhoto(80, 60));
  person.ExpectBox("Pixorra", stays_);
  Undo();
  EXPECT_TRUE(drive.Exists(made_));
}

TEST_F(UndoLastDropTest, AWriteProtectedCopyStaysAndIsTold) {
  Prepare();
  Drop(2);
  drive.SetMode(made_, 0444);
  person.ExpectBox("Pixorra", "Path/File access error");
  Undo();
  EXPECT_TRUE(drive.Exists(made_));
  EXPECT_TRUE(IsClean(2));
}

TEST_F(UndoLastDropTest, ADeletionThatFailsIsToldAndTheRestIsDone) {
  PrepareOpen();
  Drop(2);
  run.LoadAll();
  run.files.FailAlways(FileCall::Delete, error::PermissionDenied, "b.bmp");
  person.ExpectBox("Pixorra", "C:\\Home\\F\\b.bmp\n\nPermission denied");
  Undo();
  EXPECT_TRUE(drive.Exists(made_));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_THAT(ViewNames(), ElementsAre("old", "b"));
  EXPECT_TRUE(IsClean(2));
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(UndoLastDropTest, AFileThatHasBeenRenamedSinceByAnotherProgramStaysUnderItsNewName) {
  Prepare();
  Drop(2);
  drive.DriveFiles().Rename(made_, Folder("F") + "\\mine.bmp");
  person.ExpectBox("Pixorra", "File not found");
  Undo();
  EXPECT_THAT(In(Folder("F")), ElementsAre("mine.bmp", "old.bmp"));
}

// --- what may have changed since -------------------------------------------------------------------------------------

TEST_F(UndoLastDropTest, AStripThatWasLoadedAnewHasTheMarkTakenOffTheRightPhoto) {
  Prepare();
  Drop(2);
  MakePhoto(Photo("aa.bmp"), 0x00998877);
  strip.SrcLoadedPath.clear();
  strip.SrcFileList.Refresh();
  run.Wait(0.1);
  run.LoadAll();
  ASSERT_EQ(PhotoOf(strip, 2), Photo("aa.bmp"));
  person.DoubleClick(strip.SrcBackground(2));
  ASSERT_TRUE(IsMarked(2));
  Undo();
  EXPECT_TRUE(IsMarked(2)) << "another photo has that slot by now";
  EXPECT_TRUE(IsClean(3));
  EXPECT_FALSE(IsMarkedOnDisk(Photo("b.bmp")));
  EXPECT_EQ(SelectedSlot(strip), 3);
}

TEST_F(UndoLastDropTest, AnotherStripKeepsItsMarksAndThePhotoLosesItsOwn) {
  Prepare();
  Drop(2);
  drive.MakeFolder("C:\\Next");
  for (const char* name : {"x.bmp", "y.bmp"}) MakePhoto(std::string("C:\\Next\\") + name);
  strip.SrcFileList.SetPath("C:\\Next");
  run.Wait(0.1);
  run.LoadAll();
  person.DoubleClick(strip.SrcBackground(2));
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
  EXPECT_TRUE(IsMarked(2));
  EXPECT_FALSE(IsMarkedOnDisk(Photo("b.bmp")));
}

TEST_F(UndoLastDropTest, AFolderThatWasTakenOffTheDesktopLosesTheFileAllTheSame) {
  PrepareOpen();
  Drop(2);
  person.Click(desk.HideFolder);
  drive.MakeFolder(Folder("Z"));
  Show("Z");
  Undo();
  EXPECT_FALSE(drive.Exists(made_));
  EXPECT_TRUE(IsClean(2));
  EXPECT_EQ(CountOf(1), " Empty") << "another folder has that slot by now";
}

TEST_F(UndoLastDropTest, AFolderThatIsShownInAnotherSlotByNowIsBroughtUpToDateThere) {
  PrepareOpen();
  Drop(2);
  run.LoadAll();
  person.Click(desk.HideFolder);
  Show("Z");
  const int slot = Show("F");
  ASSERT_EQ(slot, 2);
  Select_a_Folder(main, slot);
  run.LoadAll();
  EXPECT_EQ(CountOf(slot), "2 pics");
  Undo();
  EXPECT_EQ(CountOf(slot), "1 pics");
  EXPECT_THAT(ViewNames(), ElementsAre("old"));
}

TEST_F(UndoLastDropTest, AFolderThatWasRenamedSinceLosesTheFileThere) {
  PrepareOpen();
  Drop(2);
  run.LoadAll();
  person.ChooseMenu(main.menu.RenameOpenFolderMenuItem);
  person.Type("G");
  person.Key(key::Return);
  run.Wait(0.1);
  run.LoadAll();
  ASSERT_TRUE(drive.Exists(Folder("G") + "\\b.bmp"));
  Undo();
  EXPECT_THAT(In(Folder("G")), ElementsAre("old.bmp"));
  EXPECT_THAT(ViewNames(), ElementsAre("old"));
  EXPECT_EQ(CountOf(1), "1 pics");
}

TEST_F(UndoLastDropTest, AStripThatGoesWhileTheMessageIsUpIsNotTouched) {
  Prepare();
  Drop(2);
  drive.Remove(made_);
  person.ExpectBox("Pixorra", "File not found", BoxAnswer::Ok, [this] { ClearFilmStrip(main); });
  Undo();
  EXPECT_EQ(strip.SrcSlotCount, 0);
  EXPECT_FALSE(strip.SrcThumbFrame.Visible());
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(UndoLastDropTest, AProgramThatEndsWhileTheMessageIsUpStaysEnded) {
  Prepare();
  Drop(2);
  drive.Remove(made_);
  person.ExpectBox("Pixorra", "File not found", BoxAnswer::Ok, [this] { main.Window.Unload(); });
  Undo();
  EXPECT_TRUE(run.host.toolkit.Ended());
}

TEST_F(UndoLastDropTest, AMarkThatWasTakenOffByHandStaysOff) {
  Prepare();
  Drop(2);
  person.DoubleClick(strip.SrcBackground(2));
  Undo();
  EXPECT_TRUE(IsClean(2));
  EXPECT_FALSE(drive.Exists(made_));
}

// --- the selection ---------------------------------------------------------------------------------------------------

TEST_F(UndoLastDropTest, TheSelectionOfThePhotoThatGoesGoesWithIt) {
  PrepareOpen();
  run.platform.clipboard.CopyElsewhere(Picture(PlainBitmap(40, 30, 0x00778899)));
  person.ChooseMenu(main.menu.PasteMenuItem);
  run.LoadAll();
  person.Click(desk.DestThumbnail(2));
  ASSERT_EQ(SelectedPhoto(main.preview), Folder("F") + "\\Clipboard.jpg");
  Undo();
  EXPECT_FALSE(desk.DestThumbFrame.Visible());
  EXPECT_EQ(SelectedPhoto(main.preview), "");
  EXPECT_TRUE(main.preview.PicPreview.GetPicture() == main.preview.Logo);
}

TEST_F(UndoLastDropTest, TheSelectionOfALaterPhotoMovesUpWithIt) {
  PrepareOpen();
  run.platform.clipboard.CopyElsewhere(Picture(PlainBitmap(40, 30, 0x00778899)));
  person.ChooseMenu(main.menu.PasteMenuItem);
  run.LoadAll();
  MakePhoto(Folder("F") + "\\later.bmp");
  desk.DestFileList.Refresh();
  run.LoadAll();
  ASSERT_THAT(ViewNames(), ElementsAre("old", "Clipboard", "later"));
  person.Click(desk.DestThumbnail(3));
  Undo();
  EXPECT_TRUE(desk.DestThumbFrame.Visible());
  EXPECT_EQ(SelectedCell(desk), 2);
  EXPECT_EQ(desk.DestThumbFrame.Left(), desk.DestThumbnail(2).Left());
  EXPECT_EQ(SelectedPhoto(main.preview), Folder("F") + "\\later.bmp");
}

TEST_F(UndoLastDropTest, WithPreviewOnClickThePhotoIsPreviewedAgain) {
  Prepare();
  main.preferences.AutoPreviewCheckBox.SetValue(1);
  Drop(2);
  person.Click(strip.SrcThumbnail(1));
  ASSERT_EQ(SelectedPhoto(main.preview), Photo("a.bmp"));
  Undo();
  EXPECT_EQ(SelectedPhoto(main.preview), Photo("b.bmp"));
}

// --- the strip's place -----------------------------------------------------------------------------------------------

class UndoScrollTest : public UndoTest {
 protected:
  void LoadMany(int count) {
    drive.MakeFolder("C:\\Strip");
    for (int i = 1; i <= count; ++i) drive.Write(Photo("p" + std::to_string(10000 + i) + ".bmp"), "x");
    LoadStrip({});
    Show("F");
  }
  int OnScreen(int slot) const { return strip.SrcCanvas.Left() + strip.SrcBackground(slot).Left(); }
  bool IsInView(int slot) const {
    return OnScreen(slot) >= 0 && OnScreen(slot) + SrcFrameWidth <= strip.SrcThumbsWindow.Width();
  }
  void DropFrom(int slot) {
    person.MoveBar(strip.SrcScrollbar,
                   std::clamp((slot - 2) * SrcFrameWidth / strip.SrcBarScale.Unit, 0, int{strip.SrcScrollbar.Max()}));
    ASSERT_TRUE(IsInView(slot)) << slot;
    person.Drag(strip.SrcThumbnail(slot), desk.DestFolder(1));
  }
};

TEST_F(UndoScrollTest, APhotoThatWasScrolledOutOfSightIsBroughtToTheLeftEdge) {
  LoadMany(130);
  for (const int slot : {3, 40, 60, 101}) {
    for (const int place : {0, 2600, 5900}) {
      DropFrom(slot);
      person.MoveBar(strip.SrcScrollbar, place);
      const bool seen = IsInView(slot);
      Undo();
      // By whole units of the bar.
      EXPECT_TRUE(IsInView(slot) || OnScreen(slot) >= -2) << slot << " from " << place;
      if (seen) continue;
      EXPECT_LE(std::abs(OnScreen(slot)), 2) << slot << " from " << place;
    }
  }
}

TEST_F(UndoScrollTest, TheLastPhotosAreBroughtAsNearAsTheBarsRangeAllows) {
  LoadMany(130);
  DropFrom(130);
  person.MoveBar(strip.SrcScrollbar, 0);
  Undo();
  EXPECT_TRUE(IsInView(130));
}

TEST_F(UndoScrollTest, APhotoInTheMiddleOfTheFirstPageStaysWhereItIs) {
  LoadMany(30);
  DropFrom(10);
  person.MoveBar(strip.SrcScrollbar, 7 * SrcFrameWidth / 2);
  const int place = strip.SrcScrollbar.Value();
  ASSERT_TRUE(IsInView(10));
  Undo();
  EXPECT_EQ(strip.SrcScrollbar.Value(), place);
}

// One unit of the bar is more than two pixels then.
TEST_F(UndoScrollTest, InAVeryLongStripThePhotoIsFoundAsWell) {
  LoadMany(1500);
  ASSERT_GT(strip.SrcBarScale.Unit, 2);
  DropFrom(900);
  person.MoveBar(strip.SrcScrollbar, 0);
  Undo();
  EXPECT_LE(std::abs(OnScreen(900)), strip.SrcBarScale.Unit);
}

}  // namespace
}  // namespace pixorra
