// The folder tree: what it begins with, when folders are read, and what comes and goes meanwhile.
#include <gmock/gmock.h>

#include "tests/browse/BrowseTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MyDirTreeTest : public BrowseTest {
 protected:
  static std::vector<std::string> TextsBelow(const TreeView::Node& node) {
    std::vector<std::string> texts;
    for (const auto& child : node.Children()) texts.push_back(child->Text());
    return texts;
  }
  std::vector<std::string> Top() { return TextsBelow(Tree().Root()); }
  // The node that these texts lead to; the tree's root where there is none.
  TreeView::Node& At(const std::vector<std::string>& way) {
    TreeView::Node* node = &Tree().Root();
    for (const std::string& text : way) {
      TreeView::Node* next = nullptr;
      for (const auto& child : node->Children())
        if (child->Text() == text) next = child.get();
      if (next == nullptr) {
        ADD_FAILURE() << "no node " << text;
        return Tree().Root();
      }
      node = next;
    }
    return *node;
  }
  std::vector<std::string> Below(const std::vector<std::string>& way) { return TextsBelow(At(way)); }
  void Expand(const std::vector<std::string>& way) {
    person.Expand(Tree(), way);
    run.Wait(0.05);
  }
  void Choose(const std::vector<std::string>& way) {
    person.Choose(Tree(), way);
    run.Wait(0.05);
  }
  std::vector<std::string> WayToSelected() {
    std::vector<std::string> way;
    for (const TreeView::Node* node = Tree().Selected(); node != nullptr && node->Parent() != nullptr;
         node = node->Parent())
      way.insert(way.begin(), node->Text());
    return way;
  }
  void SetVolumes(std::vector<PlaceOfVolume> media) {
    media.insert(media.begin(), {"File System", VolumeKind::FileSystem, "C:\\", {}});
    run.platform.volumes.Set(std::move(media));
  }
  const PlaceOfVolume card_{"EOS 90D", VolumeKind::Removable, "C:\\Media\\Card", "id"};
};

TEST_F(MyDirTreeTest, ItBeginsWithTheUsersPlacesTheComputerAndTheNetwork) {
  drive.MakeFolder("C:\\Desktop");
  drive.MakeFolder("C:\\Pictures");
  drive.MakeFolder("C:\\Media\\Card");
  run.places.Marked = {{"C:\\Home\\Holidays", "Our holidays"},
                       {"\\\\nas\\photos\\2024", ""},
                       {"C:\\Pictures", "again"},
                       {"\\\\elsewhere\\gone", ""}};
  SetVolumes(
      {card_, {"photos on nas", VolumeKind::Share, "\\\\nas\\photos", {}}, {"Phone", VolumeKind::Camera, "E:\\", {}}});
  Opened(BrowseMode::FilmStrip);
  EXPECT_THAT(Top(), ElementsAre("Home", "Desktop", "Pictures", "Our holidays", "2024", "Computer", "Network"));
  EXPECT_TRUE(At({"Computer"}).Expanded()) << "a card is seen at once";
  EXPECT_THAT(Below({"Computer"}), ElementsAre("File System", "EOS 90D", "Phone"));
  EXPECT_THAT(Below({"Network"}), ElementsAre("photos on nas"));
  EXPECT_EQ(Tree().AccessibleName(), "Folders");
}

TEST_F(MyDirTreeTest, ANetworkWithoutSharesCannotBeOpened) {
  Opened(BrowseMode::FilmStrip);
  EXPECT_FALSE(At({"Network"}).HasChildren());
}

TEST_F(MyDirTreeTest, AFolderIsReadWhenItIsOpenedAndNotBefore) {
  drive.MakeFolder("C:\\Pictures\\2024\\May");
  Opened(BrowseMode::FilmStrip);
  const int before = run.files.Count(FileCall::Folders);
  Choose({"Pictures"});
  EXPECT_EQ(run.files.Count(FileCall::Folders), before);
  Expand({"Pictures"});
  EXPECT_EQ(run.files.Count(FileCall::Folders), before + 1);
  EXPECT_THAT(Below({"Pictures"}), ElementsAre("2024"));
  EXPECT_THAT(Below({"Pictures", "2024"}), IsEmpty());
}

