// Small files read and written whole.
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

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

TEST_F(SmallFiles, ANewFileNeverTakesANameThatIsTaken) {
  WriteNewSmallFile(path_, "one");
  EXPECT_EQ(ReadSmallFile(path_), "one");
  EXPECT_EQ(ErrorOf([&] { WriteNewSmallFile(path_, "two"); }), error::FileExists);
  EXPECT_EQ(ReadSmallFile(path_), "one");
  drive_.MakeLink("C:\\link", "nowhere");
  EXPECT_EQ(ErrorOf([&] { WriteNewSmallFile(drive_.HostPath("C:\\link"), "two"); }), error::FileExists);
  EXPECT_FALSE(drive_.Exists("C:\\nowhere"));
  EXPECT_EQ(FilesIn("C:\\"), 1U) << "nothing else stays";
}

TEST_F(SmallFiles, WhatAKilledWriteHasLeftIsRemovedAndNothingElse) {
  drive_.Write("C:\\a", "marked");
  drive_.Write("C:\\a.pixorra-Xy12zZ", "marked, and cut of");
  const std::vector<std::string> others = {"C:\\a.pixorra-Ab34cD", "C:\\a.copy",         "C:\\a.backup",
                                           "C:\\a.edited",         "C:\\a.pixorra-copy", "C:\\b.pixorra-Xy12zZ"};
  for (const std::string& name : others) drive_.Write(name, "marked, and the user's own");
  drive_.Write(others.front(), "somebody else's");
  RemoveTracesOf(path_, "marked");
  EXPECT_FALSE(drive_.Exists("C:\\a.pixorra-Xy12zZ"));
  EXPECT_TRUE(drive_.Exists("C:\\a"));
  for (const std::string& name : others) EXPECT_TRUE(drive_.Exists(name)) << name;
}

TEST_F(SmallFiles, WhatIsWrittenIsUntilThenUnderANameThatCountsAsATrace) {
  const std::string path = drive_.HostPath("C:\\written\\a");
  drive_.MakeFolder("C:\\written");
  // A killed write: the process ends at the first bytes beyond the bound.
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const rlimit none{0, 0};
    const rlimit bound{8, 8};
    setrlimit(RLIMIT_CORE, &none);
    setrlimit(RLIMIT_FSIZE, &bound);
    WriteSmallFile(path, "marked, of some length");
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(FilesIn("C:\\written"), 1U);
  RemoveTracesOf(path, "marked");
  EXPECT_EQ(FilesIn("C:\\written"), 0U);
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

}  // namespace
}  // namespace pixorra
