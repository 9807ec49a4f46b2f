// The browser's window, its three modes, and the list of a folder's photos.
#include <gmock/gmock.h>

#include "pictures/QuickThumbs.h"
#include "preview/FullSizePreview.h"
#include "tests/browse/BrowseTest.h"
#include "utility/HelpPages.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

class BrowseFolderLocationFormTest : public BrowseTest {
 protected:
  std::vector<std::string> Row(int index) { return Browser().MyFiles.Cells(index); }
};

TEST_F(BrowseFolderLocationFormTest, EachWayInHasItsCaptionAndItsButton) {
  person.ChooseMenu(main.menu.OpenFilmStripMenuItem);
  EXPECT_EQ(Browser().Window.Caption(), " Select a Film Strip");
  EXPECT_EQ(Browser().SelectButton.Caption(), "Select Film Strip");
  EXPECT_FALSE(Browser().CreateButton.Visible());
  person.Click(Browser().CancelButton);
  EXPECT_FALSE(IsOpen());
  person.ChooseMenu(main.menu.SetCameraLocationMenuItem);
  EXPECT_EQ(Browser().Window.Caption(), " Set Camera Location");
  EXPECT_EQ(Browser().SelectButton.Caption(), "Set Camera Location");
  EXPECT_FALSE(Browser().CreateButton.Visible());
  person.Key(key::Escape);
  EXPECT_FALSE(IsOpen());
  person.ChooseMenu(main.menu.ShowFolderMenuItem);
  EXPECT_EQ(Browser().Window.Caption(), "Show a Folder");
  EXPECT_EQ(Browser().SelectButton.Caption(), "Show Folder");
  EXPECT_TRUE(Browser().CreateButton.Visible());
}

TEST_F(BrowseFolderLocationFormTest, WhileItIsOpenASecondOneOnlyBeeps) {
  person.Click(strip.BrowseButton);
  EXPECT_EQ(Browser().Window.Tag(), "RUNNING");
  EXPECT_TRUE(main.preview.bPreviewNoButtons);
  person.Activate(main.Window);
  person.ChooseMenu(main.menu.SetCameraLocationMenuItem);
  person.Click(desk.ShowFolder);
  EXPECT_EQ(run.platform.dialogs.Beeps(), 2);
  EXPECT_EQ(Browser().Window.Caption(), " Select a Film Strip");
  person.Close(Browser().Window);
  EXPECT_EQ(Browser().Window.Tag(), "");
  EXPECT_FALSE(main.preview.bPreviewNoButtons);
  person.Click(desk.ShowFolder);
  EXPECT_EQ(Browser().Window.Caption(), "Show a Folder");
}

TEST_F(BrowseFolderLocationFormTest, AnOpenBrowserGoesWithTheMainWindow) {
  Opened(BrowseMode::FilmStrip);
  run.Close();
  EXPECT_FALSE(IsOpen());
}

TEST_F(BrowseFolderLocationFormTest, ItOpensAtTheFilmStripsFolder) {
  MakePhotos("C:\\Home\\Card\\DCIM", 2);
  strip.SrcFileList.SetPath("C:\\Home\\Card\\DCIM");
  strip.NoFilmStrip = false;
  Opened(BrowseMode::Show);
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Card\\DCIM");
  EXPECT_EQ(Browser().PreviousList.Text(), "C:\\Home\\Card\\DCIM");
  EXPECT_EQ(SelectedText(), "DCIM");
  EXPECT_TRUE(Tree().HasFocus());
}

TEST_F(BrowseFolderLocationFormTest, AFilmStripThatHasGoneOpensItAtTheNearestFolderAboveThatIsThere) {
  MakePhotos("C:\\Home\\Card\\DCIM", 2);
  strip.SrcFileList.SetPath("C:\\Home\\Card\\DCIM");
  strip.NoFilmStrip = false;
  drive.Remove("C:\\Home\\Card\\DCIM");
  Opened(BrowseMode::Show);
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Card");
  EXPECT_EQ(SelectedText(), "Card");
}