TEST_F(MyDirTreeTest, FoldersSortAsAPersonCountsAndHiddenOnesDoNotShow) {
  for (const char* name : {"DSC10", "DSC9", "alpha", ".hidden", "Beta"})
    drive.MakeFolder(std::string("C:\\Home\\") + name);
  drive.Write("C:\\Home\\a file", "");
  Opened(BrowseMode::FilmStrip);
  Expand({"Home"});
  EXPECT_THAT(Below({"Home"}), ElementsAre("alpha", "Beta", "DSC9", "DSC10"));
  Expand({"Home", "alpha"});
  EXPECT_FALSE(At({"Home", "alpha"}).HasChildren());
}

TEST_F(MyDirTreeTest, AVolumeComesAndGoesWithinTwoSeconds) {
  drive.MakeFolder("C:\\Media\\Card");
  Opened(BrowseMode::FilmStrip);
  SetVolumes({card_});
  run.Wait(2);
  EXPECT_THAT(Below({"Computer"}), ElementsAre("File System", "EOS 90D"));
  SetVolumes({});
  run.Wait(2);
  EXPECT_THAT(Below({"Computer"}), ElementsAre("File System"));
}

TEST_F(MyDirTreeTest, WhatIsOpenStaysOpenWhenAVolumeComes) {
  drive.MakeFolder("C:\\Home\\Pics\\2024");
  Opened(BrowseMode::FilmStrip);
  Expand({"Home"});
  Expand({"Home", "Pics"});
  Choose({"Home", "Pics", "2024"});
  SetVolumes({card_});
  run.Wait(2);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", "Pics", "2024"));
  EXPECT_TRUE(At({"Home", "Pics"}).Expanded());
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Pics\\2024");
}

TEST_F(MyDirTreeTest, ACardThatGoesGivesTheSelectionToTheComputerAndNoBoxComes) {
  MakePhotos("C:\\Media\\Card\\DCIM\\100EOS", 2);
  SetVolumes({card_});
  Opened(BrowseMode::FilmStrip);
  GoTo("C:\\Media\\Card\\DCIM\\100EOS");
  EXPECT_THAT(WayToSelected(), ElementsAre("Computer", "EOS 90D", "DCIM", "100EOS"));
  EXPECT_EQ(Browser().MyFiles.ListCount(), 2);
  drive.Remove("C:\\Media\\Card");
  SetVolumes({});
  run.Wait(2);
  EXPECT_THAT(WayToSelected(), ElementsAre("Computer"));
  EXPECT_EQ(Browser().MyFiles.ListCount(), 0);
  EXPECT_EQ(Browser().PicCount.Caption(), "Empty");
}

TEST_F(MyDirTreeTest, ABookmarkOnAVolumeThatGoesGivesTheSelectionToTheFirstPlace) {
  drive.MakeFolder("C:\\Media\\Card\\DCIM");
  run.places.Marked = {{"D:\\DCIM", "My card"}};
  SetVolumes({{"EOS", VolumeKind::Removable, "D:\\", "id"}});
  Opened(BrowseMode::FilmStrip);
  Choose({"My card"});
  SetVolumes({});
  run.Wait(2);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home"));
}

TEST_F(MyDirTreeTest, AFolderThatGoesGivesTheSelectionToTheNearestParentThatLives) {
  MakePhotos("C:\\Home\\Pics\\2024\\May", 1);
  drive.MakeFolder("C:\\Home\\Pics\\2023");
  Opened(BrowseMode::FilmStrip);
  GoTo("C:\\Home\\Pics\\2024\\May");
  ASSERT_THAT(WayToSelected(), ElementsAre("Home", "Pics", "2024", "May"));
  drive.Remove("C:\\Home\\Pics\\2024");
  run.Wait(2);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", "Pics"));
  EXPECT_THAT(Below({"Home", "Pics"}), ElementsAre("2023"));
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Pics");
}

