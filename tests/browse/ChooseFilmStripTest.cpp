// The camera's button, swapping, and the list of recent folders.
#include <gmock/gmock.h>

#include "browse/CameraVolume.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/Listing.h"
#include "filmstrip/PreviousFolders.h"
#include "pictures/QuickThumbs.h"
#include "tests/browse/BrowseTest.h"
#include "window/DropState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class ChooseFilmStripTest : public BrowseTest {
 protected:
  void UseAsStrip(const std::string& folder) {
    strip.SrcFileList.SetPath(folder);
    strip.NoFilmStrip = false;
    SrcFileList_PathChange(main);
    run.LoadAll();
  }
  int ShowAndOpen(const std::string& folder) {
    const int slot = Display_a_New_Folder(main, folder);
    Select_a_Folder(main, slot);
    return slot;
  }
  void PressSwap() {
    person.Press(strip.SwapButton);
    EXPECT_EQ(strip.SwapButton.BorderStyle(), 1);
    person.Release();
    person.MoveTo(strip.SwapButton);
    EXPECT_EQ(strip.SwapButton.BorderStyle(), 0);
    run.LoadAll();
  }
  void ExpectCameraQuestion(const std::string& location, BoxAnswer answer) {
    person.ExpectBox("Select Camera Photos", location + "\n\nAre you Sure ?", answer);
  }
  void RememberADrop() {
    main.drop.LastDropSrcIndex = 1;
    main.drop.LastDropFolder = 1;
    main.drop.LastDropFile = "C:\\Home\\a.jpg";
  }
  bool RemembersADrop() const { return !main.drop.LastDropFile.empty(); }
  void SetVolumes(std::vector<PlaceOfVolume> media) {
    media.insert(media.begin(), {"File System", VolumeKind::FileSystem, "C:\\", {}});
    run.platform.volumes.Set(std::move(media));
  }
};

TEST_F(ChooseFilmStripTest, WithoutACameraTheButtonAsksForItsLocation) {
  main.preview.bPicEdited = true;
  person.ExpectBox("Select film strip in Camera", "You must first set the location of your camera.");
  person.Click(strip.CameraButton);
  EXPECT_FALSE(main.preview.bPicEdited);
  EXPECT_EQ(Browser().Window.Caption(), " Set Camera Location");
  EXPECT_TRUE(IsOpen());
  EXPECT_TRUE(strip.NoFilmStrip);
}

TEST_F(ChooseFilmStripTest, TheCameraBecomesTheFilmStrip) {
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 3);
  RememberADrop();
  ExpectCameraQuestion("C:\\Media\\Card\\DCIM", BoxAnswer::Yes);
  person.Click(strip.CameraButton);
  run.LoadAll();
  EXPECT_EQ(strip.SrcSlotCount, 3);
  EXPECT_FALSE(strip.NoFilmStrip);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Camera Photos");
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(ChooseFilmStripTest, NoLeavesTheStripAndEndsTheMemoryOfTheLastDrop) {
  UseAsStrip(MakePhotos("C:\\Home\\Other", 1));
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 3);
  RememberADrop();
  ExpectCameraQuestion("C:\\Media\\Card\\DCIM", BoxAnswer::No);
  person.Click(strip.CameraButton);
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\Other");
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(ChooseFilmStripTest, ACameraThatIsNotPluggedInIsTold) {
  strip.CameraLocation = "C:\\Media\\Card\\DCIM";
  RememberADrop();
  person.ExpectBox("Warning: Select film strip in Camera",
                   "Camera cannot be found\nPlease plug your camera in and try again.");
  person.Click(strip.CameraButton);
  EXPECT_TRUE(strip.NoFilmStrip);
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(ChooseFilmStripTest, ACameraThatDoesNotAnswerIsNotThereAndTheWindowLivesMeanwhile) {
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 1);
  run.folderReader.Hold(true);
  person.ExpectBox("Warning: Select film strip in Camera",
                   "Camera cannot be found\nPlease plug your camera in and try again.");
  bool lived = false;
  person.During([&] {
    lived = true;
    person.Click(strip.CameraButton);  // a second click brings up nothing more
  });
  person.Click(strip.CameraButton);
  EXPECT_TRUE(lived);
}

