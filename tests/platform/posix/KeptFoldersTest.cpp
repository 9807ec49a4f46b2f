// Long folders are kept between two readings; what is known of them is always what the disk has.
#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <random>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include "platform/posix/KeptFolders.h"
#include "platform/runtime/Text.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::Contains;
using ::testing::Not;
using ::testing::SizeIs;

class KeptFoldersTest : public ::testing::Test {
 protected:
  static constexpr int Files = 300;

  KeptFoldersTest() { Fill("C:\\p"); }
  void SetUp() override {
    KeptFolders trial;
    trial.WasRead(Host(), Files);
    if (trial.Find(Host()) != nullptr) return;
    if (!UniqueFd(inotify_init1(IN_CLOEXEC))) GTEST_SKIP() << "nothing can be watched here";
    // On these it must be kept.
    constexpr std::int64_t ext = 0xEF53;
    constexpr std::int64_t memory = 0x01021994;
    struct statfs disk {};
    ASSERT_EQ(statfs(Host().c_str(), &disk), 0);
    if (disk.f_type != ext && disk.f_type != memory) GTEST_SKIP() << "folders of this disk are not kept";
  }
  void Fill(const std::string& folder) {
    for (int i = 0; i < Files; ++i) drive.Write(folder + "\\" + std::to_string(i) + ".jpg", "x");
  }
  std::string Host(const std::string& name = {}) const {
    return drive.HostPath("C:\\p") + (name.empty() ? "" : "/" + name);
  }
  KeptFolder* Find() { return kept.Find(Host()); }
  // The folder after its first reading.
  KeptFolder* Known() {
    kept.WasRead(Host(), Files);
    return Find();
  }
  static std::vector<std::string> Sorted(std::vector<std::string> names) {
    std::sort(names.begin(), names.end(), NameLess);
    return names;
  }
  std::vector<std::string> Kept(const std::string& pattern = "*.jpg") {
    KeptFolder* const folder = Find();
    return folder != nullptr ? folder->OrdinaryNames(pattern) : std::vector<std::string>{"nothing is kept"};
  }
  // As one reads the disk who has never seen it.
  std::vector<std::string> OnDisk(const std::string& pattern = "*.jpg") {
    PosixFiles fresh(PathMapping({{'C', drive.HostRoot(), "Drive"}}, {}, true));
    return Sorted(fresh.Names("C:\\p", pattern, attribute::Normal));
  }

  TemporaryDrive drive;
  KeptFolders kept;
};

TEST_F(KeptFoldersTest, ALongFolderIsKeptFromItsSecondReadingOn) {
  EXPECT_EQ(Find(), nullptr) << "nobody has read it";
  ASSERT_NE(Known(), nullptr);
  EXPECT_EQ(Kept(), OnDisk());
  EXPECT_THAT(Kept("*.bmp"), SizeIs(0));
  EXPECT_EQ(Kept("1*.jpg"), OnDisk("1*.jpg"));
}

TEST_F(KeptFoldersTest, AShortFolderIsNot) {
  kept.WasRead(Host(), KeptFolders::Fewest - 1);
  EXPECT_EQ(Find(), nullptr);
}

TEST_F(KeptFoldersTest, WhatComesAndGoesIsKnownAtOnce) {
  ASSERT_NE(Known(), nullptr);
  drive.Write("C:\\p\\new.jpg", "x");
  EXPECT_THAT(Kept(), Contains("new.jpg"));
  std::filesystem::rename(Host("new.jpg"), Host("other.jpg"));
  EXPECT_THAT(Kept(), Not(Contains("new.jpg")));
  EXPECT_THAT(Kept(), Contains("other.jpg"));
  drive.Remove("C:\\p\\other.jpg");
  drive.Remove("C:\\p\\7.jpg");
  EXPECT_THAT(Kept(), SizeIs(Files - 1));
  drive.MakeFolder("C:\\p\\7.jpg");
  EXPECT_THAT(Kept(), SizeIs(Files - 1)) << "a folder is no file";
  EXPECT_EQ(Find()->OtherCase("7.JPG"), "7.jpg") << "and has the name all the same";
}

