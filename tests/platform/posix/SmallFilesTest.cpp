// Small files read and written whole, and what is in them.
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/posix/KeyFile.h"
#include "platform/posix/SmallFiles.h"
#include "platform/posix/UserFolders.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

class SmallFiles : public ::testing::Test {
 protected:
  std::size_t FilesIn(const std::string& folder) {
    return drive_.DriveFiles().Names(folder, "*.*", attribute::Hidden).size();
  }
  TemporaryDrive drive_;
  std::string path_ = drive_.HostPath("C:\\a");
};

TEST_F(SmallFiles, WhatIsWrittenIsReadAndNothingElseStays) {
  WriteSmallFile(path_, "one");
  WriteSmallFile(path_, "two");
  EXPECT_EQ(ReadSmallFile(path_), "two");
  EXPECT_EQ(FilesIn("C:\\"), 1U);
  struct stat entry {};
  ASSERT_EQ(stat(path_.c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0600U);
}

TEST_F(SmallFiles, AnOldFileKeepsItsMode) {
  drive_.Write("C:\\a", "old");
  drive_.SetMode("C:\\a", 0644);
  WriteSmallFile(path_, "new");
  struct stat entry {};
  ASSERT_EQ(stat(path_.c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0644U);
}

TEST_F(SmallFiles, ALinkStaysAndItsTargetIsReplaced) {
  drive_.Write("C:\\dotfiles\\a", "old");
  drive_.MakeLink("C:\\a", "dotfiles/a");
  WriteSmallFile(path_, "new");
  EXPECT_TRUE(drive_.DriveFiles().IsLink("C:\\a"));
  EXPECT_EQ(drive_.Read("C:\\dotfiles\\a"), "new");
}

TEST_F(SmallFiles, WhatIsNoOrdinaryFileIsNotRead) {
  drive_.MakeFifo("C:\\fifo");
  EXPECT_EQ(ReadSmallFile(drive_.HostPath("C:\\fifo")), std::nullopt);
  EXPECT_EQ(ReadSmallFile(drive_.HostRoot()), std::nullopt);
  EXPECT_EQ(ReadSmallFile(path_), std::nullopt);
}

TEST_F(SmallFiles, AFailedWriteKeepsTheOldFileAndLeavesNothingBehind) {
  drive_.MakeFolder("C:\\card");
  const MemoryDisk card(drive_.HostPath("C:\\card"), "size=16k");
  if (!card.Mounted()) GTEST_SKIP() << "this user may not mount";
  const std::string path = drive_.HostPath("C:\\card\\a");
  WriteSmallFile(path, "old");
  EXPECT_EQ(ErrorsIgnored([&] { WriteSmallFile(path, std::string(100'000, 'x')); }), error::DiskFull);
  EXPECT_EQ(ReadSmallFile(path), "old");
  EXPECT_EQ(FilesIn("C:\\card"), 1U);
}

TEST_F(SmallFiles, AFolderThatTakesNothingRaises) {
  drive_.MakeFolder("C:\\p");
  drive_.SetMode("C:\\p", 0555);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(ErrorsIgnored([&] { WriteSmallFile(drive_.HostPath("C:\\p\\a"), "x"); }), error::PathAccess);
  EXPECT_FALSE(MakeFolders(drive_.HostPath("C:\\p\\sub\\sub")));
}

TEST_F(SmallFiles, FoldersAreMadeForTheirOwnerAlone) {
  EXPECT_TRUE(MakeFolders(drive_.HostPath("C:\\x\\y")));
  EXPECT_TRUE(MakeFolders(drive_.HostPath("C:\\x\\y")));
  for (const char* folder : {"C:\\x", "C:\\x\\y"}) {
    struct stat entry {};
    ASSERT_EQ(stat(drive_.HostPath(folder).c_str(), &entry), 0);
    EXPECT_EQ(entry.st_mode & 0777U, 0700U) << folder;
  }
  drive_.Write("C:\\file", "1");
  EXPECT_FALSE(MakeFolders(drive_.HostPath("C:\\file\\sub")));
  EXPECT_FALSE(MakeFolders(drive_.HostPath("C:\\file")));
}

TEST(KeyFile, ValuesAreReadByGroupAndKey) {
  const KeyFile keys(
      "# comment\r\n[One]\r\nName = Viewer \r\nName[de]=Betrachter\nList=a;b c;;d;\n[Two]\nName=Other\nno value\n");
  EXPECT_EQ(keys.Value("One", "Name"), "Viewer");
  EXPECT_EQ(keys.Value("Two", "Name"), "Other");
  EXPECT_EQ(keys.LocalValue("One", "Name", "de_AT"), "Betrachter");
  EXPECT_EQ(keys.LocalValue("One", "Name", "fr_FR"), "Viewer");
  EXPECT_THAT(keys.List("One", "List"), ElementsAre("a", "b c", "d"));
  EXPECT_EQ(keys.RawValue("One", "Missing"), std::nullopt);
  EXPECT_EQ(keys.Value("Three", "Name"), "");
  EXPECT_TRUE(keys.HasGroup("Two"));
  EXPECT_FALSE(keys.HasGroup("Three"));
}

TEST(KeyFile, EveryValueComesBack) {
  for (const char* value :
       {"", " ", "  two  ", "line\nend", "tab\t\r", "back\\slash", "\\s", "\\\\n", "a=b", "[x]", "#x", "\xC3\xA4"}) {
    KeyFile keys;
    keys.SetValue("Group", "Key", value);
    EXPECT_EQ(KeyFile(keys.Text()).Value("Group", "Key"), value) << ::testing::PrintToString(value);
  }
}

TEST(KeyFile, ChangingOneValueKeepsAllElse) {
  KeyFile keys("# mine\n[A]\nx=1\n\n[B]\ny=2\nodd line\n");
  keys.SetValue("A", "x", "3");
  keys.SetValue("A", "z", "4");
  keys.SetValue("C", "w", "5");
  EXPECT_EQ(keys.Text(), "# mine\n[A]\nx=3\nz=4\n\n[B]\ny=2\nodd line\n[C]\nw=5\n");
}

TEST(UserFolders, LinesAreReadAsTheDesktopWritesThem) {
  const char* list =
      "# comment\nXDG_DESKTOP_DIR=\"$HOME/My \\\"Desk\\\"\"\n XDG_PICTURES_DIR=\"/data/pictures/\"\n"
      "XDG_DOCUMENTS_DIR=\"relative\"\nXDG_MUSIC_DIR=$HOME/Music\nXDG_VIDEOS_DIR=\"$HOME/\"\nXDG_X_DIR=\"$HOMEX/y\"\n";
  EXPECT_EQ(UserFolder(list, "DESKTOP", "/home/anna"), "/home/anna/My \"Desk\"");
  EXPECT_EQ(UserFolder(list, "PICTURES", "/home/anna"), "/data/pictures");
  EXPECT_EQ(UserFolder(list, "VIDEOS", "/home/anna"), "/home/anna");
  for (const char* name : {"DOCUMENTS", "MUSIC", "X", "MISSING"})
    EXPECT_EQ(UserFolder(list, name, "/home/anna"), std::nullopt) << name;
}

}  // namespace
}  // namespace pixorra
