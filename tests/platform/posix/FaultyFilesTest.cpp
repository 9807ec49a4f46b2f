// The faults that tests arm strike where and when they are told to.
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/runtime/Errors.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Faults : public ::testing::Test {
 protected:
  Faults() {
    drive_.Write("C:\\p\\a", "1");
    drive_.Write("C:\\p\\b", "1");
  }
  int NumberOfOpen(const std::string& path, OpenMode mode) {
    return ErrorsIgnored([&] { files_.Open(path, mode); });
  }
  TemporaryDrive drive_;
  FaultyFiles files_{drive_.DriveFiles()};
};

TEST_F(Faults, TheNthCallFailsOnceAndNeverAgain) {
  files_.FailNth(FileCall::OpenToRead, 2, error::DeviceIO);
  EXPECT_EQ(NumberOfOpen("C:\\p\\a", OpenMode::Read), error::None);
  EXPECT_EQ(NumberOfOpen("C:\\p\\a", OpenMode::Read), error::DeviceIO);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(NumberOfOpen("C:\\p\\a", OpenMode::Read), error::None);
  EXPECT_EQ(files_.Count(FileCall::OpenToRead), 7);
}

TEST_F(Faults, OnlyCallsAtTheNamedPathCount) {
  files_.FailNth(FileCall::Delete, 1, error::PathAccess, "\\b");
  EXPECT_EQ(ErrorsIgnored([&] { files_.Delete("C:\\p\\a"); }), error::None);
  EXPECT_EQ(ErrorsIgnored([&] { files_.Delete("C:\\p\\b"); }), error::PathAccess);
  EXPECT_TRUE(drive_.Exists("C:\\p\\b"));
}

TEST_F(Faults, AlwaysLastsUntilHealed) {
  files_.FailAlways(FileCall::Rename, error::PermissionDenied);
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(ErrorsIgnored([&] { files_.Rename("C:\\p\\a", "C:\\p\\c"); }), error::PermissionDenied);
  files_.Heal();
  EXPECT_EQ(ErrorsIgnored([&] { files_.Rename("C:\\p\\a", "C:\\p\\c"); }), error::None);
}

TEST_F(Faults, AFullDiskTakesWhatFitsOfAWrite) {
  files_.FillDiskAfter(5);
  const std::unique_ptr<File> file = files_.Open("C:\\p\\new", OpenMode::ReadWrite);
  file->WriteAt(0, "abc", 3);
  EXPECT_EQ(ErrorsIgnored([&] { file->WriteAt(3, "defg", 4); }), error::DiskFull);
  EXPECT_EQ(drive_.Read("C:\\p\\new"), "abcde");
  EXPECT_EQ(ErrorsIgnored([&] { file->WriteAt(5, "h", 1); }), error::DiskFull);
}

TEST_F(Faults, ReadsWritesAndFlushesFailInAnOpenFile) {
  const std::unique_ptr<File> file = files_.Open("C:\\p\\a", OpenMode::ReadWrite);
  files_.FailNth(FileCall::Read, 1, error::DeviceIO);
  files_.FailNth(FileCall::Write, 1, error::PathAccess);
  files_.FailNth(FileCall::Flush, 1, error::DiskFull);
  std::array<char, 1> byte{'x'};
  EXPECT_EQ(ErrorsIgnored([&] { file->ReadAt(0, byte.data(), 1); }), error::DeviceIO);
  EXPECT_EQ(ErrorsIgnored([&] { file->WriteAt(0, byte.data(), 1); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { file->Flush(); }), error::DiskFull);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), "1");
}

TEST_F(Faults, AFolderTakenAwayIsGoneForAll) {
  const std::unique_ptr<File> open = files_.Open("C:\\p\\a", OpenMode::Read);
  files_.TakeAway("C:\\P");
  EXPECT_THAT(files_.Names("C:\\p", "*.*", attribute::Normal), IsEmpty());
  EXPECT_THAT(files_.Names("C:\\", "*.*", attribute::Directory), IsEmpty());
  EXPECT_FALSE(files_.FolderExists("C:\\p"));
  EXPECT_FALSE(files_.NameTaken("C:\\p\\a"));
  EXPECT_EQ(files_.LastWriteTime("C:\\p\\a"), std::nullopt);
  EXPECT_EQ(NumberOfOpen("C:\\p\\a", OpenMode::Read), error::PathNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { files_.FolderPath("C:\\p"); }), error::PathNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { files_.Delete("C:\\p"); }), error::FileNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { open->Length(); }), error::DeviceIO);
  files_.Heal();
  EXPECT_THAT(files_.Names("C:\\", "*.*", attribute::Directory), ElementsAre("p"));
}

TEST_F(Faults, WhatAnswersInsteadOfRaisingAnswersAsForNothingThere) {
  files_.FailAlways(FileCall::Attributes, error::DeviceIO);
  files_.FailAlways(FileCall::SetTimes, error::DeviceIO);
  files_.FailAlways(FileCall::Names, error::DeviceIO);
  EXPECT_FALSE(files_.FileExists("C:\\p\\a"));
  EXPECT_FALSE(files_.SetTimes("C:\\p\\a", {2000, 1, 1, 0, 0, 0, 0}));
  EXPECT_THAT(files_.Names("C:\\p", "*.*", attribute::Normal), IsEmpty());
}

}  // namespace
}  // namespace pixorra