TEST_F(ChooseFilmStripTest, TheCameraThatIsTheStripAlreadyReloadsWithNoMarks) {
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 2);
  UseAsStrip(strip.CameraLocation);
  person.DoubleClick(strip.SrcBackground(2));
  ASSERT_TRUE(IsMarked(strip, 2));
  ExpectCameraQuestion("C:\\Media\\Card\\DCIM", BoxAnswer::Yes);
  person.Click(strip.CameraButton);
  run.Wait(0.05);
  EXPECT_LT(strip.SrcSlotCount, 2) << "it begins with the first photo";
  run.LoadAll();
  ASSERT_EQ(strip.SrcSlotCount, 2);
  EXPECT_FALSE(IsMarked(strip, 1));
  EXPECT_FALSE(IsMarked(strip, 2));
}

TEST_F(ChooseFilmStripTest, TheCameraMayBeTheRootOfItsDrive) {
  strip.CameraLocation = "C:\\";
  ExpectCameraQuestion("C:\\", BoxAnswer::Yes);
  person.Click(strip.CameraButton);
  EXPECT_FALSE(strip.NoFilmStrip);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Camera Photos");
}

TEST_F(ChooseFilmStripTest, ThePointerOverTheButtonSaysWhetherTheCameraIsThere) {
  const Picture ready = strip.BrowseButton.MouseIcon();
  person.MoveTo(strip.CameraButton);
  EXPECT_EQ(strip.CameraButton.MouseIcon(), main.drop.NotReadyIcon) << "none is set";
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 1);
  person.MoveTo(strip.CameraButton);
  run.Wait(0.1);
  EXPECT_EQ(strip.CameraButton.MouseIcon(), ready);
  drive.Remove("C:\\Media\\Card");
  run.Wait(2);
  person.MoveTo(strip.CameraButton);
  run.Wait(0.1);
  EXPECT_EQ(strip.CameraButton.MouseIcon(), main.drop.NotReadyIcon);
}

TEST_F(ChooseFilmStripTest, TheThumbnailsOfACameraThatHasGoneAreDeleted) {
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 1);
  UseAsStrip(strip.CameraLocation);
  ASSERT_TRUE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
  person.MoveTo(strip.CameraButton);
  run.Wait(2);
  EXPECT_TRUE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
  drive.Remove("C:\\Media\\Card");
  person.MoveTo(strip.CameraButton);
  run.Wait(0.1);
  EXPECT_FALSE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
}

TEST_F(ChooseFilmStripTest, TheMouseOverTheButtonLooksAtTheCameraOnceInASecond) {
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 1);
  const int before = run.files.Count(FileCall::FolderPath);
  for (int i = 0; i < 50; ++i) {
    person.MoveTo(strip.CameraButton);
    run.Wait(0.01);
  }
  EXPECT_EQ(run.files.Count(FileCall::FolderPath), before + 1);
}

TEST_F(ChooseFilmStripTest, ACardThatGoesWhileItsPhotosLoadEndsQuietlyAndGoesOnWhenItIsBack) {
  strip.CameraLocation = MakePhotos("C:\\Media\\Card\\DCIM", 5);
  ExpectCameraQuestion("C:\\Media\\Card\\DCIM", BoxAnswer::Yes);
  person.Click(strip.CameraButton);
  while (strip.SrcSlotCount < 2) run.Wait(0.02);
  run.files.TakeAway("C:\\Media\\Card");
  run.Wait(2);
  EXPECT_EQ(strip.SrcSlotCount, 2);
  EXPECT_TRUE(strip.SrcThumbnail(2).Visible());
  run.files.Heal();
  run.LoadAll();
  EXPECT_EQ(strip.SrcSlotCount, 5);
}

