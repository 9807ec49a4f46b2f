// What only real permissions, full disks and mounts can show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "platform/posix/SmallFiles.h"
#include "platform/posix/UniqueFd.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/platform/posix/ServedMount.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

std::vector<std::string> Roots(Files& files) {
  std::vector<std::string> roots;
  for (const Files::Drive& drive : files.Drives()) roots.push_back(drive.Root);
  return roots;
}

class OnARealDisk : public ::testing::Test {
 protected:
  int NumberOfOpen(const std::string& path, OpenMode mode) {
    return ErrorsIgnored([&] { files_.Open(path, mode); });
  }
  TemporaryDrive drive_;
  PosixFiles& files_ = drive_.DriveFiles();
};

TEST_F(OnARealDisk, WhatIsNoOrdinaryFileIsNotEvenTouched) {
  drive_.MakeFifo("C:\\p\\fifo");
  const UniqueFd watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  ASSERT_GE(inotify_add_watch(watch.Get(), drive_.HostPath("C:\\p\\fifo").c_str(), IN_OPEN), 0);
  for (const OpenMode mode : {OpenMode::Read, OpenMode::ReadWrite, OpenMode::Replace})
    EXPECT_EQ(NumberOfOpen("C:\\p\\fifo", mode), error::PathAccess);
  EXPECT_EQ(files_.LastWriteTime("C:\\p\\fifo"), std::nullopt);
  inotify_event opened{};
  EXPECT_EQ(read(watch.Get(), &opened, sizeof(opened)), -1) << "somebody at the other end would have noticed";
}

TEST_F(OnARealDisk, AFileIsNotOpenedToBeLookedAt) {
  drive_.Write("C:\\p\\a.jpg", "1");
  const UniqueFd watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  ASSERT_GE(inotify_add_watch(watch.Get(), drive_.HostPath("C:\\p\\a.jpg").c_str(), IN_OPEN), 0);
  EXPECT_EQ(files_.StampOf("C:\\p\\a.jpg").Length, 1);
  EXPECT_EQ(files_.LastWriteTimeToRead("C:\\p\\a.jpg"), drive_.WriteTime("C:\\p\\a.jpg"));
  inotify_event opened{};
  EXPECT_EQ(read(watch.Get(), &opened, sizeof(opened)), -1);
}

// What is deleted and what is taken for a copy hangs on it.
TEST_F(OnARealDisk, TheLengthAndStampOfAFileOfAServerAreThoseThatItHasNow) {
  drive_.MakeFolder("C:\\share");
  ServedMount server(drive_.HostPath("C:\\share"), "a.jpg");
  if (!server.Mounted()) GTEST_SKIP() << "no such mount can be had here";
  server.Length = 100;
  EXPECT_EQ(files_.Length("C:\\share\\a.jpg"), 100);
  server.Length = 200;
  EXPECT_EQ(files_.Length("C:\\share\\a.jpg"), 200);
  server.Length = 300;
  EXPECT_EQ(files_.StampOf("C:\\share\\a.jpg").Length, 300);
  server.Length = 400;
  EXPECT_EQ(files_.OpenOfLength("C:\\share\\a.jpg", 300), nullptr);
}

TEST_F(OnARealDisk, AReadOnlyFileOpensForReadingOnlyAndHasATimeOnlyToRead) {
  drive_.Write("C:\\p\\a.jpg", "1");
  const CalendarTime time{2001, 5, 6, 13, 14, 15, 0};
  drive_.SetTime("C:\\p\\a.jpg", time);
  drive_.SetMode("C:\\p\\a.jpg", 0444);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(NumberOfOpen("C:\\p\\a.jpg", OpenMode::Read), error::None);
  EXPECT_EQ(NumberOfOpen("C:\\p\\a.jpg", OpenMode::ReadWrite), error::PathAccess);
  EXPECT_EQ(NumberOfOpen("C:\\p\\a.jpg", OpenMode::Replace), error::PathAccess);
  EXPECT_EQ(files_.LastWriteTime("C:\\p\\a.jpg"), std::nullopt);
  EXPECT_EQ(files_.LastWriteTimeToRead("C:\\p\\a.jpg"), time);
  EXPECT_FALSE(files_.SetTimes("C:\\p\\a.jpg", {2000, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(drive_.Read("C:\\p\\a.jpg"), "1");
}

TEST_F(OnARealDisk, AReadOnlyFolderTakesNothingNew) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.MakeFolder("C:\\p\\sub");
  drive_.SetMode("C:\\p", 0555);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(NumberOfOpen("C:\\p\\new", OpenMode::ReadWrite), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files_.Delete("C:\\p\\a.jpg"); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files_.Rename("C:\\p\\a.jpg", "C:\\p\\b.jpg"); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files_.MakeFolder("C:\\p\\new"); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files_.RemoveFolder("C:\\p\\sub"); }), error::PathAccess);
}

