// Contract of Registry and Settings on the host.
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "platform/posix/DesktopEntry.h"
#include "platform/posix/FolderVerb.h"
#include "platform/posix/KeyFile.h"
#include "platform/posix/Launcher.h"
#include "platform/posix/PosixRegistry.h"
#include "platform/posix/PosixSettings.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* verbKey = "Folder\\Shell\\SlideShow by Pixorra";
constexpr const char* commandKey = "Folder\\Shell\\SlideShow by Pixorra\\Command";
constexpr const char* serviceMenu = "C:\\data\\kio\\servicemenus\\pixorra-slideshow-by-pixorra.desktop";
constexpr const char* script = "C:\\data\\nautilus\\scripts\\SlideShow by Pixorra";

class OnPosixRegistry : public ::testing::Test {
 protected:
  OnPosixRegistry()
      : registry_(drive_.HostRoot() + "/data",
                  std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}}))) {}
  void Add() {
    registry_.SetKeyValue(registry::ClassesRoot, commandKey, "", "C:\\win dows\\Pixorra SlideShow.scr 21%L");
  }
  TemporaryDrive drive_;
  PosixRegistry registry_;
};

TEST_F(OnPosixRegistry, AVerbIsThereFromItsSettingToItsDeletion) {
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, verbKey));
  Add();
  EXPECT_TRUE(registry_.KeyExists(registry::ClassesRoot, verbKey));
  EXPECT_TRUE(registry_.KeyExists(registry::ClassesRoot, "FOLDER\\shell\\SlideShow by Pixorra"));
  EXPECT_TRUE(registry_.KeyExists(registry::ClassesRoot, commandKey));
  registry_.DeleteKey(registry::ClassesRoot, verbKey);
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, verbKey));
  EXPECT_FALSE(drive_.Exists(serviceMenu));
  EXPECT_FALSE(drive_.Exists(script));
}

TEST_F(OnPosixRegistry, TheMachinesKeysStayMissingQuietly) {
  registry_.SetKeyValue(registry::LocalMachine, std::string("Software\\CLASSES\\") + commandKey, "", "C:\\x 21%L");
  registry_.SetKeyValue(registry::LocalMachine, commandKey, "", "C:\\x 21%L");
  EXPECT_FALSE(registry_.KeyExists(registry::LocalMachine, std::string("Software\\CLASSES\\") + verbKey));
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, verbKey));
  EXPECT_FALSE(drive_.Exists("C:\\data"));
}

TEST_F(OnPosixRegistry, OtherKeysDoNothing) {
  Add();
  for (const char* key : {"", "Folder", "Folder\\Shell\\", "Folder\\Shell\\a\\b", "txtfile\\Shell\\open\\Command"}) {
    registry_.SetKeyValue(registry::ClassesRoot, key, "", "C:\\x");
    EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, key)) << key;
    registry_.DeleteKey(registry::ClassesRoot, key);
  }
  EXPECT_TRUE(registry_.KeyExists(registry::ClassesRoot, verbKey));
}

TEST_F(OnPosixRegistry, TheFilesNameTheCompanionAndTheFolder) {
  Add();
  const KeyFile menu(drive_.Read(serviceMenu));
  EXPECT_EQ(menu.Value("Desktop Action play", "Name"), "SlideShow by Pixorra");
  EXPECT_EQ(menu.Value("Desktop Entry", "MimeType"), "inode/directory;");
  DesktopEntry entry;
  entry.Exec = menu.Value("Desktop Action play", "Exec");
  EXPECT_THAT(ArgumentsFor(entry, "/home/anna/my photos"),
              ElementsAre(drive_.HostRoot() + "/win dows/Pixorra SlideShow.scr", "21/home/anna/my photos"));
  struct stat file {};
  ASSERT_EQ(stat(drive_.HostPath(serviceMenu).c_str(), &file), 0);
  EXPECT_NE(file.st_mode & S_IXUSR, 0U);
}

TEST_F(OnPosixRegistry, TheScriptStartsTheCompanionOnTheFolder) {
  drive_.Write("C:\\win dows\\Pixorra SlideShow.scr", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.out\"\n");
  drive_.SetMode("C:\\win dows\\Pixorra SlideShow.scr", 0755);
  Add();
  Launcher launcher;
  ASSERT_EQ(launcher.Start({drive_.HostPath(script), "/my 'photos'"}, {}), 0);
  while (waitpid(-1, nullptr, 0) > 0) {
  }
  EXPECT_EQ(drive_.Read("C:\\win dows\\Pixorra SlideShow.scr.out"), "21/my 'photos'|");
}