TEST_F(ChooseFilmStripTest, ACardIsFoundAgainAtAnotherPlace) {
  MakePhotos("C:\\Media\\Reader1\\DCIM\\100", 1);
  SetVolumes({{"EOS", VolumeKind::Removable, "C:\\Media\\Reader1", "1A2B|EOS|640"}});
  SetCameraLocation(main, "C:\\Media\\Reader1\\DCIM\\100");
  drive.Remove("C:\\Media\\Reader1");
  MakePhotos("C:\\Media\\Reader2\\DCIM\\100", 2);
  MakePhotos("C:\\Media\\Reader3\\DCIM\\100", 3);
  SetVolumes({{"EOS", VolumeKind::Removable, "C:\\Media\\Reader3", "1A2B|EOS|1280"},
              {"EOS", VolumeKind::Removable, "C:\\Media\\Reader2", "1A2B|EOS|640"}});
  ExpectCameraQuestion("C:\\Media\\Reader2\\DCIM\\100", BoxAnswer::Yes);
  person.Click(strip.CameraButton);
  run.LoadAll();
  EXPECT_EQ(strip.CameraLocation, "C:\\Media\\Reader2\\DCIM\\100");
  EXPECT_EQ(strip.SrcSlotCount, 2);
}

TEST_F(ChooseFilmStripTest, ACardThatIsInItsPlaceIsNotLookedForElsewhere) {
  SetVolumes({{"Copy", VolumeKind::Removable, "C:\\Media\\Copy", "1A2B|EOS|640"},
              {"EOS", VolumeKind::Removable, "C:\\Media\\Card", "1A2B|EOS|640"}});
  SetCameraLocation(main, "C:\\Media\\Card");
  FollowCameraVolume(main);
  EXPECT_EQ(strip.CameraLocation, "C:\\Media\\Card");
  SetVolumes({});
  FollowCameraVolume(main);
  EXPECT_EQ(strip.CameraLocation, "C:\\Media\\Card");
}

TEST_F(ChooseFilmStripTest, AnAnswerForTheFormerCameraIsNotTakenForTheNewOne) {
  const Picture ready = strip.BrowseButton.MouseIcon();
  strip.CameraLocation = MakePhotos("C:\\Media\\New\\DCIM", 1);
  UseAsStrip(strip.CameraLocation);
  ASSERT_TRUE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
  strip.CameraLocation = "C:\\Media\\Old\\DCIM";
  run.folderReader.Hold(true);
  person.MoveTo(strip.CameraButton);
  ASSERT_THAT(run.folderReader.Waiting(), ::testing::ElementsAre("C:\\Media\\Old\\DCIM"));
  strip.CameraLocation = "C:\\Media\\New\\DCIM";
  run.folderReader.Answer("C:\\Media\\Old\\DCIM");
  run.Wait(0.1);
  EXPECT_TRUE(drive.Exists("C:\\Program\\CameraThumbs.tmp"));
  run.folderReader.Hold(false);
  person.MoveTo(strip.CameraButton);
  run.Wait(0.1);
  EXPECT_EQ(strip.CameraButton.MouseIcon(), ready) << "the new one is looked at without a pause";
}

TEST_F(ChooseFilmStripTest, ALookAtTheFormerCameraDoesNotKeepTheNewOneWaiting) {
  run.folderReader.Hold(true);
  strip.CameraLocation = "C:\\Media\\Old\\DCIM";
  person.MoveTo(strip.CameraButton);
  strip.CameraLocation = "C:\\Media\\New\\DCIM";
  person.MoveTo(strip.CameraButton);
  EXPECT_THAT(run.folderReader.Waiting(), ::testing::ElementsAre("C:\\Media\\New\\DCIM"));
}