TEST_F(BrowseFolderLocationFormTest, WithoutAFilmStripItOpensAtHome) {
  Opened(BrowseMode::FilmStrip);
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home");
  EXPECT_EQ(SelectedText(), "Home");
}

TEST_F(BrowseFolderLocationFormTest, TheListHasNamesAndSizesAndTheFirstPhotoIsShown) {
  drive.Write("C:\\Home\\Pics\\b.jpg", std::string(1024000, 'x'));
  drive.Write("C:\\Home\\Pics\\A longer name.JPG", JpegPhoto(40, 30));
  drive.Write("C:\\Home\\Pics\\c.gif", std::string(1025024, 'x'));
  drive.Write("C:\\Home\\Pics\\notes.txt", "no picture");
  drive.MakeFolder("C:\\Home\\Pics\\folder.jpg");
  OpenedAt(BrowseMode::FilmStrip, "C:\\Home\\Pics");
  ASSERT_EQ(Browser().MyFiles.ListCount(), 3);
  EXPECT_EQ(Browser().MyFiles.List(1), "b.jpg            \t1000Kb");
  EXPECT_THAT(Row(0), ElementsAre("A longer name.JPG", "0Kb"));
  EXPECT_THAT(Row(1), ElementsAre("b.jpg", "1000Kb"));
  EXPECT_THAT(Row(2), ElementsAre("c.gif", "1.0Mb"));
  EXPECT_EQ(Browser().PicCount.Caption(), "1 of 3 pics");
  EXPECT_EQ(Browser().PreviewName.Caption(), "A longer name");
  EXPECT_TRUE(Browser().PicPreview.Stretch());
  EXPECT_EQ(Browser().PicPreview.Width(), 80);
  EXPECT_EQ(Browser().PicPreview.Height(), 60);
}

TEST_F(BrowseFolderLocationFormTest, SizesAreInKilobytesUpToAThousandOfThem) {
  EXPECT_EQ(FormatPhotoSize(0), "  0Kb");
  EXPECT_EQ(FormatPhotoSize(1023), "  0Kb");
  EXPECT_EQ(FormatPhotoSize(55 * 1024), " 55Kb");
  EXPECT_EQ(FormatPhotoSize(1000 * 1024 + 1023), "1000Kb");
  EXPECT_EQ(FormatPhotoSize(1001 * 1024), " 1.0Mb");
  EXPECT_EQ(FormatPhotoSize(12345LL * 1024), "12.3Mb");
  EXPECT_EQ(FormatPhotoSize(5000000000LL), "4882.8Mb");
  EXPECT_EQ(FormatPhotoSize(std::nullopt), "??");
}

TEST_F(BrowseFolderLocationFormTest, GoingDownTheListShowsEachPhotoAndFillsTheFoldersCache) {
  const std::string folder = MakePhotos("C:\\Home\\Pics", 3);
  OpenedAt(BrowseMode::FilmStrip, folder);
  person.Focus(Browser().MyFiles);
  person.Key(key::Down);
  EXPECT_EQ(Browser().PicCount.Caption(), "2 of 3 pics");
  EXPECT_EQ(Browser().PreviewName.Caption(), "p002");
  person.Choose(Browser().MyFiles, 2);
  EXPECT_EQ(Browser().PreviewName.Caption(), "p003");
  for (const char* name : {"\\p001.bmp", "\\p002.bmp", "\\p003.bmp"})
    EXPECT_TRUE(QuickThumbsOf(main).HasQuickThumb(folder + name)) << name;
}

TEST_F(BrowseFolderLocationFormTest, AnEmptyFolderSaysSoAndShowsNoThumbnail) {
  MakePhotos("C:\\Home\\Pics", 1);
  drive.MakeFolder("C:\\Home\\Nothing");
  OpenedAt(BrowseMode::FilmStrip, "C:\\Home\\Pics");
  EXPECT_NE(Browser().PreviewName.Caption(), "");
  GoTo("C:\\Home\\Nothing");
  EXPECT_EQ(Browser().PicCount.Caption(), "Empty");
  EXPECT_EQ(Browser().MyFiles.ListCount(), 0);
  EXPECT_EQ(Browser().PreviewName.Caption(), "");
  EXPECT_FALSE(Browser().PicPreview.Stretch());
  EXPECT_EQ(Browser().PicPreview.GetPicture().ArtName(), "Logo");
}

