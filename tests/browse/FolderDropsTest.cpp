// Folders dropped from the file manager onto the strip and onto the Desktop.
#include <gmock/gmock.h>

#include "desktop/ShownFolders.h"
#include "platform/controls/FileDrops.h"
#include "platform/controls/Toolkit.h"
#include "tests/browse/BrowseTest.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class FolderDropsTest : public BrowseTest {
 protected:
  void Drop(Control& onto, const std::vector<std::string>& paths) {
    const Rect place = onto.ShownRect();
    EXPECT_TRUE(UserDroppedFiles(main.Window, place.Left + place.Width / 2, place.Top + place.Height / 2, paths));
    run.Wait(0.1);
  }
};

TEST_F(FolderDropsTest, AFolderDroppedOntoTheStripBecomesIt) {
  const std::string folder = MakePhotos("C:\\Home\\Card", 3);
  main.preview.bPicEdited = true;
  Drop(strip.SrcThumbsWindow, {folder});
  run.LoadAll();
  EXPECT_EQ(strip.SrcSlotCount, 3);
  EXPECT_FALSE(main.preview.bPicEdited);
  EXPECT_EQ(strip.SrcFolderPath.Caption(), "Card");
  EXPECT_EQ(strip.PreviousList.List(0), folder);
  EXPECT_FALSE(IsOpen());
}

TEST_F(FolderDropsTest, ItIsAskedAboutAsInTheBrowser) {
  const std::string folder = MakePhotos("C:\\Home\\Card", 2);
  Drop(strip.SrcThumbsWindow, {folder});
  run.LoadAll();
  person.ExpectBox("The Film Strip has not changed", "Do you want to refresh the Film Strip?", BoxAnswer::No);
  Drop(strip.SrcThumbnail(1), {folder});
  person.ExpectBox("Already Selected as the Film Strip", "Do you want to Show the Film Strip as a Folder?",
                   BoxAnswer::No);
  Drop(desk.DesktopImage, {folder});
  person.ExpectBox("WARNING: Can't select the Trashcan", "Select another folder");
  Drop(desk.DesktopImage, {"C:\\Program\\Trashcan"});
  EXPECT_EQ(desk.FoldersShown, 0);
}

TEST_F(FolderDropsTest, FilesAmongThemAreNotTaken) {
  const std::string folder = MakePhotos("C:\\Home\\Card", 2);
  Drop(strip.SrcThumbsWindow, {folder + "\\p001.bmp"});
  EXPECT_TRUE(strip.NoFilmStrip);
  Drop(strip.SrcThumbsWindow, {folder + "\\p001.bmp", folder});
  EXPECT_EQ(strip.SrcFileList.Path(), folder);
  Drop(desk.DesktopImage, {"C:\\Home\\Card\\p002.bmp", "no path at all"});
  EXPECT_EQ(desk.FoldersShown, 0);
}

TEST_F(FolderDropsTest, SeveralAreShownOneAfterTheOtherAndTheLastIsOpen) {
  Drop(desk.DesktopImage, {MakePhotos("C:\\Home\\A", 1), MakePhotos("C:\\Home\\B", 1), "C:\\Home\\B\\p001.bmp",
                           MakePhotos("C:\\Home\\C", 1)});
  EXPECT_EQ(desk.FoldersShown, 3);
  EXPECT_EQ(desk.OpenFolderIndex, 3);
  EXPECT_EQ(desk.DestFolderFiles(2).Path(), "C:\\Home\\B");
  Drop(desk.DestFolder(1), {MakePhotos("C:\\Home\\D", 1)});
  EXPECT_EQ(desk.FoldersShown, 4);
}

TEST_F(FolderDropsTest, WhenAllSlotsAreTakenThatIsToldOnce) {
  std::vector<std::string> folders;
  for (int i = 1; i <= 11; ++i) folders.push_back(MakePhotos("C:\\Home\\F" + std::to_string(i), 1));
  person.ExpectBox("WARNING: Unable to Show folder",
                   "You already have a maximum of 8 folders on your desktop.\nPlease close one before trying again.");
  Drop(desk.DesktopImage, folders);
  EXPECT_EQ(desk.FoldersShown, 8);
}

TEST_F(FolderDropsTest, HundredsOfFilesAmongThemCostNoTime) {
  const std::string folder = MakePhotos("C:\\Home\\Card", 300);
  std::vector<std::string> paths;
  for (int i = 1; i <= 300; ++i) paths.push_back(folder + "\\p" + std::to_string(1000 + i).substr(1) + ".bmp");
  paths.push_back(folder);
  const double before = main.host.toolkit.Seconds();
  Drop(desk.DesktopImage, paths);
  EXPECT_LT(main.host.toolkit.Seconds() - before, 1);
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), folder);
}

TEST_F(FolderDropsTest, FoldersThatDoNotAnswerAreWaitedForOnlyOnce) {
  const std::string near = MakePhotos("C:\\Home\\Near", 1);
  run.folderReader.Hold(true);
  person.During([&] { run.folderReader.Answer(near); });
  const double before = main.host.toolkit.Seconds();
  Drop(desk.DesktopImage, {"C:\\Far\\One", near, "C:\\Far\\Two", "C:\\Far\\Three"});
  EXPECT_LT(main.host.toolkit.Seconds() - before, 6);
  EXPECT_EQ(desk.FoldersShown, 1);
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), near);
}

}  // namespace
}  // namespace pixorra
