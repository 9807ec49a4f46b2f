// The folders in a folder: which come, in what order, and at what cost.
#include <filesystem>

#include "tests/platform/posix/FilesContract.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FilesFoldersTest : public FilesContract {
 protected:
  std::vector<std::string> Folders(int attributes = attribute::Normal) {
    return TheFiles().Folders("C:\\Photos", attributes);
  }
};

PIXORRA_ON_ALL_FILES(FilesFoldersTest);

TEST_P(FilesFoldersTest, FoldersComeInTheOrderInWhichAPersonCounts) {
  for (const char* name : {"DSC10", "DSC9", "dsc100", "b", "A"}) drive_.MakeFolder(std::string("C:\\Photos\\") + name);
  EXPECT_THAT(Folders(), ElementsAre("A", "b", "DSC9", "DSC10", "dsc100"));
}

TEST_P(FilesFoldersTest, NothingButFoldersAndLinksToFoldersComes) {
  drive_.MakeFolder("C:\\Photos\\folder");
  drive_.Write("C:\\Photos\\file.jpg", "x");
  drive_.MakeFifo("C:\\Photos\\fifo");
  drive_.MakeLink("C:\\Photos\\to folder", "folder");
  drive_.MakeLink("C:\\Photos\\to file", "file.jpg");
  drive_.MakeLink("C:\\Photos\\to nowhere", "nowhere");
  EXPECT_THAT(Folders(), ElementsAre("folder", "to folder"));
  EXPECT_THAT(Folders(attribute::System), ElementsAre("folder", "to folder"));
}

TEST_P(FilesFoldersTest, HiddenFoldersComeOnlyWhenTheyAreAskedFor) {
  drive_.MakeFolder("C:\\Photos\\.cache");
  drive_.MakeFolder("C:\\Photos\\a");
  EXPECT_THAT(Folders(), ElementsAre("a"));
  EXPECT_THAT(Folders(attribute::Hidden), ElementsAre(".cache", "a"));
}

TEST_P(FilesFoldersTest, NamesThatABackslashPathCannotCarryLeadBackToTheirFolder) {
  std::filesystem::create_directories(drive_.HostPath("C:\\Photos") + "/a\\b:c/inside");
  ASSERT_EQ(Folders().size(), 1U);
  EXPECT_THAT(TheFiles().Folders("C:\\Photos\\" + Folders()[0], attribute::Normal), ElementsAre("inside"));
}

TEST_P(FilesFoldersTest, FolderWithoutFoldersIsEmptyAndOneThatIsNotThereRaises) {
  drive_.MakeFolder("C:\\Photos");
  drive_.Write("C:\\Photos\\file.jpg", "x");
  EXPECT_THAT(Folders(), IsEmpty());
  EXPECT_EQ(ErrorOf([&] { TheFiles().Folders("C:\\Nowhere", attribute::Normal); }), error::PathNotFound);
  EXPECT_EQ(ErrorOf([&] { TheFiles().Folders("C:\\Photos\\file.jpg", attribute::Normal); }), error::PathNotFound);
}

TEST_P(FilesFoldersTest, FolderThatMayNotBeReadRaises) {
  drive_.MakeFolder("C:\\Photos");
  drive_.SetMode("C:\\Photos", 0300);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "root stays root here";
  EXPECT_EQ(ErrorOf([&] { Folders(); }), error::PathAccess);
}

// In a folder that may be read but not entered each look at an entry fails; the names still come.
TEST_P(FilesFoldersTest, NoEntryIsLookedAt) {
  drive_.MakeFolder("C:\\Photos\\a");
  drive_.Write("C:\\Photos\\file.jpg", "x");
  drive_.SetMode("C:\\Photos", 0400);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "root stays root here";
  EXPECT_THAT(Folders(), ElementsAre("a"));
}

TEST(FoldersOfMountsTest, PlaceOfAnotherDriveDoesNotCome) {
  TemporaryDrive drive;
  drive.MakeFolder("C:\\media\\card");
  drive.MakeFolder("C:\\media\\plain");
  PosixFiles files(PathMapping({{'C', drive.HostRoot(), "C"}, {'D', drive.HostPath("C:\\media\\card"), "Card"}}));
  EXPECT_THAT(files.Folders("C:\\media", attribute::Normal), ElementsAre("plain"));
}

TEST(FaultyFoldersTest, FoldersFailOnDemand) {
  TemporaryDrive drive;
  drive.MakeFolder("C:\\Photos\\a");
  drive.MakeFolder("C:\\Photos\\b");
  FaultyFiles files(drive.DriveFiles());
  files.FailNth(FileCall::Folders, 1, error::DeviceIO);
  EXPECT_EQ(ErrorOf([&] { files.Folders("C:\\Photos", attribute::Normal); }), error::DeviceIO);
  files.TakeAway("C:\\Photos\\a");
  EXPECT_THAT(files.Folders("C:\\Photos", attribute::Normal), ElementsAre("b"));
  EXPECT_EQ(ErrorOf([&] { files.Folders("C:\\Photos\\a", attribute::Normal); }), error::PathNotFound);
  EXPECT_EQ(files.Count(FileCall::Folders), 3);
}

}  // namespace
}  // namespace pixorra
