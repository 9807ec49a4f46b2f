// Whole files in memory.
#include <gtest/gtest.h>

#include "platform/runtime/Errors.h"
#include "platform/services/FileBytes.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

std::string TextOf(const FileBytes& bytes) {
  return {bytes.Bytes().begin(), bytes.Bytes().end()};
}

TEST(FileBytes, HoldsTheLastFileRead) {
  TemporaryDrive drive;
  drive.Write("C:\\long.txt", "a long text");
  drive.Write("C:\\short.txt", "short");
  FileBytes bytes;
  bytes.Read(drive.DriveFiles(), "C:\\long.txt");
  EXPECT_EQ(TextOf(bytes), "a long text");
  const std::uint8_t* block = bytes.Data();
  bytes.Read(drive.DriveFiles(), "C:\\short.txt");
  EXPECT_EQ(TextOf(bytes), "short");
  EXPECT_EQ(bytes.Data(), block);  // the block serves again
  bytes.Read(drive.DriveFiles(), "C:\\long.txt");
  EXPECT_EQ(TextOf(bytes), "a long text");
}

TEST(FileBytes, AnEmptyFileHasNoBytes) {
  TemporaryDrive drive;
  drive.Write("C:\\empty", "");
  FileBytes bytes;
  bytes.Read(drive.DriveFiles(), "C:\\empty");
  EXPECT_EQ(bytes.Size(), 0U);
}

TEST(FileBytes, FailuresTravelAndLeaveNothing) {
  TemporaryDrive drive;
  drive.Write("C:\\a", "abc");
  FaultyFiles files(drive.DriveFiles());
  FileBytes bytes;
  bytes.Read(files, "C:\\a");
  EXPECT_EQ(ErrorsIgnored([&] { bytes.Read(files, "C:\\missing"); }), error::FileNotFound);
  EXPECT_EQ(bytes.Size(), 0U);
  files.FailNth(FileCall::Read, 1, error::DeviceIO);
  EXPECT_EQ(ErrorsIgnored([&] { bytes.Read(files, "C:\\a"); }), error::DeviceIO);
  EXPECT_EQ(bytes.Size(), 0U);
}

TEST(FileBytes, MovingTakesTheBytesAlong) {
  TemporaryDrive drive;
  drive.Write("C:\\a", "abc");
  FileBytes first;
  first.Read(drive.DriveFiles(), "C:\\a");
  FileBytes second = std::move(first);
  EXPECT_EQ(TextOf(second), "abc");
  EXPECT_EQ(first.Size(), 0U);  // NOLINT(bugprone-use-after-move): this is what is asked
  first.Read(drive.DriveFiles(), "C:\\a");
  EXPECT_EQ(TextOf(first), "abc");
}

}  // namespace
}  // namespace pixorra
