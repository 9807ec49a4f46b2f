// Contract of Files: removing a folder with all that is in it.
#include "tests/platform/posix/FilesContract.h"
#include "tests/platform/posix/OrdinaryUser.h"

namespace pixorra {
namespace {

class FilesTree : public FilesContract {
 protected:
  int NumberOfRemoveTree(const std::string& path) {
    const FolderIdentity meant = OrElse(FolderIdentity(), [&] { return TheFiles().IdentityOf(path); });
    return ErrorsIgnored([&] { TheFiles().RemoveTree(path, meant); });
  }
};
PIXORRA_ON_ALL_FILES(FilesTree);

TEST_P(FilesTree, AFolderGoesWithAllThatIsInItAndItsNeighboursStay) {
  drive_.Write("C:\\p\\tree\\.hidden\\a.jpg", "1");
  drive_.Write("C:\\p\\tree\\Thumbnails.tmp", "1");
  drive_.Write("C:\\p\\tree2\\a.jpg", "1");
  EXPECT_EQ(NumberOfRemoveTree("C:\\p\\tree\\"), error::None);
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

TEST_P(FilesTree, AnotherFolderThanTheOneThatIsMeantStays) {
  drive_.Write("C:\\p\\tree\\a.jpg", "1");
  drive_.Write("C:\\p\\other\\b.jpg", "1");
  const FolderIdentity other = TheFiles().IdentityOf("C:\\p\\other");
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().RemoveTree("C:\\p\\tree", other); }), error::PathAccess);
  EXPECT_TRUE(drive_.Exists("C:\\p\\tree\\a.jpg"));
  EXPECT_TRUE(drive_.Exists("C:\\p\\other\\b.jpg"));
}

TEST_P(FilesTree, AFolderKeepsItsIdentityUnderAnotherNameAndLendsItToNone) {
  drive_.MakeFolder("C:\\p\\One");
  drive_.MakeLink("C:\\p\\link", "One");
  const FolderIdentity one = TheFiles().IdentityOf("C:\\p\\one\\");
  EXPECT_EQ(TheFiles().IdentityOf("C:\\p\\link"), one);
  TheFiles().Rename("C:\\p\\One", "C:\\p\\Two");
  drive_.MakeFolder("C:\\p\\One");
  EXPECT_EQ(TheFiles().IdentityOf("C:\\p\\Two"), one);
  EXPECT_NE(TheFiles().IdentityOf("C:\\p\\One"), one);
}

TEST_P(FilesTree, WhatIsSurelyNoFolderHasNoIdentity) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  drive_.MakeLink("C:\\p\\circle", "circle");
  for (const char* path : {"C:\\p\\a.jpg", "C:\\p\\nowhere", "C:\\p\\circle", "C:\\p\\missing\\x", "Q:\\p"})
    EXPECT_EQ(ErrorsIgnored([&] { TheFiles().IdentityOf(path); }), error::PathNotFound) << path;
}

TEST_P(FilesTree, AFolderThatCannotBeReachedIsNotCalledMissing) {
  drive_.MakeFolder("C:\\p\\closed\\in");
  drive_.SetMode("C:\\p\\closed", 0000);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().IdentityOf("C:\\p\\closed\\in"); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().CompleteNames("C:\\p\\closed", "*.*", 0); }), error::PathAccess);
  EXPECT_TRUE(TheFiles().Names("C:\\p\\closed", "*.*", 0).empty());
}

TEST_P(FilesTree, CompleteNamesAreThoseThatNamesGivesOrAnError) {
  for (const char* name : {"a.jpg", "b.txt", ".hidden", "sub\\c.jpg"}) drive_.Write(std::string("C:\\p\\") + name, "1");
  for (const int attributes : {attribute::Normal, attribute::Hidden | attribute::Directory})
    EXPECT_THAT(TheFiles().CompleteNames("C:\\p", "*.*", attributes),
                ::testing::UnorderedElementsAreArray(TheFiles().Names("C:\\p", "*.*", attributes)));
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().CompleteNames("C:\\missing", "*.*", 0); }), error::PathNotFound);
}

TEST_P(FilesTree, ARealPathHasNoLinkInIt) {
  drive_.MakeFolder("C:\\data\\anna");
  drive_.MakeLink("C:\\home", "data");
  drive_.MakeLink("C:\\nowhere", "missing");
  EXPECT_EQ(TheFiles().RealPath("C:\\Home\\anna"), "C:\\data\\anna");
  EXPECT_EQ(TheFiles().RealPath("C:\\data\\anna\\"), "C:\\data\\anna");
  EXPECT_EQ(TheFiles().RealPath("C:\\"), "C:\\");
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().RealPath("C:\\nowhere"); }), error::PathNotFound);
}

TEST(FilesTreeOnFaultyFiles, ARemovalThatFailsOnDemandRemovesNothing) {
  TemporaryDrive drive;
  FaultyFiles files(drive.DriveFiles());
  drive.Write("C:\\p\\a.jpg", "1");
  const FolderIdentity meant = files.IdentityOf("C:\\p");
  files.FailNth(FileCall::RemoveTree, 1, error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files.RemoveTree("C:\\p", meant); }), error::PathAccess);
  EXPECT_TRUE(drive.Exists("C:\\p\\a.jpg"));
  files.RemoveTree("C:\\p", meant);
  EXPECT_FALSE(drive.Exists("C:\\p"));
}

}  // namespace
}  // namespace pixorra
