// One photo let go over a folder: what is copied under which name, and what changes on the screen.
#include <gmock/gmock.h>

#include "drop/DropIntoFolder.h"
#include "pictures/PaintPhoto.h"
#include "platform/runtime/Errors.h"
#include "tests/drop/DropTest.h"
#include "window/DropState.h"
#include "window/PicturesState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

using DropIntoFolderTest = DropTest;

TEST_F(DropIntoFolderTest, APhotoDroppedOnAFolderIsCopiedCountedMarkedAndRemembered) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  const Picture clean = strip.SrcThumbnail(2).GetPicture();
  person.Drag(strip.SrcThumbnail(2), desk.DestFolder(1));
  EXPECT_EQ(BytesIn("F", "b.bmp"), drive.Read(Photo("b.bmp")));
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_TRUE(desk.DestFolderPreview(1).GetPicture() == clean);
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  EXPECT_TRUE(IsMarked(2));
  EXPECT_FALSE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropSrcIndex, 2);
  EXPECT_EQ(main.drop.LastDropFolder, 1);
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\b.bmp");
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(DropIntoFolderTest, AnArrivalInTheOpenFolderTakesOverTheStripsThumbnailAndIsNotDecodedAgain) {
  LoadStrip({"a.bmp"});
  Show("F");
  Select_a_Folder(main, 1);
  run.LoadAll();
  run.files.FailAlways(FileCall::Read, error::DeviceIO, "F\\a.bmp");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  run.LoadAll();
  ASSERT_EQ(desk.DestSlotCount, 1);
  EXPECT_FALSE(desk.DestThumbnail(1).GetPicture() == main.pictures.InvalidPicture);
  // What a decode puts there is the same, byte by byte.
  run.files.Heal();
  const std::string copied = BytesIn("F", "Thumbnails.tmp");
  drive.Remove(Folder("F") + "\\Thumbnails.tmp");
  bool bDragged = true;
  PaintThumbnail(main, desk.DestThumbnail(1), Folder("F") + "\\a.bmp", bDragged);
  EXPECT_TRUE(BytesIn("F", "Thumbnails.tmp") == copied);
  EXPECT_FALSE(bDragged);
}

