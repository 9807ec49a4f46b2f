// Deleting a folder of the Desktop: what is asked, what goes, and what never does.
#include <filesystem>

#include "desktop/FolderDelete.h"
#include "platform/controls/Toolkit.h"
#include "tests/desktop/DesktopTest.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

constexpr const char* CannotDelete = "WARNING: Can't Delete this folder";

class FolderDeleteTest : public DesktopTest {
 protected:
  static std::string Question(const std::string& path, const std::string& contents) {
    return path + "\n\nYou are about to Delete this folder.\n" + contents + "\n\nDelete this folder?";
  }
  static std::string Holds(const std::string& what) {
    return "This folder still contains " + what + "\nAll of these contents will be lost.";
  }
  void ExpectQuestion(const std::string& name, const std::string& contents, BoxAnswer answer = BoxAnswer::Yes,
                      Person::Action meanwhile = {}) {
    const std::string last = name.substr(name.rfind('\\') == std::string::npos ? 0 : name.rfind('\\') + 1);
    person.ExpectBox(" " + last + "  - Delete this folder", Question(Folder(name), contents), answer,
                     std::move(meanwhile));
  }
  void ExpectFailure(const std::string& name) {
    person.ExpectBox("Error - Deleting Folder", Folder(name) + "\n\nUnable to delete folder.");
  }
  void ExpectRefused(const std::string& path, const std::string& why) {
    person.ExpectBox(CannotDelete, path + "\n\n" + why);
  }
};

constexpr const char* System = "It is a protected system folder.";
constexpr const char* Root =
    "This folder is a root drive or shared network resource.\n"
    "It cannot be deleted. This is to protect the critical\nfiles and folders that it may also contain.";

TEST_F(FolderDeleteTest, AFolderThatIsDeletedLeavesDiskAndDesktop) {
  const int slot = Show(MakePhotos("One", 2));
  ExpectQuestion("One", Holds(" 2 files"));
  DeleteFolderAsked(main, slot);
  EXPECT_FALSE(drive.Exists(Folder("One")));
  EXPECT_FALSE(desk.DestFolder(slot).Visible());
  EXPECT_EQ(desk.FoldersShown, 0);
  EXPECT_EQ(desk.OpenFolderIndex, 0);
}

TEST_F(FolderDeleteTest, FilesAndSubFoldersAreCountedInTheQuestion) {
  const int slot = Show(MakePhotos("One", 3));
  drive.Write(Folder("One") + "\\sub\\a.txt", "1");
  drive.MakeFolder(Folder("One") + "\\sub2");
  drive.Write(Folder("One") + "\\Thumbnails.tmp", "1");
  ExpectQuestion("One", Holds(" 3 files and  2 SUB-FOLDERs\n"), BoxAnswer::No);
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p001.bmp"));
  EXPECT_TRUE(desk.DestFolder(slot).Visible());
}

TEST_F(FolderDeleteTest, SubFoldersAloneAreCountedToo) {
  drive.MakeFolder(Folder("One") + "\\sub");
  const int slot = Show(Folder("One"));
  ExpectQuestion("One", Holds(" 0 files and  1 SUB-FOLDERs\n"), BoxAnswer::No);
  DeleteFolderAsked(main, slot);
}

TEST_F(FolderDeleteTest, AFolderWithACacheFileAloneIsEmptyAndGoesWithIt) {
  drive.Write(Folder("One") + "\\Thumbnails.tmp", "1");
  const int slot = Show(Folder("One"));
  ExpectQuestion("One", "This folder is empty.");
  DeleteFolderAsked(main, slot);
  EXPECT_FALSE(drive.Exists(Folder("One")));
}

TEST_F(FolderDeleteTest, WhatIsHiddenIsCountedAsItWillBeLost) {
  drive.Write(Folder("One") + "\\.secret", "1");
  drive.MakeFolder(Folder("One") + "\\.git");
  drive.MakeLink(Folder("One") + "\\nowhere", "missing");
  const int slot = Show(Folder("One"));
  ExpectQuestion("One", Holds(" 2 files and  1 SUB-FOLDERs\n"), BoxAnswer::No);
  DeleteFolderAsked(main, slot);
}