TEST_F(BrowseFolderLocationFormTest, APlaceThatIsNoFolderEmptiesTheListAndKeepsTheChoice) {
  const std::string folder = MakePhotos("C:\\Home\\Pics", 2);
  OpenedAt(BrowseMode::Show, folder);
  person.Choose(Tree(), {"Computer"});
  EXPECT_EQ(Browser().File1.Pattern(), "$");
  EXPECT_EQ(Browser().MyFiles.ListCount(), 0);
  EXPECT_EQ(Browser().PicCount.Caption(), "Empty");
  EXPECT_EQ(Browser().PicPreview.GetPicture().ArtName(), "Logo");
  EXPECT_TRUE(Browser().SelectButton.Enabled());
  person.Click(Browser().SelectButton);
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), folder);
}

TEST_F(BrowseFolderLocationFormTest, BackFromThereTheSamePhotosAreListedAgain) {
  MakePhotos("C:\\Home\\Pics", 2);
  Opened(BrowseMode::Show);
  person.Choose(Tree(), {"Home"});
  run.Wait(0.1);
  person.Expand(Tree(), {"Home"});
  run.Wait(0.1);
  person.Choose(Tree(), {"Home", "Pics"});
  run.Wait(0.1);
  person.Choose(Tree(), {"Network"});
  EXPECT_EQ(Browser().MyFiles.ListCount(), 0);
  person.Choose(Tree(), {"Home", "Pics"});
  run.Wait(0.1);
  EXPECT_EQ(Browser().MyFiles.ListCount(), 2);
  EXPECT_EQ(Browser().PicCount.Caption(), "1 of 2 pics");
  EXPECT_EQ(Browser().File1.Pattern(), main.strip.SrcFileList.Pattern());
}

TEST_F(BrowseFolderLocationFormTest, AFolderThatMayNotBeReadIsNoChoice) {
  if (geteuid() == 0) GTEST_SKIP() << "nothing is forbidden to this user";
  MakePhotos("C:\\Home\\Locked", 1);
  drive.SetMode("C:\\Home\\Locked", 0);
  Opened(BrowseMode::Show);
  person.Expand(Tree(), {"Home"});
  run.Wait(0.1);
  person.Choose(Tree(), {"Home", "Locked"});
  run.Wait(0.1);
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home");
  EXPECT_EQ(Browser().File1.Pattern(), "$");
  drive.SetMode("C:\\Home\\Locked", 0700);
}

TEST_F(BrowseFolderLocationFormTest, TheListOfEarlierFoldersTakesTypedPathsAndTheSignOfTheHomeFolder) {
  MakePhotos("C:\\Home\\Pics\\2024", 1);
  Opened(BrowseMode::FilmStrip);
  GoTo("c:\\home\\PICS");
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Pics");
  EXPECT_EQ(Browser().PreviousList.Text(), "C:\\Home\\Pics");
  GoTo("~/Pics/2024");
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Pics\\2024");
  EXPECT_EQ(SelectedText(), "2024");
  GoTo("~");
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home");
  GoTo("  ~\\Pics\\ ");
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Pics");
}

TEST_F(BrowseFolderLocationFormTest, EnterOnAPlaceThatIsNotThereBeepsAndLeavesTheText) {
  Opened(BrowseMode::FilmStrip);
  GoTo("C:\\Home\\Nowhere");
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  EXPECT_EQ(Browser().PreviousList.Text(), "C:\\Home\\Nowhere");
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home");
  GoTo("what is this");
  EXPECT_EQ(run.platform.dialogs.Beeps(), 2);
  EXPECT_TRUE(IsOpen());
}

