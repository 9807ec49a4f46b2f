// The settings' file on the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/PosixSettings.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::HasSubstr;

class OnPosixSettings : public ::testing::Test {
 protected:
  TemporaryDrive drive_;
  std::string file_ = drive_.HostPath("C:\\config\\pixorra\\settings");
  PosixSettings settings_{file_};
};

TEST_F(OnPosixSettings, AskingMakesNoFile) {
  EXPECT_EQ(settings_.GetSetting("Pixorra", "ScreenSaver", "Duration", "3"), "3");
  EXPECT_FALSE(drive_.Exists("C:\\config"));
}

TEST_F(OnPosixSettings, WhatIsSavedIsReadByAnotherProgram) {
  settings_.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", "C:\\My  Photos\\");
  PosixSettings companion(file_);
  EXPECT_EQ(companion.GetSetting("Pixorra", "ScreenSaver", "SourceLocation", "x"), "C:\\My  Photos\\");
  companion.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", "D:\\");
  EXPECT_EQ(settings_.GetSetting("Pixorra", "ScreenSaver", "SourceLocation", "x"), "D:\\");
}

TEST_F(OnPosixSettings, CommentsAndOtherProgramsSettingsStay) {
  drive_.Write("C:\\config\\pixorra\\settings", "# mine\n[other/section]\nkey=1\n");
  settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7");
  const std::string settings = drive_.Read("C:\\config\\pixorra\\settings");
  EXPECT_THAT(settings, HasSubstr("# mine\n"));
  EXPECT_THAT(settings, HasSubstr("[other/section]\nkey=1\n"));
}

TEST_F(OnPosixSettings, AFileThatIsNoneOfSettingsIsNotReplaced) {
  drive_.Write("C:\\config\\pixorra\\settings", "kept");
  EXPECT_EQ(settings_.GetSetting("Pixorra", "ScreenSaver", "Duration", "3"), "3");
  EXPECT_EQ(ErrorsIgnored([&] { settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7"); }),
            error::PathAccess);
  EXPECT_EQ(drive_.Read("C:\\config\\pixorra\\settings"), "kept");
}

TEST_F(OnPosixSettings, AFullDiskRaisesAndKeepsTheOldSettings) {
  drive_.MakeFolder("C:\\config\\pixorra");
  const MemoryDisk disk(drive_.HostPath("C:\\config\\pixorra"), "size=16k");
  if (!disk.Mounted()) GTEST_SKIP() << "this user may not mount";
  settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7");
  const std::string large(100'000, 'x');
  EXPECT_EQ(ErrorsIgnored([&] { settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", large); }),
            error::DiskFull);
  EXPECT_EQ(settings_.GetSetting("Pixorra", "ScreenSaver", "Duration", "x"), "7");
}

TEST_F(OnPosixSettings, AFileThatCannotBeReadIsNotReplaced) {
  drive_.Write("C:\\config\\pixorra\\settings", "[kept]\n");
  drive_.SetMode("C:\\config\\pixorra\\settings", 0200);
  {
    const OrdinaryUser user(drive_.HostRoot());
    if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
    EXPECT_EQ(ErrorsIgnored([&] { settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7"); }),
              error::PathAccess);
  }
  drive_.SetMode("C:\\config\\pixorra\\settings", 0600);
  EXPECT_EQ(drive_.Read("C:\\config\\pixorra\\settings"), "[kept]\n");
}

TEST_F(OnPosixSettings, AFolderUnderItsNameStays) {
  drive_.MakeFolder("C:\\config\\pixorra\\settings");
  EXPECT_EQ(ErrorsIgnored([&] { settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7"); }),
            error::PathAccess);
  EXPECT_TRUE(drive_.DriveFiles().FolderExists("C:\\config\\pixorra\\settings"));
}

}  // namespace
}  // namespace pixorra