TEST_F(FolderDeleteTest, TheFolderThatWasOpenBeforeIsOpenAfterwards) {
  const int one = Show(MakePhotos("One", 1));
  const int two = ShowAndOpen(MakePhotos("Two", 1));
  Show(MakePhotos("Three", 1));
  ExpectQuestion("One", Holds(" 1 files"));
  DeleteFolderAsked(main, one);
  EXPECT_EQ(desk.OpenFolderIndex, two);
  EXPECT_EQ(desk.DestContentsLabel.Caption(), " Two ");
}

TEST_F(FolderDeleteTest, NoFolderIsOpenAfterTheOpenOneIsDeleted) {
  Show(MakePhotos("One", 1));
  const int two = ShowAndOpen(MakePhotos("Two", 1));
  run.LoadAll();
  ExpectQuestion("Two", Holds(" 1 files"));
  DeleteFolderAsked(main, two);
  EXPECT_EQ(desk.OpenFolderIndex, 0);
  EXPECT_EQ(desk.DestContentsLabel.Caption(), "");
  run.Wait(0.2);
  EXPECT_EQ(desk.DestSlotCount, 0);
}

TEST_F(FolderDeleteTest, SubFoldersOnTheDesktopVanishWithTheParentWithoutAMessage) {
  const int one = Show(MakePhotos("One", 0));
  Show(MakePhotos("One\\a", 1));
  const int other = Show(MakePhotos("Other", 1));
  Show(MakePhotos("One\\a\\b", 1));
  Show(MakePhotos("One\\c", 1));
  ExpectQuestion("One", Holds(" 0 files and  2 SUB-FOLDERs\n"));
  DeleteFolderAsked(main, one);
  EXPECT_EQ(desk.FoldersShown, 1);
  for (int i = 1; i <= FolderSlots; ++i) EXPECT_EQ(desk.DestFolder(i).Visible(), i == other) << i;
  EXPECT_EQ(desk.OpenFolderIndex, 0);
}

TEST_F(FolderDeleteTest, ANetworkFolderThatDoesNotAnswerStays) {
  const std::string share = drive.HostShare("nas", "photos");
  std::filesystem::create_directories(share + "/Trip");
  const int one = Show(MakePhotos("One", 0));
  const int trip = Show("\\\\nas\\photos\\Trip");
  Show(MakePhotos("Last", 1));  // the one that opens in between
  std::filesystem::remove_all(share);
  ExpectQuestion("One", "This folder is empty.");
  DeleteFolderAsked(main, one);
  EXPECT_FALSE(desk.DestFolder(one).Visible());
  EXPECT_TRUE(desk.DestFolder(trip).Visible());
}

TEST_F(FolderDeleteTest, TheRootOfANetworkShareIsNeverDeleted) {
  std::filesystem::create_directories(drive.HostShare("nas", "photos") + "/Trip");
  const int slot = Show("\\\\nas\\photos");
  ExpectRefused("\\\\nas\\photos", Root);
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(std::filesystem::exists(drive.HostShare("nas", "photos") + "/Trip"));
}

TEST_F(FolderDeleteTest, AFolderThatCannotBeDeletedLeavesTheDesktopAllTheSame) {
  const int slot = Show(MakePhotos("One", 1));
  run.files.FailNth(FileCall::RemoveTree, 1, error::PathAccess);
  ExpectQuestion("One", Holds(" 1 files"));
  ExpectFailure("One");
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p001.bmp"));
  EXPECT_FALSE(desk.DestFolder(slot).Visible());
}

TEST_F(FolderDeleteTest, AFolderReachedThroughALinkStaysWithAllThatIsInIt) {
  MakePhotos("Real\\inner", 2);
  drive.MakeLink(Folder("way"), "Real");
  const int link = Show(Folder("way"));
  const int inner = Show(Folder("way") + "\\inner");
  ExpectQuestion("way\\inner", Holds(" 2 files"));
  person.ExpectBox("Error - Deleting Folder", Folder("way") + "\\inner\n\nUnable to delete folder.");
  DeleteFolderAsked(main, inner);
  ExpectQuestion("way", Holds(" 0 files and  1 SUB-FOLDERs\n"));
  person.ExpectBox("Error - Deleting Folder", Folder("way") + "\n\nUnable to delete folder.");
  DeleteFolderAsked(main, link);
  EXPECT_TRUE(drive.Exists(Folder("Real") + "\\inner\\p002.bmp"));
  EXPECT_TRUE(drive.DriveFiles().IsLink(Folder("way")));
}

