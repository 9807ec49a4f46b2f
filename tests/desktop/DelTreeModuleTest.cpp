// Deleting a tree, and counting what is in a folder.
#include <gtest/gtest.h>

#include "desktop/DelTreeModule.h"
#include "platform/runtime/Errors.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

class DelTreeModuleTest : public ::testing::Test {
 protected:
  DelTreeModuleTest() {
    for (const char* file : {"a.jpg", "b.txt", "Thumbnails.tmp", ".hidden"})
      drive_.Write(std::string("C:\\p\\") + file, "1");
    drive_.Write("C:\\p\\sub\\c.jpg", "1");
    drive_.MakeFolder("C:\\p\\.git");
    drive_.MakeLink("C:\\p\\link", "sub");
    drive_.MakeLink("C:\\p\\nowhere", "missing");
  }
  TemporaryDrive drive_;
  Files& files_ = drive_.DriveFiles();
};

TEST_F(DelTreeModuleTest, PlainFilesAreCountedWithoutTheCacheFile) {
  EXPECT_EQ(TotalFilesRemaining(files_, "C:\\p"), 2);
  EXPECT_EQ(TotalFilesRemaining(files_, "C:\\p\\"), 2);
}

TEST_F(DelTreeModuleTest, SubFoldersAreCounted) {
  EXPECT_EQ(TotalDirectoriesRemaining(files_, "C:\\p"), 2);
  EXPECT_EQ(TotalDirectoriesRemaining(files_, "C:\\p\\sub"), 0);
}

TEST_F(DelTreeModuleTest, AFolderThatIsNotThereHoldsNothing) {
  EXPECT_EQ(TotalFilesRemaining(files_, "C:\\missing"), 0);
  EXPECT_EQ(TotalDirectoriesRemaining(files_, "C:\\missing"), 0);
}

TEST_F(DelTreeModuleTest, WhatWouldBeLostIsMore) {
  const FolderContents contents = ContentsToLose(files_, "C:\\p");
  EXPECT_EQ(contents.Files + contents.Folders, 7);
}

TEST_F(DelTreeModuleTest, WhatWouldBeLostIsUnknownWhereTheFolderCannotBeRead) {
  FaultyFiles faulty(files_);
  faulty.FailNth(FileCall::Names, 2, error::DeviceIO);
  EXPECT_EQ(ErrorsIgnored([&] { ContentsToLose(faulty, "C:\\p"); }), error::DeviceIO);
  EXPECT_EQ(ErrorsIgnored([&] { ContentsToLose(faulty, "C:\\missing"); }), error::PathNotFound);
}

TEST_F(DelTreeModuleTest, ATreeIsGoneOrTheAnswerIsNo) {
  const FolderIdentity folder = files_.IdentityOf("C:\\p");
  EXPECT_FALSE(DeleteTree(files_, "C:\\p\\sub", folder));
  EXPECT_TRUE(drive_.Exists("C:\\p\\sub\\c.jpg"));
  EXPECT_TRUE(DeleteTree(files_, "C:\\p\\", folder));
  EXPECT_FALSE(drive_.Exists("C:\\p"));
  for (const char* path : {"C:\\p", "C:\\", ""}) EXPECT_FALSE(DeleteTree(files_, path, folder)) << path;
}

}  // namespace
}  // namespace pixorra
