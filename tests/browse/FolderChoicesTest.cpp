// What becomes of the folder that was chosen in the browser.
#include <gmock/gmock.h>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "pictures/QuickThumbs.h"
#include "tests/browse/BrowseTest.h"
#include "window/DropState.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

class FolderChoicesTest : public BrowseTest {
 protected:
  void SelectIn(BrowseMode mode, const std::string& folder) {
    OpenedAt(mode, folder);
    person.Click(Browser().SelectButton);
    run.Wait(0.1);
  }
  std::vector<std::string> Previous() const {
    std::vector<std::string> folders;
    for (int i = 0; i < strip.PreviousList.ListCount(); ++i) folders.push_back(strip.PreviousList.List(i));
    return folders;
  }
  void Refuse(const std::string& title, const std::string& question) {
    person.ExpectBox(title, question, BoxAnswer::No);
  }
  void Agree(const std::string& title, const std::string& question) {
    person.ExpectBox(title, question, BoxAnswer::Yes);
  }
};

TEST_F(FolderChoicesTest, AFilmStripIsSelectedAndLoads) {
  MakePhotos("C:\\Home\\Card", 3);
  SelectIn(BrowseMode::FilmStrip, "C:\\Home\\Card");
  EXPECT_FALSE(IsOpen());
  run.LoadAll();
  EXPECT_FALSE(strip.NoFilmStrip);
  EXPECT_EQ(strip.SrcSlotCount, 3);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Card");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "3 Total");
  EXPECT_THAT(Previous(), ElementsAre("C:\\Home\\Card"));
}

TEST_F(FolderChoicesTest, AFreshlyChosenStripStartsWithoutMarks) {
  const std::string folder = MakePhotos("C:\\Home\\Card", 2);
  SelectIn(BrowseMode::FilmStrip, folder);
  run.LoadAll();
  person.DoubleClick(strip.SrcBackground(1));
  ASSERT_TRUE(IsMarked(strip, 1));
  Agree("The Film Strip has not changed", "Do you want to refresh the Film Strip?");
  SelectIn(BrowseMode::FilmStrip, folder);
  run.LoadAll();
  ASSERT_EQ(strip.SrcSlotCount, 2);
  EXPECT_FALSE(IsMarked(strip, 1));
}

TEST_F(FolderChoicesTest, ToSelectTheFilmStripAgainIsAskedAbout) {
  SelectIn(BrowseMode::FilmStrip, MakePhotos("C:\\Home\\Card", 2));
  run.LoadAll();
  Refuse("The Film Strip has not changed", "Do you want to refresh the Film Strip?");
  SelectIn(BrowseMode::FilmStrip, "C:\\Home\\Card");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(strip.SrcSlotCount, 2);
}

TEST_F(FolderChoicesTest, AFolderOfTheDesktopIsMovedUpToTheFilmStrip) {
  MakePhotos("C:\\Home\\One", 1);
  MakePhotos("C:\\Home\\Two", 1);
  Display_a_New_Folder(main, "C:\\Home\\One");
  Select_a_Folder(main, Display_a_New_Folder(main, "C:\\Home\\Two"));
  Refuse("Already Selected as a Folder [One]", "Do you want to move the folder up to the film strip?");
  SelectIn(BrowseMode::FilmStrip, "C:\\Home\\One");
  EXPECT_TRUE(strip.NoFilmStrip);
  EXPECT_EQ(desk.FoldersShown, 2);
  Agree("Already Selected as a Folder [One]", "Do you want to move the folder up to the film strip?");
  person.Click(Browser().SelectButton);
  EXPECT_EQ(desk.FoldersShown, 1);
  EXPECT_FALSE(desk.DestFolder(1).Visible());
  EXPECT_EQ(desk.OpenFolderIndex, 2) << "the folder that was open is open again";
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Home\\One");
}

