// Contract of Files: removing a folder with all that is in it.
#include "tests/platform/posix/FilesContract.h"

namespace pixorra {
namespace {

class FilesTree : public FilesContract {
 protected:
  int NumberOfRemoveTree(const std::string& path) {
    return ErrorsIgnored([&] { TheFiles().RemoveTree(path); });
  }
};
PIXORRA_ON_ALL_FILES(FilesTree);

TEST_P(FilesTree, AFolderGoesWithAllThatIsInItAndItsNeighboursStay) {
  drive_.Write("C:\\p\\tree\\.hidden\\a.jpg", "1");
  drive_.Write("C:\\p\\tree\\Thumbnails.tmp", "1");
  drive_.Write("C:\\p\\tree2\\a.jpg", "1");
  TheFiles().RemoveTree("C:\\p\\tree\\");
  EXPECT_FALSE(drive_.Exists("C:\\p\\tree"));
  EXPECT_EQ(drive_.Read("C:\\p\\tree2\\a.jpg"), "1");
}

TEST_P(FilesTree, AFolderOfAnotherCaseIsAnotherFolder) {
  drive_.Write("C:\\p\\Tree\\a.jpg", "1");
  EXPECT_EQ(NumberOfRemoveTree("C:\\p\\tree"), error::PathNotFound);
  EXPECT_EQ(NumberOfRemoveTree("C:\\P\\Tree"), error::PathNotFound);
  EXPECT_EQ(drive_.Read("C:\\p\\Tree\\a.jpg"), "1");
}

TEST_P(FilesTree, RootsLinksFilesAndWhatIsNotThereAreRefused) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.MakeLink("C:\\p\\link", ".");
  EXPECT_EQ(NumberOfRemoveTree("C:\\"), error::PathAccess);
  EXPECT_EQ(NumberOfRemoveTree("C:"), error::PathAccess);
  EXPECT_EQ(NumberOfRemoveTree("C:\\p\\link"), error::PathAccess);
  EXPECT_EQ(NumberOfRemoveTree("C:\\p\\a.jpg"), error::PathNotFound);
  EXPECT_EQ(NumberOfRemoveTree("C:\\p\\missing"), error::PathNotFound);
  EXPECT_EQ(NumberOfRemoveTree("Q:\\p"), error::PathNotFound);
  EXPECT_EQ(NumberOfRemoveTree("p"), error::BadFileName);
  EXPECT_EQ(NumberOfRemoveTree("C:\\p\\..\\p"), error::BadFileName);
  EXPECT_EQ(drive_.Read("C:\\p\\a.jpg"), "1");
}

TEST(FilesTreeOnFaultyFiles, ARemovalThatFailsOnDemandRemovesNothing) {
  TemporaryDrive drive;
  FaultyFiles files(drive.DriveFiles());
  drive.Write("C:\\p\\a.jpg", "1");
  files.FailNth(FileCall::RemoveTree, 1, error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files.RemoveTree("C:\\p"); }), error::PathAccess);
  EXPECT_TRUE(drive.Exists("C:\\p\\a.jpg"));
  files.RemoveTree("C:\\p");
  EXPECT_FALSE(drive.Exists("C:\\p"));
}

}  // namespace
}  // namespace pixorra
