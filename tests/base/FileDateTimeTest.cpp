// A file's date, read through text and set with the milliseconds of now.
#include <gtest/gtest.h>

#include "base/FileDateTime.h"
#include "platform/headless/HeadlessPlatform.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

constexpr const char* Photo = "C:\\a.jpg";
constexpr CalendarTime Shot{2001, 5, 6, 13, 14, 15, 678};

class FileDateTimeTest : public ::testing::Test {
 protected:
  FileDateTimeTest() {
    drive.Write(Photo, "x");
    drive.SetTime(Photo, Shot);
  }
  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  HeadlessPlatform platform;
};

TEST_F(FileDateTimeTest, TheDateIsTheLastWriteTimeToTheSecond) {
  EXPECT_EQ(GetFileDate(files, Photo), ToDateValue({2001, 5, 6, 13, 14, 15}));
}

TEST_F(FileDateTimeTest, MidnightAndNoonComeBackFromTheText) {
  drive.SetTime(Photo, {2024, 2, 29, 0, 0, 0, 0});
  EXPECT_EQ(GetFileDate(files, Photo), ToDateValue({2024, 2, 29, 0, 0, 0}));
  drive.SetTime(Photo, {2024, 2, 29, 12, 0, 1, 0});
  EXPECT_EQ(GetFileDate(files, Photo), ToDateValue({2024, 2, 29, 12, 0, 1}));
}

TEST_F(FileDateTimeTest, AFileThatCannotBeOpenedForWritingGivesTheFirstMomentOfFileTimes) {
  files.FailAlways(FileCall::LastWriteTime, error::PathAccess);
  EXPECT_EQ(GetFileDate(files, Photo), DateSerial(1601, 1, 1));
  files.Heal();
  EXPECT_EQ(GetFileDate(files, "C:\\missing.jpg"), DateSerial(1601, 1, 1));
}

TEST_F(FileDateTimeTest, ToReadAFileThatCannotBeWrittenHasItsDate) {
  files.FailAlways(FileCall::LastWriteTime, error::PathAccess);
  EXPECT_EQ(GetFileDateToRead(files, Photo), ToDateValue({2001, 5, 6, 13, 14, 15}));
  EXPECT_EQ(GetFileDateToRead(files, "C:\\missing.jpg"), NoFileDate());
}

TEST_F(FileDateTimeTest, SettingKeepsTheSecondsAndTakesTheMillisecondsOfNow) {
  platform.clock.SetNow({2020, 1, 1, 10, 20, 30, 321});
  SetFileDate(files, platform.clock, Photo, ToDateValue({1999, 12, 31, 23, 59, 58}));
  const CalendarTime wanted{1999, 12, 31, 23, 59, 58, 321};
  EXPECT_EQ(drive.WriteTime(Photo), wanted);
  EXPECT_EQ(drive.AccessTime(Photo), wanted);
}

TEST_F(FileDateTimeTest, TheFirstMomentOfFileTimesIsNeverSet) {
  SetFileDate(files, platform.clock, Photo, DateSerial(1601, 1, 1));
  EXPECT_EQ(drive.WriteTime(Photo), Shot);
}

TEST_F(FileDateTimeTest, WhatCannotBeSetIsLeftSilently) {
  SetFileDate(files, platform.clock, "C:\\missing.jpg", DateSerial(2001, 1, 1));
  EXPECT_FALSE(drive.Exists("C:\\missing.jpg"));
  SetFileDate(files, platform.clock, Photo, 1e9);
  EXPECT_EQ(drive.WriteTime(Photo), Shot);
}

}  // namespace
}  // namespace pixorra
