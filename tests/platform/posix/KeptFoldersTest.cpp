// Long folders are kept between two readings; what is known of them is always what the disk has.
#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <random>

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
  for (int i = 0; i < 5000; ++i) {
    std::filesystem::rename(Host("1.jpg"), Host("a"));
    std::filesystem::rename(Host("a"), Host("1.jpg"));
  }
  EXPECT_EQ(Find(), nullptr);
  ASSERT_NE(Known(), nullptr) << "until it is read again";
  EXPECT_EQ(Kept("*"), OnDisk("*"));
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

}  // namespace
}  // namespace pixorra