TEST_F(BrowseFolderLocationFormTest, AnEarlierFolderIsChosenFromTheList) {
  MakePhotos("C:\\Home\\One", 1);
  MakePhotos("C:\\Home\\Two", 2);
  strip.PreviousList.AddItem("C:\\Home\\One");
  strip.PreviousList.AddItem("C:\\Home\\Two");
  Opened(BrowseMode::FilmStrip);
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\One") << "the one that was used last";
  person.Choose(Browser().PreviousList, "C:\\Home\\Two");
  run.Wait(0.1);
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Two");
  EXPECT_EQ(SelectedText(), "Two");
  EXPECT_EQ(Browser().PreviousList.ListIndex(), 1);
}

TEST_F(BrowseFolderLocationFormTest, AFolderThatHasNotAnsweredYetIsWaitedForByTheButton) {
  MakePhotos("C:\\Home\\Near", 1);
  MakePhotos("C:\\Home\\Far", 2);
  OpenedAt(BrowseMode::Show, "C:\\Home\\Near");
  run.folderReader.Hold(true);
  person.Choose(Tree(), {"Home", "Far"});
  person.Click(Browser().SelectButton);
  run.Wait(0.1);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(desk.FoldersShown, 0);
  ASSERT_TRUE(run.folderReader.Answer("C:\\Home\\Far"));
  run.Wait(0.1);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), "C:\\Home\\Far");
}

TEST_F(BrowseFolderLocationFormTest, ATypedFolderIsWaitedForByTheButtonsToo) {
  MakePhotos("C:\\Home\\Far", 2);
  Opened(BrowseMode::Show);
  run.folderReader.Hold(true);
  GoTo("C:\\Home\\Far");
  person.Click(Browser().CreateButton);
  EXPECT_FALSE(drive.Exists("C:\\Home\\New Folder"));
  run.folderReader.Hold(false);
  run.folderReader.Answer("C:\\Home\\Far");
  run.Wait(0.1);
  EXPECT_TRUE(drive.Exists("C:\\Home\\Far\\New Folder"));
  EXPECT_FALSE(IsOpen());
}

TEST_F(BrowseFolderLocationFormTest, WhatWasPutOffIsForgottenWithAnotherChoice) {
  MakePhotos("C:\\Home\\Far", 2);
  MakePhotos("C:\\Home\\Near", 1);
  Opened(BrowseMode::Show);
  person.Expand(Tree(), {"Home"});
  run.Wait(0.1);
  run.folderReader.Hold(true);
  person.Choose(Tree(), {"Home", "Far"});
  person.Click(Browser().SelectButton);
  run.folderReader.Hold(false);
  person.Choose(Tree(), {"Home", "Near"});
  run.Wait(0.2);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(desk.FoldersShown, 0);
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Near");
}

TEST_F(BrowseFolderLocationFormTest, ItGrowsByHalvesAndKeepsItsSizeForTheNextTime) {
  Opened(BrowseMode::Show);
  const int tree = Browser().PicDirTree.Width();
  const int list = Browser().MyFiles.Width();
  const int height = Browser().MyFiles.Height();
  person.Resize(Browser().Window, Browser().Window.ScaleWidth() + 200, Browser().Window.ScaleHeight() + 100);
  EXPECT_EQ(Browser().PicDirTree.Width(), tree + 100);
  EXPECT_EQ(Tree().Width(), tree + 100);
  EXPECT_EQ(Browser().MyFiles.Width(), list + 100);
  EXPECT_EQ(Browser().MyFiles.Height(), height + 100);
  person.Click(Browser().CancelButton);
  Opened(BrowseMode::FilmStrip);
  EXPECT_EQ(Browser().PicDirTree.Width(), tree + 100);
}

TEST_F(BrowseFolderLocationFormTest, HelpIsThePageOfTheMode) {
  const auto helpOf = [&](BrowseMode mode, HelpTopic topic) {
    Opened(mode);
    const std::size_t pages = PagesOf(topic).size();
    for (std::size_t page = 0; page < pages; ++page)
      person.ExpectBox(TitleOf(topic, static_cast<int>(page) + 1), PagesOf(topic)[page]);
    person.Click(Browser().HelpButton);
    person.Click(Browser().CancelButton);
  };
  helpOf(BrowseMode::FilmStrip, HelpTopic::SelectFilmStrip);
  helpOf(BrowseMode::Show, HelpTopic::ShowFolder);
  helpOf(BrowseMode::Camera, HelpTopic::SetCameraLocation);
}