TEST_F(ChooseFilmStripTest, AfterACrashTheCardIsFollowedFromThePlaceThatWasSavedLast) {
  const PlaceOfVolume first{"EOS", VolumeKind::Removable, "C:\\Media\\Reader1", "1A2B|EOS|640"};
  const PlaceOfVolume second{"EOS", VolumeKind::Removable, "C:\\Media\\Reader2", "1A2B|EOS|640"};
  SetVolumes({first});
  SetCameraLocation(main, "C:\\Media\\Reader1\\DCIM\\100");
  SetVolumes({second});
  FollowCameraVolume(main);
  ASSERT_EQ(strip.CameraLocation, "C:\\Media\\Reader2\\DCIM\\100");
  // The program ended before the location was saved.
  strip.CameraLocation = "C:\\Media\\Reader1\\DCIM\\100";
  FollowCameraVolume(main);
  EXPECT_EQ(strip.CameraLocation, "C:\\Media\\Reader2\\DCIM\\100");
  strip.CameraLocation = "C:\\Media\\Reader1\\DCIM\\100";
  SetVolumes({{"EOS", VolumeKind::Removable, "C:\\Media\\Reader3", "1A2B|EOS|640"}});
  FollowCameraVolume(main);
  EXPECT_EQ(strip.CameraLocation, "C:\\Media\\Reader3\\DCIM\\100");
}

TEST_F(ChooseFilmStripTest, AfterACrashACardThatIsTheCameraAsAWholeIsFollowedToo) {
  SetVolumes({{"EOS", VolumeKind::Removable, "E:\\", "1A2B|EOS|640"}});
  SetCameraLocation(main, "E:\\");
  SetVolumes({{"EOS", VolumeKind::Removable, "F:\\", "1A2B|EOS|640"}});
  FollowCameraVolume(main);
  strip.CameraLocation = "E:\\";
  FollowCameraVolume(main);
  EXPECT_EQ(strip.CameraLocation, "F:\\");
}

TEST_F(ChooseFilmStripTest, ALocationThatIsNotTheRememberedOneIsLeftAlone) {
  SetVolumes({{"EOS", VolumeKind::Removable, "C:\\Media\\Card", "1A2B|EOS|640"}});
  SetCameraLocation(main, "C:\\Media\\Card\\DCIM");
  strip.CameraLocation = "C:\\Home\\My DCIM";
  FollowCameraVolume(main);
  EXPECT_EQ(strip.CameraLocation, "C:\\Home\\My DCIM");
}

TEST_F(ChooseFilmStripTest, SwapPutsTheOpenFolderUpAndTheStripDown) {
  UseAsStrip(MakePhotos("C:\\Home\\Card", 3));
  ShowAndOpen(MakePhotos("C:\\Home\\Family", 2));
  RememberADrop();
  PressSwap();
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\Family");
  EXPECT_EQ(strip.SrcSlotCount, 2);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Family");
  EXPECT_EQ(desk.DestFolderFiles(desk.OpenFolderIndex).Path(), "C:\\Home\\Card");
  EXPECT_EQ(desk.DestSlotCount, 3);
  EXPECT_EQ(desk.FoldersShown, 1);
  EXPECT_FALSE(RemembersADrop());
  PressSwap();
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\Card");
  EXPECT_EQ(strip.SrcSlotCount, 3);
  EXPECT_EQ(desk.DestFolderFiles(desk.OpenFolderIndex).Path(), "C:\\Home\\Family");
}

TEST_F(ChooseFilmStripTest, SwapWithNothingToSwapBeeps) {
  RememberADrop();
  PressSwap();
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  EXPECT_TRUE(RemembersADrop());
}

TEST_F(ChooseFilmStripTest, SwapWithNoFolderOpenPutsTheStripOnTheDesktop) {
  UseAsStrip(MakePhotos("C:\\Home\\Card", 3));
  PressSwap();
  run.Wait(0.1);
  EXPECT_TRUE(strip.NoFilmStrip);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Select a Film Strip");
  EXPECT_EQ(strip.SrcSlotCount, 0);
  EXPECT_EQ(desk.OpenFolderIndex, 1);
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), "C:\\Home\\Card");
}

TEST_F(ChooseFilmStripTest, SwapWithNoStripMovesTheFolderUpAndLeavesNoneOpen) {
  Display_a_New_Folder(main, MakePhotos("C:\\Home\\Other", 1));
  ShowAndOpen(MakePhotos("C:\\Home\\Family", 2));
  PressSwap();
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\Family");
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  EXPECT_EQ(desk.FoldersShown, 1);
}