TEST_F(FolderChoicesTest, ASlotThatIsNotInUseIsNotAskedAbout) {
  MakePhotos("C:\\Home\\One", 1);
  Select_a_Folder(main, Display_a_New_Folder(main, "C:\\Home\\One"));
  Remove_Open_Folder(main);
  SelectIn(BrowseMode::FilmStrip, "C:\\Home\\One");
  EXPECT_FALSE(strip.NoFilmStrip);
}

TEST_F(FolderChoicesTest, AFolderThatHasGoneSinceItWasListedIsNotSelected) {
  OpenedAt(BrowseMode::FilmStrip, MakePhotos("C:\\Home\\Card", 1));
  drive.Remove("C:\\Home\\Card");
  person.Click(Browser().SelectButton);
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  EXPECT_TRUE(IsOpen());
  EXPECT_TRUE(strip.NoFilmStrip);
}

TEST_F(FolderChoicesTest, TheTrashcanMayBeTheFilmStripWithNoQuestion) {
  SelectIn(BrowseMode::FilmStrip, "C:\\Program\\Trashcan");
  EXPECT_EQ(strip.SrcFileList.Path(), "C:\\Program\\Trashcan");
}

TEST_F(FolderChoicesTest, AFolderIsShownAndOpened) {
  MakePhotos("C:\\Home\\Family", 2);
  SelectIn(BrowseMode::Show, "C:\\Home\\Family");
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(desk.OpenFolderIndex, 1);
  EXPECT_EQ(desk.DestFolderName(1).Caption(), " Family ");
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "2 pics");
  EXPECT_THAT(Previous(), ElementsAre("C:\\Home\\Family"));
}

TEST_F(FolderChoicesTest, TheTrashcanCannotBeShown) {
  person.ExpectBox("WARNING: Can't select the Trashcan", "Select another folder");
  SelectIn(BrowseMode::Show, "C:\\Program\\Trashcan");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(desk.FoldersShown, 0);
}

TEST_F(FolderChoicesTest, TheFilmStripIsShownAsAFolderWhenThatIsWanted) {
  SelectIn(BrowseMode::FilmStrip, MakePhotos("C:\\Home\\Card", 2));
  run.LoadAll();
  Refuse("Already Selected as the Film Strip", "Do you want to Show the Film Strip as a Folder?");
  SelectIn(BrowseMode::Show, "C:\\Home\\Card");
  EXPECT_FALSE(strip.NoFilmStrip);
  Agree("Already Selected as the Film Strip", "Do you want to Show the Film Strip as a Folder?");
  person.Click(Browser().SelectButton);
  run.Wait(0.1);
  EXPECT_TRUE(strip.NoFilmStrip);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Select a Film Strip");
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "");
  EXPECT_EQ(strip.SrcSlotCount, 0);
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), "C:\\Home\\Card");
}

TEST_F(FolderChoicesTest, AllEightAreTakenBeforeTheBrowserOpens) {
  for (int i = 1; i <= FolderSlots; ++i) {
    drive.MakeFolder("C:\\Home\\F" + std::to_string(i));
    Display_a_New_Folder(main, "C:\\Home\\F" + std::to_string(i));
  }
  person.ExpectBox("WARNING: Unable to Show folder",
                   "You already have a maximum of 8 folders on your desktop.\nPlease close one before trying again.");
  person.Click(desk.ShowFolder);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FolderChoicesTest, AnotherStripEndsTheMemoryOfTheLastDrop) {
  main.drop.LastDropSrcIndex = 1;
  main.drop.LastDropFolder = 1;
  main.drop.LastDropFile = "C:\\Home\\a.jpg";
  SelectIn(BrowseMode::FilmStrip, MakePhotos("C:\\Home\\Card", 2));
  EXPECT_EQ(main.drop.LastDropFile, "");
  EXPECT_EQ(main.drop.LastDropFolder, 0);
}

