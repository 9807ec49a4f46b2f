// The registry's and the settings' files on the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/posix/FolderVerb.h"
#include "platform/posix/HostNames.h"
#include "platform/posix/Launcher.h"
#include "platform/posix/PosixRegistry.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/PosixShell.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/OwnProcess.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::HasSubstr;

constexpr const char* folderVerb = "Folder\\Shell\\SlideShow by Pixorra";
constexpr const char* folderVerbCommand = "Folder\\Shell\\SlideShow by Pixorra\\Command";
constexpr const char* serviceMenu = "C:\\data\\kio\\servicemenus\\pixorra-slideshow-by-pixorra.desktop";
constexpr const char* script = "C:\\data\\nautilus\\scripts\\SlideShow by Pixorra";

class OnPosixRegistry : public ::testing::Test {
 protected:
  OnPosixRegistry()
      : registry_(drive_.HostRoot() + "/data",
                  std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}}))) {}
  void Add() {
    registry_.SetKeyValue(registry::ClassesRoot, folderVerbCommand, "", "C:\\win dows\\Pixorra SlideShow.scr 21%L");
  }
  TemporaryDrive drive_;
  PosixRegistry registry_;
};

TEST_F(OnPosixRegistry, AVerbsFilesAreThereFromItsSettingToItsDeletion) {
  Add();
  EXPECT_TRUE(drive_.Exists(serviceMenu));
  EXPECT_TRUE(drive_.Exists(script));
  registry_.DeleteKey(registry::ClassesRoot, "FOLDER\\shell\\SLIDEshow BY pixorra");
  EXPECT_FALSE(drive_.Exists(serviceMenu));
  EXPECT_FALSE(drive_.Exists(script));
}

TEST_F(OnPosixRegistry, TheMachinesKeysStayMissingQuietly) {
  registry_.SetKeyValue(registry::LocalMachine, std::string("Software\\CLASSES\\") + folderVerbCommand, "",
                        "C:\\x 21%L");
  registry_.SetKeyValue(registry::LocalMachine, folderVerbCommand, "", "C:\\x 21%L");
  EXPECT_FALSE(registry_.KeyExists(registry::LocalMachine, std::string("Software\\CLASSES\\") + folderVerb));
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, folderVerb));
  EXPECT_FALSE(drive_.Exists("C:\\data"));
}

TEST_F(OnPosixRegistry, OtherKeysDoNothing) {
  Add();
  for (const char* key : {"", "Folder\\Shell\\", "Folder\\Shell\\a\\b", "txtfile\\Shell\\open\\Command"}) {
    registry_.SetKeyValue(registry::ClassesRoot, key, "", "C:\\x");
    EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, key)) << key;
    registry_.DeleteKey(registry::ClassesRoot, key);
  }
  EXPECT_TRUE(registry_.KeyExists(registry::ClassesRoot, folderVerb));
}

// The value of the last line that begins with the key.
std::string ValueIn(const std::string& text, const std::string& key) {
  const std::size_t start = text.rfind("\n" + key + "=");
  if (start == std::string::npos) return {};
  const std::size_t value = start + key.size() + 2;
  return text.substr(value, text.find('\n', value) - value);
}

// What a program writes about itself that the desktop starts on the folder by this command line of a file manager.
std::string HeardThrough(TemporaryDrive& drive, const std::string& exec, const std::string& program) {
  drive.Write(program, "#!/bin/sh\nprintf '%s|' \"$@\" > \"" + drive.HostPath("C:\\heard") + "\"\n");
  drive.SetMode(program, 0755);
  drive.Write("C:\\share\\applications\\manager.desktop",
              "[Desktop Entry]\nType=Application\nName=x\nExec=" + exec + "\n");
  drive.Write("C:\\xdg\\mimeapps.list", "[Default Applications]\ninode/directory=manager.desktop\n");
  drive.MakeFolder("C:\\my photos");
  InOwnProcess(SessionIn(drive.HostRoot()), [&drive] {
    PosixShell shell(std::make_shared<FixedMapping>(PathMapping({{'C', drive.HostRoot(), "Test"}})));
    shell.Open("C:\\my photos", "");
    AwaitPrograms();
  });
  return drive.Exists("C:\\heard") ? drive.Read("C:\\heard") : "not started";
}

TEST_F(OnPosixRegistry, TheFilesNameTheCompanionAndTheFolder) {
  Add();
  const std::string menu = drive_.Read(serviceMenu);
  EXPECT_EQ(ValueIn(menu, "Name"), "SlideShow by Pixorra");
  EXPECT_EQ(ValueIn(menu, "MimeType"), "inode/directory;");
  EXPECT_THAT(menu, HasSubstr("[Desktop Action play]\n"));
  EXPECT_EQ(HeardThrough(drive_, ValueIn(menu, "Exec"), "C:\\win dows\\Pixorra SlideShow.scr"),
            "21" + drive_.HostPath("C:\\my photos") + "|");
  struct stat file {};
  ASSERT_EQ(stat(drive_.HostPath(serviceMenu).c_str(), &file), 0);
  EXPECT_NE(file.st_mode & S_IXUSR, 0U);
}

TEST_F(OnPosixRegistry, TheScriptStartsTheCompanionOnTheFolder) {
  drive_.Write("C:\\win dows\\Pixorra SlideShow.scr", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.out\"\n");
  drive_.SetMode("C:\\win dows\\Pixorra SlideShow.scr", 0755);
  Add();
  InOwnProcess({}, [this] {
    ASSERT_EQ(StartDetached({drive_.HostPath(script), "/my 'photos'"}, {}), 0);
    AwaitPrograms();
  });
  EXPECT_EQ(drive_.Read("C:\\win dows\\Pixorra SlideShow.scr.out"), "21/my 'photos'|");
}

TEST_F(OnPosixRegistry, SomebodyElsesFileUnderTheSameNameStays) {
  drive_.Write(script, "#!/bin/sh\necho mine\n");
  Add();
  EXPECT_EQ(drive_.Read(script), "#!/bin/sh\necho mine\n");
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_EQ(drive_.Read(script), "#!/bin/sh\necho mine\n");
}

TEST_F(OnPosixRegistry, WhereNothingCanBeWrittenNothingIsTold) {
  drive_.Write("C:\\data", "a file in the way");
  Add();
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, folderVerb));
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_EQ(drive_.Read("C:\\data"), "a file in the way");
}

TEST(FolderVerb, TextsThatMeanSomethingToAShellAreTakenAsTheyAre) {
  TemporaryDrive drive;
  const std::string name = "a \"b\" $c `d` e 'g'";
  for (const VerbFile& file : FilesOfFolderVerb("Verb", drive.HostRoot() + '/' + name, {"2 1", "$x \\5%f", "x%Ly"})) {
    const std::string exec = ValueIn(file.Text, "Exec");
    if (exec.empty()) continue;
    EXPECT_EQ(HeardThrough(drive, exec, "C:\\" + NameFromHost(name)),
              "2 1|$x \\5%f|x" + drive.HostPath("C:\\my photos") + "y|")
        << file.Place;
    drive.Remove("C:\\heard");
  }
}

TEST(FolderVerb, APercentSignInTheProgramsPathIsWrittenTwice) {
  for (const VerbFile& file : FilesOfFolderVerb("Verb", "/100%", {})) {
    const std::string exec = ValueIn(file.Text, "Exec");
    EXPECT_TRUE(exec.empty() || exec == "\"/100%%\"") << exec;
  }
}

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