TEST_F(MyDirTreeTest, ADeviceIsNotLookedAtWhileItIsSelected) {
  drive.MakeFolder("C:\\Media\\Phone\\DCIM");
  SetVolumes({{"Phone", VolumeKind::Camera, "C:\\Media\\Phone", "id"}});
  Opened(BrowseMode::FilmStrip);
  Choose({"Computer", "Phone"});
  const int before = run.files.Count(FileCall::FolderPath);
  run.Wait(10);
  EXPECT_EQ(run.files.Count(FileCall::FolderPath), before);
}

TEST_F(MyDirTreeTest, TheWayDownOpensAsAnswersCome) {
  drive.MakeFolder("C:\\Home\\Pics\\2024\\May");
  Opened(BrowseMode::FilmStrip);
  run.folderReader.Hold(true);
  Browser().DirTree.MyDirTree_SetPath("C:\\Home\\Pics\\2024\\May");
  run.Wait(0.1);
  EXPECT_THAT(run.folderReader.Waiting(), ElementsAre("C:\\Home\\Pics\\2024\\May"));
  run.folderReader.Answer("C:\\Home\\Pics\\2024\\May");
  for (const char* folder : {"C:\\Home", "C:\\Home\\Pics", "C:\\Home\\Pics\\2024"}) {
    run.Wait(0.1);
    ASSERT_TRUE(run.folderReader.Answer(folder)) << folder;
  }
  run.Wait(0.1);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", "Pics", "2024", "May"));
  EXPECT_TRUE(At({"Home", "Pics", "2024"}).Expanded());
  EXPECT_EQ(Tree().Revealed(), Tree().Selected());
}

TEST_F(MyDirTreeTest, APersonWhoChoosesMeanwhileIsLeftThere) {
  drive.MakeFolder("C:\\Home\\Pics\\2024\\May");
  Opened(BrowseMode::FilmStrip);
  run.folderReader.Hold(true);
  Browser().DirTree.MyDirTree_SetPath("C:\\Home\\Pics\\2024\\May");
  run.folderReader.Answer("C:\\Home\\Pics\\2024\\May");
  run.Wait(0.1);
  person.Choose(Tree(), {"Computer"});
  run.folderReader.Hold(false);
  while (run.folderReader.Answer("C:\\Home")) {
  }
  run.Wait(0.5);
  EXPECT_THAT(WayToSelected(), ElementsAre("Computer"));
}

TEST_F(MyDirTreeTest, TheNearestOfTheTopPlacesIsTheStart) {
  drive.MakeFolder("C:\\Home\\Pics\\2024\\May");
  run.places.Marked = {{"C:\\Home\\Pics", "My pictures"}};
  Opened(BrowseMode::FilmStrip);
  GoTo("C:\\Home\\Pics\\2024\\May");
  EXPECT_THAT(WayToSelected(), ElementsAre("My pictures", "2024", "May"));
}

TEST_F(MyDirTreeTest, AHiddenFolderIsShownWhereItWasAskedForByItsName) {
  MakePhotos("C:\\Home\\.secret\\inner", 1);
  drive.MakeFolder("C:\\Home\\Pics");
  Opened(BrowseMode::FilmStrip);
  GoTo("C:\\Home\\.secret\\inner");
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", ".secret", "inner"));
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\.secret\\inner");
  Browser().DirTree.ReadAgain(At({"Home"}));
  run.Wait(0.1);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", ".secret", "inner")) << "reading anew leaves it";
}

TEST_F(MyDirTreeTest, ThousandsOfFoldersComeInTheirOrderAndTheWayLeadsToTheLastOfThem) {
  for (int i = 1; i <= 4500; ++i) drive.MakeFolder("C:\\Home\\Many\\DSC" + std::to_string(i));
  Opened(BrowseMode::FilmStrip);
  GoTo("C:\\Home\\Many\\DSC4500");
  run.Wait(0.2);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", "Many", "DSC4500"));
  const std::vector<std::string> folders = Below({"Home", "Many"});
  ASSERT_EQ(folders.size(), 4500U);
  for (int i = 1; i <= 4500; ++i) ASSERT_EQ(folders[static_cast<std::size_t>(i) - 1], "DSC" + std::to_string(i));
  Browser().DirTree.ReadAgain(At({"Home", "Many"}));
  run.Wait(0.2);
  EXPECT_EQ(Below({"Home", "Many"}).size(), 4500U);
}