TEST_F(OnARealDisk, AFolderThatCannotBeReadIsEmptyAndCannotBeEntered) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.SetMode("C:\\p", 0000);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_THAT(files_.Names("C:\\p", "*.*", attribute::Normal), IsEmpty());
  EXPECT_EQ(ErrorsIgnored([&] { files_.FolderPath("C:\\p"); }), error::PathNotFound);
  EXPECT_EQ(files_.Attributes("C:\\p\\a.jpg"), std::nullopt);
  EXPECT_EQ(NumberOfOpen("C:\\p\\a.jpg", OpenMode::Read), error::PathAccess);
}

TEST_F(OnARealDisk, AFolderThatCanBeListedButNotSearchedCannotBeEntered) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.SetMode("C:\\p", 0444);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(ErrorsIgnored([&] { files_.FolderPath("C:\\p"); }), error::PathNotFound);
}

TEST_F(OnARealDisk, AnExactSpellingNeedsNoLookThroughTheFolder) {
  drive_.Write("C:\\p\\q\\a.jpg", "1");
  drive_.SetMode("C:\\p\\q", 0111);
  drive_.SetMode("C:\\p", 0111);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  // The folders can be passed through but not read, so that only a path that is right at once is found.
  EXPECT_EQ(files_.Length("C:\\p\\q\\a.jpg"), 1);
  EXPECT_EQ(NumberOfOpen("C:\\p\\q\\a.jpg", OpenMode::Read), error::None);
  EXPECT_FALSE(files_.NameTaken("C:\\p\\q\\A.jpg"));
}

TEST_F(OnARealDisk, AFullDiskRaises61AndKeepsWhatFitted) {
  drive_.MakeFolder("C:\\card");
  const MemoryDisk card(drive_.HostPath("C:\\card"), "size=64k");
  if (!card.Mounted()) GTEST_SKIP() << "this user may not mount";
  const std::string bytes(100'000, 'x');
  const std::unique_ptr<File> file = files_.Open("C:\\card\\a.jpg", OpenMode::ReadWrite);
  EXPECT_EQ(ErrorsIgnored([&] { file->WriteAt(0, bytes.data(), bytes.size()); }), error::DiskFull);
  EXPECT_GT(file->Length(), 0);
  EXPECT_LT(file->Length(), 100'000);
}

TEST_F(OnARealDisk, ADiskWithoutRoomForAnotherNameRaises61) {
  drive_.MakeFolder("C:\\card");
  const MemoryDisk card(drive_.HostPath("C:\\card"), "nr_inodes=2");
  if (!card.Mounted()) GTEST_SKIP() << "this user may not mount";
  EXPECT_EQ(NumberOfOpen("C:\\card\\a.jpg", OpenMode::ReadWrite), error::None);
  EXPECT_EQ(NumberOfOpen("C:\\card\\b.jpg", OpenMode::ReadWrite), error::DiskFull);
  EXPECT_EQ(ErrorsIgnored([&] { files_.MakeFolder("C:\\card\\sub"); }), error::DiskFull);
}

TEST_F(OnARealDisk, AReadOnlyMediumIsReadAndNeverChanged) {
  drive_.MakeFolder("C:\\card");
  MemoryDisk card(drive_.HostPath("C:\\card"), "size=64k");
  if (!card.Mounted()) GTEST_SKIP() << "this user may not mount";
  drive_.Write("C:\\card\\a.jpg", "1");
  ASSERT_TRUE(card.MakeReadOnly());
  EXPECT_EQ(NumberOfOpen("C:\\card\\a.jpg", OpenMode::Read), error::None);
  EXPECT_EQ(NumberOfOpen("C:\\card\\a.jpg", OpenMode::ReadWrite), error::PathAccess);
  EXPECT_EQ(NumberOfOpen("C:\\card\\b.jpg", OpenMode::ReadWrite), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files_.Delete("C:\\card\\a.jpg"); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files_.SetAttributes("C:\\card\\a.jpg", attribute::ReadOnly); }), error::PathAccess);
  EXPECT_EQ(files_.LastWriteTime("C:\\card\\a.jpg"), std::nullopt);
  EXPECT_EQ(ErrorsIgnored([&] { files_.FlushFolder("C:\\card"); }), error::None);
}

TEST_F(OnARealDisk, RenamingToAnotherDiskRaises74AndKeepsTheFile) {
  drive_.MakeFolder("C:\\card");
  drive_.Write("C:\\p\\a.jpg", "1");
  const MemoryDisk card(drive_.HostPath("C:\\card"), "size=64k");
  if (!card.Mounted()) GTEST_SKIP() << "this user may not mount";
  EXPECT_EQ(ErrorsIgnored([&] { files_.Rename("C:\\p\\a.jpg", "C:\\card\\a.jpg"); }), error::DifferentDrive);
  EXPECT_EQ(drive_.Read("C:\\p\\a.jpg"), "1");
}