Colour MiddleOf(const Picture& picture) {
  if (picture.IsNothing()) return 0;
  const std::uint8_t* pixel = picture.Pixels().Row(30) + 3 * 40;
  return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

TEST_F(DropIntoFolderTest, ALockedPhotosRecordMayBeOfAnotherPhotoAndIsNotTakenOver) {
  run.files.FailAlways(FileCall::LastWriteTime, error::PathAccess, "Strip\\a.bmp");
  LoadStrip({"a.bmp"});
  Show("F");
  Select_a_Folder(main, 1);
  run.LoadAll();
  MakePhoto(Photo("a.bmp"), 0x00405060);
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  run.LoadAll();
  ASSERT_EQ(desk.DestSlotCount, 1);
  EXPECT_EQ(MiddleOf(desk.DestThumbnail(1).GetPicture()), 0x00405060U);
}

TEST_F(DropIntoFolderTest, APhotoThatIsAnotherOneAfterItsCopyGivesItsThumbnailToNoCopy) {
  LoadStrip({"a.bmp"});
  const Colour copied = MiddleOf(strip.SrcThumbnail(1).GetPicture());
  Show("F");
  Select_a_Folder(main, 1);
  run.LoadAll();
  run.files.BeforeNth(
      FileCall::Flush, 1,
      [this] {
        MakePhoto(Photo("a.bmp"), 0x00405060);
        drive.SetTime(Photo("a.bmp"), {2004, 6, 15, 12, 0, 0, 0});
        bool bDragged = false;
        PaintThumbnail(main, strip.SrcThumbnail(1), Photo("a.bmp"), bDragged);
      },
      "F\\a.bmp");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  run.LoadAll();
  ASSERT_EQ(desk.DestSlotCount, 1);
  EXPECT_EQ(MiddleOf(desk.DestThumbnail(1).GetPicture()), copied);
}

TEST_F(DropIntoFolderTest, ACopyThatSomebodyWritesOverTakesNoThumbnailOver) {
  LoadStrip({"a.bmp"});
  Show("F");
  Select_a_Folder(main, 1);
  run.LoadAll();
  bool written = false;
  run.files.BeforeNth(
      FileCall::FlushFolder, 1,
      [&] {
        run.files.BeforeNth(
            FileCall::Names, 1,
            [&] {
              MakePhoto(Folder("F") + "\\a.bmp", 0x00405060);
              written = true;
            },
            "Home\\F");
      },
      "Home\\F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  run.LoadAll();
  EXPECT_TRUE(written);
  ASSERT_EQ(desk.DestSlotCount, 1);
  EXPECT_EQ(MiddleOf(desk.DestThumbnail(1).GetPicture()), 0x00405060U);
}

TEST_F(DropIntoFolderTest, AFolderThatIsNotOpenGetsNoCacheFile) {
  LoadStrip({"a.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_FALSE(Has("F", "Thumbnails.tmp"));
}

TEST_F(DropIntoFolderTest, AFolderIsLookedThroughForOneNameOnly) {
  LoadStrip({"a.bmp"});
  Show("F");
  for (OptionButton* policy : {&main.preferences.RenameAlwaysOption, &main.preferences.RenameExistsOption}) {
    policy->SetValue(true);
    const int looks = run.files.Count(FileCall::NameTaken);
    DropOnFolder(main, 1, strip.SrcThumbnail(1));
    EXPECT_EQ(run.files.Count(FileCall::NameTaken), looks + 1);
  }
}

TEST_F(DropIntoFolderTest, TheSamePhotoTwiceIsNumberedAndBothCopiesCount) {
  LoadStrip({"Photo.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_TRUE(Has("F", "Photo.bmp"));
  EXPECT_TRUE(Has("F", "Photo1.bmp"));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_EQ(BytesIn("F", "Photo1.bmp"), drive.Read(Photo("Photo.bmp")));
}

TEST_F(DropIntoFolderTest, AMarkedPhotoIsPaintedCleanIntoTheFoldersPreview) {
  LoadStrip({"a.bmp"});
  Show("F");
  Show("G");
  const Picture clean = strip.SrcThumbnail(1).GetPicture();
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  ASSERT_TRUE(IsMarked(1));
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(2));
  const Picture& shown = desk.DestFolderPreview(2).GetPicture();
  ASSERT_FALSE(shown.IsNothing());
  for (int x = 0; x < 3; ++x) EXPECT_EQ(shown.Pixels().Row(0)[x], clean.Pixels().Row(0)[x]);
}

TEST_F(DropIntoFolderTest, WithGeneratedNamesThePhotosOwnNameDoesNotCount) {
  main.preferences.RenameAlwaysOption.SetValue(true);
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  person.Drag(strip.SrcThumbnail(2), desk.DestFolderPreview(1));
  EXPECT_EQ(BytesIn("F", "PXR00001.bmp"), drive.Read(Photo("a.bmp")));
  EXPECT_EQ(BytesIn("F", "PXR00002.bmp"), drive.Read(Photo("b.bmp")));
}

TEST_F(DropIntoFolderTest, ANumberThatNoGeneratedNameCanFollowEndsTheDropAndLeavesTheProgramUsable) {
  main.preferences.RenameAlwaysOption.SetValue(true);
  LoadStrip({"a.bmp"});
  Show("F");
  drive.Write(Folder("F") + "\\PXR2147483647.bmp", "x");
  int raised = 0;
  run.platform.backend.SetErrorHandler([&](const RuntimeError& failure) { raised = failure.Number(); });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_EQ(raised, error::Overflow);
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
  EXPECT_FALSE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, "");
  person.Drag(strip.AllButton, desk.DestFolderPreview(1));
  EXPECT_FALSE(main.drop.DropAllRunning);
}

TEST_F(DropIntoFolderTest, ADropWhoseNameIsTakenAfterAllChoosesAgain) {
  LoadStrip({"a.bmp"});
  Show("F");
  run.files.FailNth(FileCall::OpenToWrite, 1, error::FileExists, "F\\a.bmp");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_EQ(BytesIn("F", "a.bmp"), drive.Read(Photo("a.bmp")));
  EXPECT_TRUE(IsMarked(1));
}

TEST_F(DropIntoFolderTest, AFolderThatTakesNoNameAtAllIsACopyFailure) {
  LoadStrip({"a.bmp"});
  Show("F");
  run.files.FailAlways(FileCall::OpenToWrite, error::FileExists, "F\\a.bmp");
  person.ExpectBox(CopyFailed,
                   "C:\\Home\\F\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, or your\n"
                   "disk drive maybe full.");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_FALSE(IsMarked(1));
}

TEST_F(DropIntoFolderTest, AFolderThatCannotBeLookedIntoIsACopyFailureForEachPhoto) {
  for (const bool generated : {false, true}) {
    if (generated) main.preferences.RenameAlwaysOption.SetValue(true);
    LoadStrip({"a.bmp", "b.bmp"});
    Show(generated ? "G" : "F");
    const int slot = generated ? 2 : 1;
    const std::string folder = generated ? "C:\\Home\\G" : "C:\\Home\\F";
    run.files.FailAlways(FileCall::NameTaken, error::DeviceIO);
    run.files.FailAlways(FileCall::OpenToWrite, error::DeviceIO, folder + "\\");
    for (int i = 0; i < 2; ++i)
      person.ExpectBox(CopyFailed, folder +
                                       "\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, or your\n"
                                       "disk drive maybe full.");
    person.Drag(strip.AllButton, desk.DestFolder(slot));
    run.files.Heal();
    EXPECT_FALSE(IsMarked(1));
    EXPECT_FALSE(IsMarked(2));
  }
}

TEST_F(DropIntoFolderTest, ANameThatCannotBeLookedAtIsPassedOver) {
  LoadStrip({"a1.bmp"});
  Show("F");
  run.files.FailAlways(FileCall::NameTaken, error::DeviceIO, "F\\a1.bmp");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_FALSE(Has("F", "a1.bmp"));
  EXPECT_EQ(BytesIn("F", "a2.bmp"), drive.Read(Photo("a1.bmp")));
}

TEST_F(DropIntoFolderTest, ADropOnTheTrashcanIsACopyLikeAnyOther) {
  LoadStrip({"a.bmp"});
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(9));
  EXPECT_TRUE(drive.Exists("C:\\Program\\Trashcan\\a.bmp"));
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
  EXPECT_EQ(CountOf(9), "1 pics");
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFolder, 9);
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(9));
  EXPECT_TRUE(drive.Exists("C:\\Program\\Trashcan\\a1.bmp"));
}

TEST_F(DropIntoFolderTest, ADropBesideAVisiblePreviewHasNoEffectAndShowsNoDropIcon) {
  LoadStrip({"a.bmp"});
  drive.MakeFolder(Folder("F"));
  MakePhoto(Folder("F") + "\\old.bmp");
  Show("F");
  ASSERT_TRUE(desk.DestFolderPreview(1).Visible());
  person.Press(strip.SrcThumbnail(1));
  person.MoveTo(main.Window, desk.DestFolder(1).Left() + 3, desk.DestFolder(1).Top() + 40);
  ASSERT_EQ(run.platform.toolkit.ControlAt(main.Window, desk.DestFolder(1).Left() + 3, desk.DestFolder(1).Top() + 40),
            &desk.DestFolder(1));
  EXPECT_TRUE(strip.SrcThumbnail(1).DragIcon().IsNothing());
  person.Release();
  EXPECT_FALSE(Has("F", "a.bmp"));
  EXPECT_FALSE(IsMarked(1));
}

TEST_F(DropIntoFolderTest, ADropOnTheOpenFoldersAreaCountsAsOneOnTheFolder) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Show("F");
  Select_a_Folder(main, 1);
  person.Drag(strip.SrcThumbnail(1), desk.DestCanvas);
  EXPECT_TRUE(Has("F", "a.bmp"));
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  run.LoadAll();
  ASSERT_EQ(desk.DestSlotCount, 1);
  EXPECT_EQ(desk.DestThumbnail(1).Tag(), Folder("F") + "\\a.bmp");
  person.Drag(strip.SrcThumbnail(2), desk.DestThumbnail(1));
  person.Drag(strip.SrcThumbnail(3), desk.DestThumbName(1));
  EXPECT_EQ(CountOf(1), "3 pics");
}