TEST_F(FolderChoicesTest, TheCamerasLocationIsSet) {
  const std::string question =
      "You are about to set the default 'Drive/Location' for the\n"
      "photos stored in your Camera. This film strip can then be\n"
      "selected by clicking on the Camera Icon on the tool bar.\n\nAre you Sure?";
  MakePhotos("C:\\Home\\Card", 1);
  Refuse("Set Camera Location", question);
  SelectIn(BrowseMode::Camera, "C:\\Home\\Card");
  EXPECT_EQ(strip.CameraLocation, "");
  EXPECT_TRUE(IsOpen());
  Agree("Set Camera Location", question);
  person.Click(Browser().SelectButton);
  EXPECT_EQ(strip.CameraLocation, "C:\\Home\\Card");
  EXPECT_FALSE(IsOpen());
}

TEST_F(FolderChoicesTest, ANewFolderIsMadeShownOpenedAndNamedAtOnce) {
  OpenedAt(BrowseMode::Show, "C:\\Home");
  person.Click(Browser().CreateButton);
  EXPECT_TRUE(drive.Exists("C:\\Home\\New Folder"));
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), "C:\\Home\\New Folder");
  EXPECT_EQ(desk.OpenFolderIndex, 1);
  EXPECT_THAT(Previous(), ElementsAre("C:\\Home\\New Folder"));
  EXPECT_TRUE(desk.FolderRenameBox.HasFocus());
  person.Type("Family");
  person.Key(key::Return);
  EXPECT_TRUE(drive.Exists("C:\\Home\\Family"));
  EXPECT_FALSE(drive.Exists("C:\\Home\\New Folder"));
  EXPECT_EQ(desk.DestFolderName(1).Caption(), " Family ");
  EXPECT_THAT(Previous(), ElementsAre("C:\\Home\\Family"));
}

TEST_F(FolderChoicesTest, ARunningRenameIsDoneBeforeTheBrowserOpens) {
  OpenedAt(BrowseMode::Show, "C:\\Home");
  person.Click(Browser().CreateButton);
  person.Type("Family");
  person.ChooseMenu(main.menu.ShowFolderMenuItem);
  EXPECT_TRUE(IsOpen());
  EXPECT_TRUE(drive.Exists("C:\\Home\\Family"));
}

TEST_F(FolderChoicesTest, ASecondNewFolderInOnePlaceIsNewFolder1) {
  drive.MakeFolder("C:\\Home\\New Folder");
  OpenedAt(BrowseMode::Show, "C:\\Home");
  person.Click(Browser().CreateButton);
  EXPECT_TRUE(drive.Exists("C:\\Home\\New Folder 1"));
  OpenedAt(BrowseMode::Show, "C:\\Home");
  person.Click(Browser().CreateButton);
  EXPECT_TRUE(drive.Exists("C:\\Home\\New Folder 2"));
  EXPECT_EQ(desk.FoldersShown, 2);
}

TEST_F(FolderChoicesTest, ANewFolderWithinAFolderOfTheDesktopIsWarnedOf) {
  MakePhotos("C:\\Home\\Family", 1);
  Display_a_New_Folder(main, "C:\\Home\\Family");
  Refuse("Warning - Creating a New Folder",
         "You are about to create a 'New Folder' within the folder 'Family' which is already\n"
         "shown in the work area. This is NOT recommended as the contents of the 'New Folder' could be\n"
         "accidentally lost if the parent folder 'Family' is later deleted.\n\nDo you want to continue?");
  OpenedAt(BrowseMode::Show, "C:\\Home\\Family");
  person.Click(Browser().CreateButton);
  EXPECT_FALSE(drive.Exists("C:\\Home\\Family\\New Folder"));
  EXPECT_TRUE(IsOpen());
}

TEST_F(FolderChoicesTest, ANewFolderThatCannotBeMadeSaysWhy) {
  run.files.FailNth(FileCall::MakeFolder, 1, error::DiskFull);
  OpenedAt(BrowseMode::Show, "C:\\Home");
  person.ExpectBox("WARNING: Unable to create a new folder", RuntimeError(error::DiskFull).Description());
  person.Click(Browser().CreateButton);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(desk.FoldersShown, 0);
}

}  // namespace
}  // namespace pixorra
