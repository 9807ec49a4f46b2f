// Second names of files, and copies on disks that have none.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/posix/LinkFile.h"
#include "platform/runtime/Errors.h"
#include "tests/support/FatDisk.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

TEST(LinkFile, ACopyHasTheBytesAndThePermissionsAndIsAFileOfItsOwn) {
  TemporaryDrive drive;
  drive.Write("C:\\a", "bytes");
  drive.SetMode("C:\\a", 0640);
  CopyFileFlushed(drive.HostPath("C:\\a"), drive.HostPath("C:\\b"));
  EXPECT_EQ(drive.Read("C:\\b"), "bytes");
  struct stat entry {};
  ASSERT_EQ(stat(drive.HostPath("C:\\b").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0640U);
  EXPECT_FALSE(drive.DriveFiles().IsSameFile("C:\\a", "C:\\b"));
}

TEST(LinkFile, ACopyReplacesNothing) {
  TemporaryDrive drive;
  drive.Write("C:\\a", "a");
  drive.Write("C:\\b", "b");
  drive.MakeLink("C:\\nowhere", "missing");
  for (const char* to : {"C:\\b", "C:\\nowhere"}) {
    const int failure = ErrorsIgnored([&] { CopyFileFlushed(drive.HostPath("C:\\a"), drive.HostPath(to)); });
    EXPECT_EQ(failure, error::FileExists) << to;
  }
  EXPECT_EQ(drive.Read("C:\\b"), "b");
  EXPECT_FALSE(drive.Exists("C:\\missing"));
}

TEST(LinkFile, ADiskWithoutSecondNamesTakesACopyOrNothing) {
  TemporaryDrive drive;
  const FatDisk disk(drive.HostPath("C:\\card"), 1024);
  if (!disk.Mounted()) GTEST_SKIP() << disk.WhyNot();
  const std::string bytes(400'000, 'x');
  drive.Write("C:\\card\\a", bytes);
  drive.DriveFiles().LinkOrCopy("C:\\card\\a", "C:\\card\\b");
  EXPECT_TRUE(drive.Read("C:\\card\\b") == bytes);
  const int failure = ErrorsIgnored([&] { drive.DriveFiles().LinkOrCopy("C:\\card\\a", "C:\\card\\c"); });
  EXPECT_NE(failure, error::None) << "there is no room for it";
  EXPECT_FALSE(drive.Exists("C:\\card\\c")) << "half of it is there";
}

}  // namespace
}  // namespace pixorra