TEST_F(BrowseFolderLocationFormTest, PhotosAreListedByTheNamesThatTheirOwnerGaveThem) {
  PosixFiles spelled(PathMapping({{'C', drive.HostRoot(), "Test"}}));
  run.files.PassOnTo(spelled);
  drive.Write("C:\\Home\\Pics\\12\uF03A30.bmp", BmpOf(PlainBitmap(80, 60, 5)));
  strip.SrcFileList.SetPath("C:\\Home\\Pics");
  strip.NoFilmStrip = false;
  Opened(BrowseMode::Show);
  ASSERT_EQ(Browser().MyFiles.ListCount(), 1);
  EXPECT_EQ(Row(0).front(), "12:30.bmp");
  run.files.PassOnTo(drive.DriveFiles());
}

TEST_F(BrowseFolderLocationFormTest, ARightClickOnThePictureShowsItAtFullSizeWithoutButtons) {
  MakePhotos("C:\\Home\\A", 3);
  drive.Write("C:\\Home\\A\\p002.bmp", BmpPhoto(320, 240));
  OpenedAt(BrowseMode::Show, "C:\\Home\\A");
  person.Choose(Browser().MyFiles, 1);
  run.Wait(0.1);
  person.Click(Browser().PicPreview);
  EXPECT_EQ(person.Window("PreviewForm"), nullptr);
  person.RightClick(Browser().PicPreview);
  ASSERT_NE(person.Window("PreviewForm"), nullptr);
  EXPECT_EQ(main.preview.sFullSizeFile, "C:\\Home\\A\\p002.bmp");
  for (const Control* control : person.Window("PreviewForm")->Controls()) EXPECT_FALSE(control->Visible());
  person.Key(key::Right);
  EXPECT_EQ(person.Window("PreviewForm"), nullptr);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(run.host.toolkit.ActiveForm(), &Browser().Window) << "where the person was";
}

TEST_F(BrowseFolderLocationFormTest, SpaceInTheListShowsThePictureAtFullSize) {
  MakePhotos("C:\\Home\\A", 3);
  drive.Write("C:\\Home\\A\\p002.bmp", BmpPhoto(320, 240));
  OpenedAt(BrowseMode::Show, "C:\\Home\\A");
  person.Focus(Browser().MyFiles);
  person.Choose(Browser().MyFiles, 1);
  run.Wait(0.1);
  person.Key(key::Space);
  ASSERT_NE(person.Window("PreviewForm"), nullptr);
  EXPECT_EQ(main.preview.sFullSizeFile, "C:\\Home\\A\\p002.bmp");
  person.Key(key::Space);
  EXPECT_EQ(person.Window("PreviewForm"), nullptr);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(run.host.toolkit.Focus(), &Browser().MyFiles);
}

TEST_F(BrowseFolderLocationFormTest, AFullSizeWindowThatWasUpBeforeGivesTheFocusBackHereToo) {
  MakePhotos("C:\\Home\\A", 3);
  drive.Write("C:\\Home\\A\\p002.bmp", BmpPhoto(320, 240));
  DisplayFullSizePreview(main, "C:\\Home\\A\\p002.bmp");
  OpenedAt(BrowseMode::Show, "C:\\Home\\A");
  person.Focus(Browser().MyFiles);
  person.Choose(Browser().MyFiles, 1);
  run.Wait(0.1);
  person.Key(key::Space);
  ASSERT_NE(person.Window("PreviewForm"), nullptr);
  person.Key(key::Space);
  EXPECT_EQ(person.Window("PreviewForm"), nullptr);
  EXPECT_EQ(run.host.toolkit.Focus(), &Browser().MyFiles);
}

TEST_F(BrowseFolderLocationFormTest, ARightClickOnTheLogoShowsNothing) {
  OpenedAt(BrowseMode::Show, MakePhotos("C:\\Home\\Empty", 0));
  person.RightClick(Browser().PicPreview);
  EXPECT_EQ(person.Window("PreviewForm"), nullptr);
}

}  // namespace
}  // namespace pixorra