TEST_F(DropIntoFolderTest, WithNoFolderOpenADropOnTheAreaHasNoEffect) {
  LoadStrip({"a.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestCanvas);
  EXPECT_FALSE(IsMarked(1));
  EXPECT_FALSE(Has("F", "a.bmp"));
}

TEST_F(DropIntoFolderTest, LabelsOfAFolderAreNoTargets) {
  LoadStrip({"a.bmp"});
  Show("F");
  for (Label* label : {&desk.DestFolderName(1), &desk.DestPicsCount(1)}) {
    person.Press(strip.SrcThumbnail(1));
    person.MoveTo(*label);
    person.Release();
  }
  EXPECT_FALSE(Has("F", "a.bmp"));
}

TEST_F(DropIntoFolderTest, TheNewPhotoIsAddedToTheOpenFoldersViewByTheNextTicks) {
  LoadStrip({"a.bmp", "m.bmp"});
  drive.MakeFolder(Folder("F"));
  MakePhoto(Folder("F") + "\\z.bmp");
  Show("F");
  Select_a_Folder(main, 1);
  run.LoadAll();
  person.Drag(strip.SrcThumbnail(2), desk.DestFolderPreview(1));
  EXPECT_EQ(desk.DestSlotCount, 1);
  run.Wait(0.04);
  ASSERT_EQ(desk.DestSlotCount, 2);
  EXPECT_EQ(desk.DestThumbName(2).Caption(), "m");
}

TEST_F(DropIntoFolderTest, TheEndOfALongViewComesInSight) {
  LoadStrip({"a.bmp"});
  drive.MakeFolder(Folder("F"));
  for (char name = 'b'; name <= 'z'; ++name) MakePhoto(Folder("F") + "\\" + name + ".bmp");
  Show("F");
  Select_a_Folder(main, 1);
  run.LoadAll();
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_EQ(desk.DestScrollbar.Value(), desk.DestScrollbar.Max());
}

TEST_F(DropIntoFolderTest, AFolderThatHasGoneLeavesTheDesktopAtTheDrop) {
  LoadStrip({"a.bmp"});
  Show("F");
  Show("G");
  Show("H");
  Select_a_Folder(main, 2);
  drive.Remove(Folder("F"));
  person.ExpectBox("WARNING: Can't drop photo into this folder", "Folder not found\n\nC:\\Home\\F");
  person.ExpectBox("Pixorra - Unable to Open folder", "?? Folder Not Found\n\nC:\\Home\\F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_EQ(run.platform.dialogs.Boxes()[0].Icon, BoxIcon::Critical);
  EXPECT_FALSE(desk.DestFolder(1).Visible());
  EXPECT_TRUE(desk.DestFolder(2).Visible());
  EXPECT_TRUE(desk.DestFolder(3).Visible());
  EXPECT_EQ(desk.FoldersShown, 2);
  EXPECT_EQ(desk.OpenFolderIndex, 2);
  EXPECT_FALSE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, "");
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(DropIntoFolderTest, ACopyThatFailsIsToldAndChangesNoCountMarkOrMemory) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  run.files.FillDiskAfter(100);
  person.ExpectBox(CopyFailed,
                   "C:\\Home\\F\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, or your\n"
                   "disk drive maybe full.");
  person.Drag(strip.SrcThumbnail(2), desk.DestFolderPreview(1));
  run.files.Heal();
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_FALSE(IsMarked(2));
  EXPECT_EQ(main.drop.LastDropSrcIndex, 1);
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\a.bmp");
  // What the failed copy left stays.
  EXPECT_EQ(BytesIn("F", "b.bmp").size(), 100U);
}

TEST_F(DropIntoFolderTest, AnEmptyPhotoIsACopyFailure) {
  LoadStrip({"a.bmp"});
  Show("F");
  drive.Write(Photo("a.bmp"), "");
  person.ExpectBox(CopyFailed, "");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_EQ(BytesIn("F", "a.bmp"), "");
}

TEST_F(DropIntoFolderTest, ANameThatADanglingLinkHasIsTaken) {
  LoadStrip({"a.bmp"});
  Show("F");
  drive.MakeLink(Folder("F") + "\\a.bmp", "nowhere");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_TRUE(Has("F", "a1.bmp"));
  EXPECT_FALSE(Has("F", "nowhere"));
}

TEST_F(DropIntoFolderTest, DroppedIntoItsOwnFolderAPhotoGetsANumberAndTheStripStaysAsItIs) {
  LoadStrip({"a.bmp"});
  const int slot = Display_a_New_Folder(main, "C:\\Strip");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  EXPECT_TRUE(drive.Exists(Photo("a1.bmp")));
  run.Wait(1);
  EXPECT_EQ(strip.SrcSlotCount, 1);
}

TEST_F(DropIntoFolderTest, AFailureAfterTheCopyIsPassedOver) {
  LoadStrip({"a.bmp"});
  Show("F");
  run.files.FailAlways(FileCall::Names, error::PathNotFound, "F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  run.files.Heal();
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\a.bmp");
}

TEST_F(DropIntoFolderTest, WithAutoOnTheStripScrollsAfterADrop) {
  strip.AutoScrollOption.SetValue(true);
  LoadStrip({"a.bmp"});
  strip.AutoScrollPending = false;
  Show("F");
  DropOnFolder(main, 1, strip.SrcThumbnail(1));
  EXPECT_TRUE(strip.AutoScrollPending);
}

TEST_F(DropIntoFolderTest, WithRemainingOnThePhotoLeavesTheView) {
  strip.RemainingOption.SetValue(true);
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_FALSE(strip.SrcThumbnail(1).Visible());
  EXPECT_EQ(strip.SrcThumbnail(2).Left(), 107);
}

TEST_F(DropIntoFolderTest, TheHourglassStandsWhileABoxIsUp) {
  LoadStrip({"a.bmp"});
  Show("F");
  run.files.FailNth(FileCall::OpenToWrite, 1, error::PathAccess, "F\\a.bmp");
  int during = 0;
  person.ExpectBox(CopyFailed, "", BoxAnswer::Ok, [&] { during = main.Window.MousePointer(); });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_EQ(during, pointer::Hourglass);
}

}  // namespace
}  // namespace pixorra