TEST_F(MyDirTreeTest, F5ReadsTheFolderAgain) {
  drive.MakeFolder("C:\\Home\\One");
  Opened(BrowseMode::FilmStrip);
  Expand({"Home"});
  Choose({"Home"});
  drive.MakeFolder("C:\\Home\\Two");
  person.Key(key::F1 + 4);
  run.Wait(0.1);
  EXPECT_THAT(Below({"Home"}), ElementsAre("One", "Two"));
  EXPECT_TRUE(At({"Home"}).Expanded());
}

TEST_F(MyDirTreeTest, AFolderThatDoesNotAnswerSaysSoUntilItDoes) {
  drive.MakeFolder("C:\\Home\\One");
  Opened(BrowseMode::FilmStrip);
  run.folderReader.Hold(true);
  person.Expand(Tree(), {"Home"});
  run.Wait(4);
  EXPECT_EQ(Top().front(), "Home");
  run.Wait(3);
  EXPECT_EQ(Top().front(), "Home (not answering)");
  while (run.folderReader.Answer("C:\\Home")) {
  }
  run.Wait(0.1);
  EXPECT_EQ(Top().front(), "Home");
  EXPECT_THAT(Below({"Home"}), ElementsAre("One"));
}

TEST_F(MyDirTreeTest, AFolderThatHasGoneWhenItIsOpenedGoesFromTheTree) {
  drive.MakeFolder("C:\\Home\\One\\Inner");
  drive.MakeFolder("C:\\Home\\Two");
  Opened(BrowseMode::FilmStrip);
  Expand({"Home"});
  Choose({"Home", "One"});
  drive.Remove("C:\\Home\\One");
  Expand({"Home", "One"});
  EXPECT_THAT(Below({"Home"}), ElementsAre("Two"));
  EXPECT_THAT(WayToSelected(), ElementsAre("Home"));
}

TEST_F(MyDirTreeTest, AFolderMadeSinceAndWalkedToIsThereOnceAfterF5) {
  drive.MakeFolder("C:\\Home\\One");
  Opened(BrowseMode::FilmStrip);
  Expand({"Home"});
  drive.MakeFolder("C:\\Home\\Two");
  GoTo("C:\\Home\\Two");
  ASSERT_THAT(Below({"Home"}), ElementsAre("One", "Two"));
  Choose({"Home"});
  Tree().SetFocus();
  for (int i = 0; i < 2; ++i) {
    person.Key(key::F1 + 4);
    run.Wait(0.1);
    EXPECT_THAT(Below({"Home"}), ElementsAre("One", "Two"));
  }
  drive.Remove("C:\\Home\\Two");
  person.Key(key::F1 + 4);
  run.Wait(0.1);
  EXPECT_THAT(Below({"Home"}), ElementsAre("One")) << "a listing has named it: it was not asked for alone";
}

TEST_F(MyDirTreeTest, AFolderThatMayNotBeReadStaysWhereItIsSelected) {
  drive.MakeFolder("C:\\Home\\Private");
  Opened(BrowseMode::FilmStrip);
  Expand({"Home"});
  run.files.FailAlways(FileCall::FolderPath, error::PathNotFound, "Private");
  run.files.FailAlways(FileCall::Folders, error::PathAccess, "Private");
  Choose({"Home", "Private"});
  run.Wait(5);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", "Private"));
  run.files.Heal();
  drive.Remove("C:\\Home\\Private");
  run.Wait(2);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home"));
}

