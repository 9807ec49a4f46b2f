// Renaming in one step and in several: neither ever replaces anything.
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include "platform/posix/HostErrors.h"
#include "platform/posix/RenameFile.h"
#include "tests/support/FatDisk.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using RenameFunction = int (*)(const std::string&, const std::string&);

class Renaming : public ::testing::TestWithParam<RenameFunction> {
 protected:
  int Rename(const std::string& from, const std::string& to) {
    return GetParam()(drive_.HostPath(from), drive_.HostPath(to));
  }
  TemporaryDrive drive_;
};
INSTANTIATE_TEST_SUITE_P(By, Renaming, ::testing::Values(RenameKeeping, RenameKeepingInSteps),
                         [](const auto& way) { return way.param == RenameKeeping ? "OneStep" : "Steps"; });

TEST_P(Renaming, FilesLinksAndFoldersMoveToFreeNames) {
  drive_.Write("C:\\file", "1");
  drive_.Write("C:\\folder\\x", "2");
  drive_.MakeLink("C:\\link", "file");
  EXPECT_EQ(Rename("C:\\file", "C:\\file2"), 0);
  EXPECT_EQ(Rename("C:\\folder", "C:\\folder2"), 0);
  EXPECT_EQ(Rename("C:\\link", "C:\\link2"), 0);
  EXPECT_EQ(drive_.Read("C:\\file2"), "1");
  EXPECT_EQ(drive_.Read("C:\\folder2\\x"), "2");
  EXPECT_TRUE(drive_.DriveFiles().IsLink("C:\\link2"));
  for (const char* path : {"C:\\file", "C:\\folder", "C:\\link"}) EXPECT_FALSE(drive_.Exists(path)) << path;
}

TEST_P(Renaming, WhateverHasTheNewNameStays) {
  drive_.Write("C:\\a", "a");
  drive_.Write("C:\\b", "b");
  drive_.MakeFolder("C:\\from");
  drive_.MakeFolder("C:\\empty");
  drive_.MakeLink("C:\\nowhere", "missing");
  EXPECT_EQ(Rename("C:\\a", "C:\\b"), EEXIST);
  EXPECT_EQ(Rename("C:\\a", "C:\\empty"), EEXIST);
  EXPECT_EQ(Rename("C:\\a", "C:\\nowhere"), EEXIST);
  EXPECT_EQ(Rename("C:\\from", "C:\\empty"), EEXIST);
  EXPECT_EQ(Rename("C:\\a", "C:\\a"), EEXIST);
  EXPECT_EQ(drive_.Read("C:\\a"), "a");
  EXPECT_EQ(drive_.Read("C:\\b"), "b");
}

TEST_P(Renaming, TwoHardLinksThatDifferInCaseAreTwoFiles) {
  drive_.Write("C:\\a", "1");
  std::filesystem::create_hard_link(drive_.HostPath("C:\\a"), drive_.HostPath("C:\\A"));
  EXPECT_EQ(Rename("C:\\a", "C:\\A"), EEXIST);
  EXPECT_TRUE(drive_.Exists("C:\\a"));
  EXPECT_TRUE(drive_.Exists("C:\\A"));
}

TEST_P(Renaming, AMissingFileIsTold) {
  EXPECT_EQ(Rename("C:\\a", "C:\\b"), ENOENT);
}

// Where there are neither links nor a rename that keeps what is there, the name is claimed first.
TEST(RenamingInSteps, OfTwoFilesThatAreGivenOneNameAtOnceNoneIsLost) {
  TemporaryDrive drive;
  const FatDisk disk(drive.HostPath("C:\\card"), 1024);
  if (!disk.Mounted()) GTEST_SKIP() << disk.WhyNot();
  for (int i = 0; i < 20 && !::testing::Test::HasFailure(); ++i) {
    const std::string to = "C:\\card\\to" + std::to_string(i);
    const std::string from[] = {to + "a", to + "b"};
    for (const std::string& path : from) drive.Write(path, path);
    std::atomic<int> ready = 0;
    int results[2] = {};
    const auto rename = [&](int which) {
      ++ready;
      while (ready < 2) {
      }
      results[which] = RenameKeepingInSteps(drive.HostPath(from[which]), drive.HostPath(to));
    };
    std::thread other(rename, 1);
    rename(0);
    other.join();
    for (int which : {0, 1}) {
      EXPECT_EQ(drive.Read(results[which] == 0 ? to : from[which]), from[which]) << results[which];
      EXPECT_TRUE(results[which] == 0 || results[which] == EEXIST) << results[which];
    }
  }
}

TEST(HostErrors, EachErrorOfTheHostHasItsNumber) {
  const std::pair<int, int> table[] = {{ENOENT, error::FileNotFound},    {EEXIST, error::FileExists},
                                       {ENOSPC, error::DiskFull},        {EDQUOT, error::DiskFull},
                                       {EFBIG, error::DiskFull},         {EACCES, error::PathAccess},
                                       {EPERM, error::PathAccess},       {EROFS, error::PathAccess},
                                       {EISDIR, error::PathAccess},      {ENOTEMPTY, error::PathAccess},
                                       {ELOOP, error::PathAccess},       {ENOTDIR, error::PathNotFound},
                                       {EBUSY, error::PermissionDenied}, {ETXTBSY, error::PermissionDenied},
                                       {EXDEV, error::DifferentDrive},   {ENAMETOOLONG, error::BadFileName},
                                       {EINVAL, error::BadFileName},     {ENOMEDIUM, error::DiskNotReady},
                                       {ENOMEM, error::OutOfMemory},     {EIO, error::DeviceIO},
                                       {ENOTCONN, error::DeviceIO}};
  for (const auto& [hostError, number] : table) EXPECT_EQ(ErrorNumberOf(hostError), number) << hostError;
}

}  // namespace
}  // namespace pixorra