TEST_F(OnPosixRegistry, SomebodyElsesFileUnderTheSameNameStays) {
  drive_.Write(script, "#!/bin/sh\necho mine\n");
  Add();
  EXPECT_EQ(drive_.Read(script), "#!/bin/sh\necho mine\n");
  registry_.DeleteKey(registry::ClassesRoot, verbKey);
  EXPECT_EQ(drive_.Read(script), "#!/bin/sh\necho mine\n");
}

TEST_F(OnPosixRegistry, WhereNothingCanBeWrittenNothingIsTold) {
  drive_.Write("C:\\data", "a file in the way");
  Add();
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, verbKey));
  registry_.DeleteKey(registry::ClassesRoot, verbKey);
  EXPECT_EQ(drive_.Read("C:\\data"), "a file in the way");
}

TEST(FolderVerb, TextsThatMeanSomethingToAShellAreTakenAsTheyAre) {
  const std::string program = "/a \"b\" $c `d` \\e %f 'g'";
  for (const VerbFile& file : FilesOfFolderVerb("Verb", program, {"2 1", "x%Ly"})) {
    const KeyFile keys(file.Text);
    DesktopEntry entry;
    for (const char* group : {"Desktop Action play", "X-Action-Profile folder", "Nemo Action"})
      if (keys.HasGroup(group)) entry.Exec = keys.Value(group, "Exec");
    if (entry.Exec.empty()) continue;
    EXPECT_THAT(ArgumentsFor(entry, "/p"), ElementsAre(program, "2 1", "x/py")) << file.Place;
  }
}

class OnPosixSettings : public ::testing::Test {
 protected:
  TemporaryDrive drive_;
  std::string file_ = drive_.HostPath("C:\\config\\pixorra\\settings");
  PosixSettings settings_{file_};
};

TEST_F(OnPosixSettings, WhatIsMissingIsWhatTheCallerSays) {
  EXPECT_EQ(settings_.GetSetting("Pixorra", "ScreenSaver", "Duration", "3"), "3");
  EXPECT_FALSE(drive_.Exists("C:\\config"));
}

TEST_F(OnPosixSettings, WhatIsSavedIsReadByAnotherProgram) {
  settings_.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", "C:\\My  Photos\\");
  settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7");
  settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "1");
  PosixSettings companion(file_);
  EXPECT_EQ(companion.GetSetting("Pixorra", "ScreenSaver", "SourceLocation", "x"), "C:\\My  Photos\\");
  EXPECT_EQ(companion.GetSetting("PIXORRA", "screensaver", "DURATION", "x"), "1");
  EXPECT_EQ(companion.GetSetting("Other", "ScreenSaver", "Duration", "x"), "x");
}

TEST_F(OnPosixSettings, AnEmptyTextIsASetting) {
  settings_.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", "");
  EXPECT_EQ(settings_.GetSetting("Pixorra", "ScreenSaver", "SourceLocation", "x"), "");
}

TEST_F(OnPosixSettings, AnyNamesAndTextsComeBack) {
  for (const char* text : {" blanks ", "two\nlines", "[group]", "a=b", "#c", "\xC3\xA4", "C:\\new\\table"}) {
    settings_.SaveSetting(text, text, text, text);
    EXPECT_EQ(settings_.GetSetting(text, text, text, "lost"), text) << ::testing::PrintToString(text);
  }
  EXPECT_EQ(settings_.GetSetting("a=b", "a=b", "a=b", "lost"), "a=b");
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
  drive_.Write("C:\\config\\pixorra\\settings", "kept");
  drive_.SetMode("C:\\config\\pixorra\\settings", 0200);
  {
    const OrdinaryUser user(drive_.HostRoot());
    if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
    EXPECT_EQ(ErrorsIgnored([&] { settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7"); }),
              error::PathAccess);
  }
  drive_.SetMode("C:\\config\\pixorra\\settings", 0600);
  EXPECT_EQ(drive_.Read("C:\\config\\pixorra\\settings"), "kept");
}

TEST_F(OnPosixSettings, AFolderUnderItsNameStays) {
  drive_.MakeFolder("C:\\config\\pixorra\\settings");
  EXPECT_EQ(ErrorsIgnored([&] { settings_.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7"); }),
            error::PathAccess);
  EXPECT_TRUE(drive_.DriveFiles().FolderExists("C:\\config\\pixorra\\settings"));
}

}  // namespace
}  // namespace pixorra