TEST_F(ChooseFilmStripTest, ThereAndBackTheStripIsLoadedAndNamed) {
  UseAsStrip(MakePhotos("C:\\Home\\Card", 3));
  PressSwap();
  run.Wait(0.1);
  person.ChooseMenu(main.menu.SwapOpenFolderMenuItem);
  run.LoadAll();
  EXPECT_FALSE(strip.NoFilmStrip);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Card");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "3 Total");
  EXPECT_EQ(strip.SrcSlotCount, 3);
}

TEST_F(ChooseFilmStripTest, TheTrashcanAsStripGoesBackToItsPlace) {
  drive.Write("C:\\Program\\Trashcan\\a.bmp", BmpOf(PlainBitmap(80, 60, 5)));
  ShowAndOpen(MakePhotos("C:\\Home\\Family", 2));
  desk.DestFolderFiles(TrashcanSlot).Refresh();
  UseAsStrip("C:\\Program\\Trashcan");
  PressSwap();
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\Family");
  EXPECT_EQ(desk.OpenFolderIndex, TrashcanSlot);
  EXPECT_EQ(desk.FoldersShown, 0);
}

TEST_F(ChooseFilmStripTest, TheFolderOfTheMenuIsSwapped) {
  UseAsStrip(MakePhotos("C:\\Home\\Card", 3));
  Display_a_New_Folder(main, MakePhotos("C:\\Home\\One", 1));
  Display_a_New_Folder(main, MakePhotos("C:\\Home\\Two", 2));
  RememberADrop();
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.SwapFolderMenuItem);
  person.RightClick(desk.DestFolder(1));
  run.LoadAll();
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\One");
  EXPECT_EQ(desk.DestFolderFiles(desk.OpenFolderIndex).Path(), "C:\\Home\\Card");
  EXPECT_EQ(desk.FoldersShown, 2);
}

TEST_F(ChooseFilmStripTest, TheTrashcansMenuMakesItTheStrip) {
  drive.Write("C:\\Program\\Trashcan\\a.bmp", BmpOf(PlainBitmap(80, 60, 5)));
  desk.DestFolderFiles(TrashcanSlot).Refresh();
  person.ExpectMenu(main.menu.TrashcanPopupMenu, &main.menu.SwapTrashcanMenuItem);
  person.RightClick(desk.DestFolder(TrashcanSlot));
  run.LoadAll();
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Program\\Trashcan");
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  EXPECT_TRUE(desk.DestFolder(TrashcanSlot).Visible());
}

TEST_F(ChooseFilmStripTest, AnOpenFolderThatHasGoneIsToldAndTheStripStays) {
  UseAsStrip(MakePhotos("C:\\Home\\Card", 3));
  ShowAndOpen(MakePhotos("C:\\Home\\Family", 2));
  drive.Remove("C:\\Home\\Family");
  person.ExpectBox("Pixorra - Unable to Open folder", "?? Folder Not Found\n\nC:\\Home\\Family");
  PressSwap();
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\Card");
  EXPECT_FALSE(strip.NoFilmStrip);
  EXPECT_EQ(desk.FoldersShown, 0);
}

TEST_F(ChooseFilmStripTest, AFolderUsedTwiceIsInTheListOnceAtTheTop) {
  AddToPreviousList(strip, "C:\\One");
  AddToPreviousList(strip, "C:\\Two");
  AddToPreviousList(strip, "C:\\One");
  ASSERT_EQ(strip.PreviousList.ListCount(), 2);
  EXPECT_EQ(strip.PreviousList.List(0), "C:\\One");
  EXPECT_EQ(strip.PreviousList.List(1), "C:\\Two");
}

TEST_F(ChooseFilmStripTest, TheTwentyFirstFolderDropsTheOldest) {
  for (int i = 1; i <= 21; ++i) AddToPreviousList(strip, "C:\\F" + std::to_string(i));
  ASSERT_EQ(strip.PreviousList.ListCount(), 20);
  EXPECT_EQ(strip.PreviousList.List(0), "C:\\F21");
  EXPECT_EQ(strip.PreviousList.List(19), "C:\\F2");
}

}  // namespace
}  // namespace pixorra