TEST_F(OnARealDisk, AVolumeIsADriveOfItsOwnAndNoFolderOfAnother) {
  drive_.Write("C:\\media\\card\\DCIM\\a.jpg", "1");
  drive_.MakeFolder("C:\\media\\other");
  PosixFiles files(PathMapping({{'C', drive_.HostRoot(), "Disk"},
                                {'D', drive_.HostPath("C:\\media\\card"), "card"},
                                {'E', "/no/such/place", "gone"}}));
  EXPECT_THAT(files.Names("C:\\media", "*.*", attribute::Directory), ElementsAre("other"));
  EXPECT_THAT(files.Names("D:\\", "*.*", attribute::Directory), ElementsAre("DCIM"));
  EXPECT_EQ(files.FolderPath("C:\\media\\card"), "D:\\");
  EXPECT_EQ(files.FolderPath("c:\\media\\card\\dcim"), "D:\\DCIM");
  EXPECT_EQ(files.Length("d:\\dcim\\A.jpg"), 1);
  EXPECT_EQ(ErrorsIgnored([&] { files.RemoveFolder("D:\\"); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files.Open("E:\\a.jpg", OpenMode::Read); }), error::PathNotFound);
  const std::vector<Files::Drive> drives = files.Drives();
  ASSERT_EQ(drives.size(), 2U);
  EXPECT_EQ(drives[1].Root, "D:\\");
  EXPECT_EQ(drives[1].ShownName, "card");
}

TEST_F(OnARealDisk, AMountedShareIsFoundWhateverItsMountAdds) {
  const std::string mounts = drive_.HostPath("C:\\gvfs");
  drive_.MakeFolder("C:\\gvfs");
  const std::string mount = mounts + "/smb-share:server=NAS,share=my%20photos,user=anna";
  ASSERT_TRUE(MakeFolders(mount + "/Summer"));
  PosixFiles files(PathMapping({{'C', "/", "Disk"}}, mounts));
  EXPECT_TRUE(files.FolderExists("\\\\nas\\My Photos"));
  EXPECT_EQ(files.FolderPath("\\\\nas\\MY photos\\summer\\"), "\\\\NAS\\my photos\\Summer");
  EXPECT_EQ(ErrorsIgnored([&] { files.FolderPath("\\\\nas\\other"); }), error::PathNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { files.RemoveFolder("\\\\nas\\my photos"); }), error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { files.Rename("\\\\nas\\my photos", "\\\\nas\\x"); }), error::PathAccess);
  files.MakeFolder("\\\\NAS\\my photos\\Winter");
  EXPECT_TRUE(files.FolderExists("C:" + PathMapping().ToProgram(mount + "/Winter").value().substr(2)));
}

TEST_F(OnARealDisk, ACardThatComesGetsALetterAndKeepsIt) {
  // Covers what is mounted below /media, for this process alone.
  const MemoryDisk media("/media", "size=64k");
  if (!media.Mounted()) GTEST_SKIP() << "this user may not mount";
  ASSERT_TRUE(MakeFolders("/media/anna/CARD"));
  const Environment environment = Environment::OfHome(drive_.HostRoot());
  PosixFiles files(std::make_shared<MountedMapping>(environment));
  EXPECT_EQ(files.ProgramPath("/media/anna/CARD/a.jpg"), "C:\\media\\anna\\CARD\\a.jpg");
  EXPECT_THAT(files.Names("C:\\media\\anna", "*.*", attribute::Directory), ElementsAre("CARD"));

  MemoryDisk card("/media/anna/CARD", "size=64k");
  ASSERT_TRUE(card.Mounted());
  const std::string typed = files.ProgramPath("/media/anna/CARD/a.jpg");
  const std::string root = typed.substr(0, 3);
  EXPECT_EQ(typed.substr(1), ":\\a.jpg");
  EXPECT_NE(root, "C:\\");
  EXPECT_EQ(files.ShownPath(typed), "/media/anna/CARD/a.jpg");
  EXPECT_THAT(Roots(files), Contains(root));
  EXPECT_THAT(files.Names("C:\\media\\anna", "*.*", attribute::Directory), IsEmpty());
  EXPECT_EQ(files.FolderPath("C:\\media\\anna\\CARD"), root);

  card.Unmount();
  EXPECT_THAT(Roots(files), Not(Contains(root)));
  EXPECT_EQ(files.ProgramPath("/media/anna/CARD"), "C:\\media\\anna\\CARD");

  ASSERT_TRUE(MakeFolders("/media/anna/OTHER"));
  const MemoryDisk other("/media/anna/OTHER", "size=64k");
  const MemoryDisk again("/media/anna/CARD", "size=64k");
  PosixFiles later(std::make_shared<MountedMapping>(environment));
  EXPECT_EQ(later.ProgramPath("/media/anna/CARD"), root);
  EXPECT_NE(later.ProgramPath("/media/anna/OTHER"), root);
}

}  // namespace
}  // namespace pixorra