TEST_F(KeptFoldersTest, WhateverIsDoneToItTheNamesAreThoseOfTheDisk) {
  ASSERT_NE(Known(), nullptr);
  std::mt19937 random(7);
  const auto any = [&] { return std::to_string(random() % 320) + (random() % 4 == 0 ? ".JPG" : ".jpg"); };
  std::error_code ignored;
  for (int round = 0; round < 400; ++round) {
    for (unsigned i = random() % 4; i > 0; --i) {
      const std::string a = any();
      const std::string b = any();
      switch (random() % 8) {
        case 0:
        case 1:
          std::filesystem::remove_all(Host(a), ignored);
          break;
        case 2:
          if (!std::filesystem::exists(Host(a))) drive.Write("C:\\p\\" + a, "y");
          break;
        case 3:
          std::filesystem::rename(Host(a), Host(b), ignored);
          break;
        case 4:
          renameat2(AT_FDCWD, Host(a).c_str(), AT_FDCWD, Host(b).c_str(), RENAME_EXCHANGE);
          break;
        case 5:
          std::filesystem::create_directory(Host(a), ignored);
          break;
        case 6:
          std::filesystem::create_symlink(b, Host(a), ignored);
          break;
        default:
          std::filesystem::rename(Host(a), drive.HostPath("C:\\") + "/out", ignored);
          std::filesystem::rename(drive.HostPath("C:\\") + "/out", Host(b), ignored);
          break;
      }
    }
    ASSERT_NE(Find(), nullptr) << round;
    ASSERT_EQ(Kept(), OnDisk()) << round;
  }
}

TEST_F(KeptFoldersTest, WhatALinkLeadsToIsLookedAtEachTime) {
  drive.MakeLink("C:\\p\\link.jpg", drive.HostPath("C:\\far.jpg"));
  ASSERT_NE(Known(), nullptr);
  EXPECT_THAT(Kept(), Not(Contains("link.jpg")));
  drive.Write("C:\\far.jpg", "x");
  EXPECT_THAT(Kept(), Contains("link.jpg"));
}

TEST_F(KeptFoldersTest, AFolderThatIsPutInItsPlaceIsAnother) {
  ASSERT_NE(Known(), nullptr);
  std::filesystem::rename(Host(), drive.HostPath("C:\\before"));
  EXPECT_EQ(Find(), nullptr);
  drive.Write("C:\\p\\only.jpg", "x");
  EXPECT_EQ(Find(), nullptr);
}

TEST_F(KeptFoldersTest, AFolderOnTheWayThatIsReplacedMakesItAnother) {
  Fill("C:\\above\\q");
  const std::string host = drive.HostPath("C:\\above\\q");
  kept.WasRead(host, Files);
  ASSERT_NE(kept.Find(host), nullptr);
  std::filesystem::rename(drive.HostPath("C:\\above"), drive.HostPath("C:\\before"));
  drive.Write("C:\\above\\q\\only.jpg", "x");
  EXPECT_EQ(kept.Find(host), nullptr);
}

TEST_F(KeptFoldersTest, WhatIsMountedOverItIsAnother) {
  ASSERT_NE(Known(), nullptr);
  const MemoryDisk disk(Host(), "size=64k");
  if (!disk.Mounted()) GTEST_SKIP() << "nothing can be mounted here";
  EXPECT_EQ(Find(), nullptr);
}

TEST_F(KeptFoldersTest, AFolderThatMayNoLongerBeReadIsNotKept) {
  ASSERT_NE(Known(), nullptr);
  drive.SetMode("C:\\p", 0300);
  EXPECT_EQ(Find(), nullptr);
  drive.SetMode("C:\\p", 0700);
}

TEST_F(KeptFoldersTest, WhereTheKernelLosesEventsNothingIsKept) {
  ASSERT_NE(Known(), nullptr);
  drive.Write("C:\\p\\heard of.jpg", "x");
  // More than the kernel holds, and none of them of a name.
  for (int i = 0; i < 10000; ++i)
    for (const char* name : {"1.jpg", "2.jpg"}) ASSERT_EQ(chmod(Host(name).c_str(), i % 2 == 0 ? 0600 : 0640), 0);
  drive.Write("C:\\p\\lost.jpg", "x");
  EXPECT_EQ(Find(), nullptr);
  ASSERT_NE(Known(), nullptr) << "until it is read again";
  EXPECT_EQ(Kept("*"), OnDisk("*"));
}