TEST_F(FolderDeleteTest, AFolderThatTheSlotNoLongerShowsAtTheAnswerStays) {
  const int slot = Show(MakePhotos("One", 1));
  MakePhotos("Two", 1);
  ExpectQuestion("One", Holds(" 1 files"), BoxAnswer::Yes, [&] {
    Select_a_Folder(main, slot);
    Remove_Open_Folder(main);
    Show(Folder("Two"));
  });
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p001.bmp"));
  EXPECT_TRUE(drive.Exists(Folder("Two") + "\\p001.bmp"));
  EXPECT_TRUE(desk.DestFolder(slot).Visible());
}

TEST_F(FolderDeleteTest, AProgramThatEndsDuringTheQuestionDeletesNothing) {
  const int slot = Show(MakePhotos("One", 1));
  ExpectQuestion("One", Holds(" 1 files"), BoxAnswer::Yes, [&] { main.Window.Unload(); });
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p001.bmp"));
}

TEST_F(FolderDeleteTest, AFolderThatGoesDuringTheQuestionCostsNoOtherFolder) {
  const int one = Show(MakePhotos("One", 1));
  const int two = ShowAndOpen(MakePhotos("Two", 1));
  ExpectQuestion("One", Holds(" 1 files"), BoxAnswer::Yes, [&] { drive.Remove(Folder("One")); });
  person.ExpectBox("Pixorra - Unable to Open folder", "?? Folder Not Found\n\n" + Folder("One"));
  ExpectFailure("One");
  DeleteFolderAsked(main, one);
  EXPECT_FALSE(desk.DestFolder(one).Visible());
  EXPECT_TRUE(desk.DestFolder(two).Visible());
  EXPECT_TRUE(drive.Exists(Folder("Two") + "\\p001.bmp"));
}

TEST_F(FolderDeleteTest, AFolderThatCannotBeListedIsNeitherCalledEmptyNorDeleted) {
  const int slot = Show(MakePhotos("One", 2));
  drive.SetMode(Folder("One"), 0300);
  {
    const OrdinaryUser user(drive.HostRoot());
    if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
    ExpectFailure("One");
    DeleteFolderAsked(main, slot);
  }
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p002.bmp"));
}

TEST_F(FolderDeleteTest, AFolderWhoseListingFailsIsNeitherCalledEmptyNorDeleted) {
  const int slot = Show(MakePhotos("One", 2));
  run.files.FailAlways(FileCall::Names, error::DeviceIO, Folder("One"));
  ExpectFailure("One");
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p002.bmp"));
}

TEST_F(FolderDeleteTest, AFolderThatCannotBeOpenedAfterTheQuestionStays) {
  const int slot = Show(MakePhotos("One", 1));
  ExpectQuestion("One", Holds(" 1 files"), BoxAnswer::Yes,
                 [&] { run.files.FailAlways(FileCall::FolderPath, error::PathNotFound, Folder("One")); });
  person.ExpectBox("Pixorra - Unable to Open folder", "?? Folder Not Found\n\n" + Folder("One"));
  ExpectFailure("One");
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p001.bmp"));
}

TEST_F(FolderDeleteTest, AnotherFolderThatTakesItsNameDuringTheQuestionStays) {
  const int slot = Show(MakePhotos("One", 1));
  ExpectQuestion("One", Holds(" 1 files"), BoxAnswer::Yes, [&] {
    std::filesystem::rename(drive.HostPath(Folder("One")), drive.HostPath(Folder("Moved")));
    MakePhotos("One", 3);
  });
  ExpectFailure("One");
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p003.bmp"));
  EXPECT_TRUE(drive.Exists(Folder("Moved") + "\\p001.bmp"));
}