TEST_F(MyDirTreeTest, AReadingThatFailsKeepsWhatWasThereAndIsTriedAgain) {
  drive.MakeFolder("C:\\Home\\One\\Inner");
  Opened(BrowseMode::FilmStrip);
  run.files.FailNth(FileCall::Folders, 1, error::DeviceIO);
  Expand({"Home"});
  EXPECT_FALSE(At({"Home"}).Expanded());
  Expand({"Home"});
  EXPECT_THAT(Below({"Home"}), ElementsAre("One"));
  Expand({"Home", "One"});
  run.files.FailNth(FileCall::Folders, 1, error::DeviceIO);
  Choose({"Home"});
  person.Key(key::F1 + 4);
  run.Wait(0.1);
  EXPECT_THAT(Below({"Home"}), ElementsAre("One"));
  EXPECT_THAT(Below({"Home", "One"}), ElementsAre("Inner"));
}

TEST_F(MyDirTreeTest, TheWayLeadsThroughAFolderThatMayNotBeRead) {
  drive.MakeFolder("C:\\Home\\Private\\Mine\\May");
  Opened(BrowseMode::FilmStrip);
  run.files.FailAlways(FileCall::Folders, error::PathAccess, "C:\\Home\\Private");
  GoTo("C:\\Home\\Private\\Mine\\May");
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", "Private", "Mine", "May"));
}

TEST_F(MyDirTreeTest, AShareThatIsMountedTwiceIsShownOnce) {
  const PlaceOfVolume share{"photos on nas", VolumeKind::Share, "\\\\nas\\photos", {}};
  SetVolumes({share, share});
  Opened(BrowseMode::FilmStrip);
  EXPECT_THAT(Below({"Network"}), ElementsAre("photos on nas"));
  SetVolumes({share, share, card_});
  run.Wait(2);
  EXPECT_THAT(Below({"Network"}), ElementsAre("photos on nas"));
  EXPECT_THAT(Below({"Computer"}), ElementsAre("File System", "EOS 90D"));
}

TEST_F(MyDirTreeTest, ABarInTheNameOfAPlaceIsLikeAnyOtherCharacter) {
  MakePhotos("C:\\Home\\This | that\\May", 2);
  run.places.Marked = {{"C:\\Home\\This | that", ""}};
  Opened(BrowseMode::FilmStrip);
  Expand({"This | that"});
  EXPECT_THAT(Below({"This | that"}), ElementsAre("May"));
  Choose({"This | that", "May"});
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\This | that\\May");
  EXPECT_EQ(Browser().MyFiles.ListCount(), 2);
}

TEST_F(MyDirTreeTest, TypingTheBeginningOfANameGoesToIt) {
  for (const char* name : {"Apples", "Boats", "Birds"}) drive.MakeFolder(std::string("C:\\Home\\") + name);
  Opened(BrowseMode::FilmStrip);
  Expand({"Home"});
  Choose({"Home"});
  person.Type("bo");
  run.Wait(0.1);
  EXPECT_THAT(WayToSelected(), ElementsAre("Home", "Boats"));
  EXPECT_EQ(Browser().File1.Path(), "C:\\Home\\Boats");
}

TEST_F(MyDirTreeTest, ReturnInTheTreeChoosesTheFolder) {
  drive.MakeFolder("C:\\Home\\Boats");
  Opened(BrowseMode::Show);
  GoTo("C:\\Home\\Boats");
  person.Key(key::Return);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(desk.DestFolderFiles(1).Path(), "C:\\Home\\Boats");
}

TEST_F(MyDirTreeTest, APathThatIsSetBeforeTheTreeIsThereDoesNothing) {
  Browser().DirTree.MyDirTree_SetPath("C:\\Home");
  run.Wait(0.1);
  EXPECT_EQ(SelectedText(), "nothing");
}

TEST_F(MyDirTreeTest, AfterTheBrowserHasClosedNothingIsReadAnyMore) {
  drive.MakeFolder("C:\\Home\\One");
  Opened(BrowseMode::FilmStrip);
  run.folderReader.Hold(true);
  person.Expand(Tree(), {"Home"});
  person.Click(Browser().CancelButton);
  EXPECT_THAT(run.folderReader.Waiting(), IsEmpty());
  run.Wait(10);
}

}  // namespace
}  // namespace pixorra