TEST_F(KeptFoldersTest, AFewChangesAreFollowedAndManyEndIt) {
  ASSERT_NE(Known(), nullptr);
  const auto add = [&](std::size_t count, const std::string& name) {
    for (std::size_t i = 0; i < count; ++i) drive.Write("C:\\p\\" + name + std::to_string(i) + ".jpg", "x");
  };
  add(KeptFolders::MostChanges, "few");
  EXPECT_EQ(Kept(), OnDisk());
  add(KeptFolders::MostChanges, "as few");
  EXPECT_EQ(Kept(), OnDisk()) << "it is the changes between two looks that count";
  add(KeptFolders::MostChanges + 1, "many");
  EXPECT_EQ(Find(), nullptr);
  ASSERT_NE(Known(), nullptr);
  EXPECT_EQ(Kept(), OnDisk());
}

TEST_F(KeptFoldersTest, AFolderThatFindsANameByItsOtherCaseIsNotKept) {
  std::filesystem::create_hard_link(Host("0.jpg"), Host("0.JPG"));
  EXPECT_EQ(Known(), nullptr);
}

TEST_F(KeptFoldersTest, AFolderOfASystemThatIsNotTheKernelsOwnDiskIsNotKept) {
  kept.WasRead("/proc", Files);
  EXPECT_EQ(kept.Find("/proc"), nullptr);
}

TEST_F(KeptFoldersTest, TheOneUsedLongestAgoGivesWay) {
  ASSERT_NE(Known(), nullptr);
  for (std::size_t i = 0; i < KeptFolders::Most; ++i) {
    const std::string folder = "C:\\q" + std::to_string(i);
    drive.MakeFolder(folder);
    kept.WasRead(drive.HostPath(folder), Files);
    ASSERT_NE(kept.Find(drive.HostPath(folder)), nullptr);
  }
  EXPECT_EQ(Find(), nullptr);
  EXPECT_NE(kept.Find(drive.HostPath("C:\\q0")), nullptr);
}

// --- as files show it ------------------------------------------------------------------------------------------------

TEST_F(KeptFoldersTest, ANameThatSomebodyTakesIsTakenInEitherCase) {
  PosixFiles& files = drive.DriveFiles();
  const auto names = [&] { return files.Names("C:\\p", "*.jpg", attribute::Normal).size(); };
  ASSERT_EQ(names(), static_cast<std::size_t>(Files));
  ASSERT_EQ(names(), static_cast<std::size_t>(Files));
  EXPECT_EQ(files.LookAtName("C:\\p\\new.jpg"), NameState::Free);
  drive.Write("C:\\p\\NEW.JPG", "theirs");
  EXPECT_EQ(files.LookAtName("C:\\p\\new.jpg"), NameState::Taken);
  EXPECT_EQ(ErrorOf([&] { files.Open("C:\\p\\new.jpg", OpenMode::CreateNew); }), error::FileExists);
  EXPECT_EQ(names(), static_cast<std::size_t>(Files) + 1);
  drive.Remove("C:\\p\\NEW.JPG");
  EXPECT_EQ(files.LookAtName("C:\\p\\new.jpg"), NameState::Free);
  drive.Write("C:\\p\\new.jpg", "theirs");
  EXPECT_EQ(ErrorOf([&] { files.Open("C:\\p\\new.jpg", OpenMode::CreateNew); }), error::FileExists);
  EXPECT_EQ(drive.Read("C:\\p\\new.jpg"), "theirs");
}

TEST_F(KeptFoldersTest, WhatChangedWhileAFolderOnTheWayHadAnotherNameIsKnownWhenItIsBack) {
  Fill("C:\\a\\p");
  PosixFiles& files = drive.DriveFiles();
  const auto names = [&](const std::string& folder) { return files.Names(folder, "*.jpg", attribute::Normal); };
  for (int i = 0; i < 2; ++i)
    for (const char* folder : {"C:\\a\\p", "C:\\p"}) ASSERT_THAT(names(folder), SizeIs(Files));
  std::filesystem::rename(drive.HostPath("C:\\a"), drive.HostPath("C:\\b"));
  drive.Write("C:\\b\\p\\temporary", "saved anew");
  std::filesystem::rename(drive.HostPath("C:\\b\\p\\temporary"), drive.HostPath("C:\\b\\p\\7.jpg"));
  drive.Write("C:\\b\\p\\new.jpg", "x");
  ASSERT_THAT(names("C:\\p"), SizeIs(Files));
  std::filesystem::rename(drive.HostPath("C:\\b"), drive.HostPath("C:\\a"));
  const std::vector<std::string> found = names("C:\\a\\p");
  EXPECT_THAT(found, SizeIs(Files + 1));
  EXPECT_THAT(found, Contains("7.jpg"));
  EXPECT_THAT(found, Contains("new.jpg"));
}

}  // namespace
}  // namespace pixorra