TEST_F(FolderDeleteTest, AFolderThatIsProtectedAtTheAnswerStays) {
  const int slot = Show(MakePhotos("One", 1));
  ExpectQuestion("One", Holds(" 1 files"), BoxAnswer::Yes, [&] { drive.DrivePlaces().Kept = {Folder("One")}; });
  ExpectRefused(Folder("One"), System);
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("One") + "\\p001.bmp"));
  EXPECT_TRUE(desk.DestFolder(slot).Visible());
}

TEST_F(FolderDeleteTest, AnotherFolderThatCannotBeLookedAtNowStaysOnTheDesktop) {
  const int one = Show(MakePhotos("One", 0));
  const int two = Show(MakePhotos("Two", 1));
  Show(MakePhotos("Last", 1));  // the one that opens in between
  ExpectQuestion("One", "This folder is empty.", BoxAnswer::Yes, [&] {
    run.files.FailAlways(FileCall::Attributes, error::DeviceIO, Folder("Two"));
    run.files.FailAlways(FileCall::IdentityOf, error::DeviceIO, Folder("Two"));
  });
  DeleteFolderAsked(main, one);
  EXPECT_FALSE(drive.Exists(Folder("One")));
  EXPECT_TRUE(desk.DestFolder(two).Visible());
}

TEST_F(FolderDeleteTest, AStepThatFailsAfterTheAnswerStopsNoOther) {
  const int slot = ShowAndOpen(MakePhotos("One", 1));
  ExpectQuestion("One", Holds(" 1 files"), BoxAnswer::Yes, [&] {
    for (const int n : {1, 2})
      run.files.BeforeNth(
          FileCall::Names, n, [] { throw RuntimeError(error::OutOfMemory); }, Folder("One"));
  });
  DeleteFolderAsked(main, slot);
  EXPECT_FALSE(drive.Exists(Folder("One")));
  EXPECT_FALSE(desk.DestFolder(slot).Visible());
  EXPECT_EQ(desk.DestContentsLabel.Caption(), "");
}

TEST_F(FolderDeleteTest, NoSlotAndAFreeSlotDoNothing) {
  DeleteFolderAsked(main, 0);
  DeleteFolderAsked(main, 5);
}

// --- what is protected -----------------------------------------------------------------------------------------------

TEST_F(FolderDeleteTest, ADriveIsNeverDeleted) {
  const int slot = Show("C:\\");
  ExpectRefused("C:\\", Root);
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(desk.DestFolder(slot).Visible());
}

TEST_F(FolderDeleteTest, TheRootOfAVolumeWithoutALetterIsOneToo) {
  const int slot = Show(MakePhotos("gphoto2", 1));
  run.platform.volumes.Set({{"Camera", VolumeKind::Camera, Folder("GPHOTO2") + "\\"}});
  ExpectRefused(Folder("gphoto2"), Root);
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("gphoto2")));
}

TEST_F(FolderDeleteTest, ProtectedFoldersAndThoseThatHoldThemStay) {
  drive.DrivePlaces().Kept = {"C:\\Home\\Anna\\Music"};
  for (const char* made : {"C:\\Home\\Anna\\Music", "C:\\Windows\\System32", "C:\\Desktop", "C:\\Recent"})
    drive.MakeFolder(made);
  for (const char* path : {"C:\\Home\\Anna\\Music", "C:\\Home\\Anna", "C:\\Home", "C:\\Windows",
                           "C:\\Windows\\System32", "C:\\Desktop", "C:\\Recent"}) {
    const int slot = Show(path);
    ExpectRefused(path, System);
    DeleteFolderAsked(main, slot);
    EXPECT_TRUE(drive.Exists(path));
    Select_a_Folder(main, slot);
    Remove_Open_Folder(main);
  }
}

TEST_F(FolderDeleteTest, TheProgramsOwnFoldersStayAndTheTrashcanShownAsAFolderToo) {
  for (const char* path : {"C:\\Program", "C:\\Program\\Trashcan", "C:\\Temp"}) {
    drive.MakeFolder(path);
    const int slot = Show(path);
    ExpectRefused(path, System);
    DeleteFolderAsked(main, slot);
    EXPECT_TRUE(drive.Exists(path));
  }
}

TEST_F(FolderDeleteTest, AProtectedFolderUnderAnotherNameStays) {
  drive.DrivePlaces().Kept = {Folder("Pictures")};
  MakePhotos("Pictures", 1);
  drive.MakeLink(Folder("mine"), "Pictures");
  const int slot = Show(Folder("mine"));
  ExpectRefused(Folder("mine"), System);
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("Pictures") + "\\p001.bmp"));
}

TEST_F(FolderDeleteTest, AFolderThatHoldsTheHomeInFactStays) {
  drive.MakeFolder("C:\\Data\\people\\anna");
  drive.MakeLink("C:\\Home\\Anna", "../Data/people/anna");
  drive.DrivePlaces().Kept = {"C:\\Home\\Anna"};
  for (const char* path : {"C:\\Data\\people", "C:\\Data"}) {
    const int slot = Show(path);
    ExpectRefused(path, System);
    DeleteFolderAsked(main, slot);
    EXPECT_TRUE(drive.Exists("C:\\Data\\people\\anna"));
  }
}

TEST_F(FolderDeleteTest, WhatTheDesktopMountsIsARoot) {
  const int slot = Show(MakePhotos("far", 1));
  run.platform.volumes.DesktopMounts = {Folder("far")};
  ExpectRefused(Folder("far"), Root);
  DeleteFolderAsked(main, slot);
  EXPECT_TRUE(drive.Exists(Folder("far") + "\\p001.bmp"));
}

TEST_F(FolderDeleteTest, SubFoldersOfProtectedFoldersAreNotProtected) {
  drive.DrivePlaces().Kept = {Folder("Pictures")};
  const int slot = Show(MakePhotos("Pictures\\2004", 1));
  ExpectQuestion("Pictures\\2004", Holds(" 1 files"));
  DeleteFolderAsked(main, slot);
  EXPECT_FALSE(drive.Exists(Folder("Pictures") + "\\2004"));
  EXPECT_TRUE(drive.Exists(Folder("Pictures")));
}

// --- by hand ---------------------------------------------------------------------------------------------------------

TEST_F(FolderDeleteTest, TheItemOfThePopUpMenuDeletesTheFolderUnderTheMouse) {
  Show(MakePhotos("One", 1));
  const int two = Show(MakePhotos("Two", 1));
  ExpectQuestion("Two", Holds(" 1 files"));
  person.ExpectMenu(main.menu.FolderPopupMenu, &main.menu.DeleteFolderPopupItem);
  person.RightClick(desk.DestFolderName(two));
  EXPECT_FALSE(drive.Exists(Folder("Two")));
  EXPECT_TRUE(drive.Exists(Folder("One")));
}

TEST_F(FolderDeleteTest, TheItemOfTheMenuAndItsShortcutDeleteTheOpenFolder) {
  ShowAndOpen(MakePhotos("One", 1));
  ExpectQuestion("One", Holds(" 1 files"));
  person.ChooseMenu(main.menu.DeleteOpenFolderMenuItem);
  EXPECT_FALSE(drive.Exists(Folder("One")));
  ShowAndOpen(MakePhotos("Two", 1));
  ExpectQuestion("Two", Holds(" 1 files"));
  person.Key(key::Delete, shift::Shift);
  EXPECT_FALSE(drive.Exists(Folder("Two")));
}

TEST_F(FolderDeleteTest, TheItemsOfTheMenuNeedAnOpenFolder) {
  Raise(main.menu.OpenFolderMenu.On().Click, main.menu.OpenFolderMenu);
  EXPECT_FALSE(main.menu.DeleteOpenFolderMenuItem.Enabled());
  EXPECT_FALSE(main.menu.RenameOpenFolderMenuItem.Enabled());
  EXPECT_FALSE(main.menu.SwapOpenFolderMenuItem.Enabled());
  Select_a_Folder(main, TrashcanSlot);
  Raise(main.menu.OpenFolderMenu.On().Click, main.menu.OpenFolderMenu);
  EXPECT_TRUE(main.menu.DeleteOpenFolderMenuItem.Enabled());
  EXPECT_TRUE(main.menu.SwapOpenFolderMenuItem.Enabled());
  EXPECT_EQ(main.menu.DeleteOpenFolderMenuItem.Caption(), "Empty Trashcan");
}

}  // namespace
}  // namespace pixorra
