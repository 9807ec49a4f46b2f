// Removing a whole tree: all of it goes, and nothing outside it changes.
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/FolderDescent.h"
#include "platform/posix/PathMapping.h"
#include "platform/posix/TreeRemoval.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

namespace fs = std::filesystem;

class TreeRemoval : public ::testing::Test {
 protected:
  // The tree is "C:\tree"; what lies beside it must stay.
  TreeRemoval() {
    drive_.Write("C:\\tree\\a.jpg", "a");
    drive_.Write("C:\\tree\\sub\\b.jpg", "b");
    drive_.Write("C:\\tree\\sub\\deep\\c.jpg", "c");
    drive_.Write("C:\\precious\\photo.jpg", "kept");
    drive_.Write("C:\\precious\\album\\photo.jpg", "kept too");
    before_ = Outside();
  }
  int Remove(const FolderListed& listed = {}) { return RemovePath("C:\\tree", listed); }
  int RemovePath(const std::string& path, const FolderListed& listed = {}) {
    return RemoveHostTree(PathMapping({{'C', drive_.HostRoot(), "Test"}}).ToHost(path), IdentityOf(path), listed);
  }
  FolderIdentity IdentityOf(const std::string& path) const {
    FolderIdentity identity;
    EXPECT_EQ(LookAtFolder(Host(path), identity), 0) << path;
    return identity;
  }
  // The paths, kinds, permissions and contents of all that is not in the tree.
  std::set<std::string> Outside() const {
    std::set<std::string> all;
    for (auto at = fs::recursive_directory_iterator(drive_.HostRoot()); at != fs::recursive_directory_iterator();
         ++at) {
      const std::string path = at->path().string().substr(drive_.HostRoot().size());
      if (path == "/tree" || path.starts_with("/tree/")) continue;
      struct stat entry {};
      EXPECT_EQ(lstat(at->path().c_str(), &entry), 0) << path;
      std::string line = path + ' ' + std::to_string(entry.st_mode);
      if (at->is_regular_file() && !at->is_symlink()) line += ' ' + drive_.Read("C:" + Backslashed(path));
      all.insert(line);
    }
    return all;
  }
  void ExpectOutsideUnchanged() const { EXPECT_EQ(Outside(), before_); }
  bool TreeIsThere() const { return drive_.Exists("C:\\tree"); }
  std::string Host(const std::string& path) const { return drive_.HostPath(path); }
  static std::string Backslashed(std::string path) {
    for (char& c : path)
      if (c == '/') c = '\\';
    return path;
  }

  TemporaryDrive drive_;
  std::set<std::string> before_;
};

TEST_F(TreeRemoval, AFolderGoesWithAllThatIsInIt) {
  drive_.Write("C:\\tree\\.hidden", "1");
  drive_.Write("C:\\tree\\.git\\config", "1");
  drive_.MakeFifo("C:\\tree\\pipe");
  drive_.MakeFolder("C:\\tree\\empty");
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, LinksInItGoAsLinks) {
  drive_.MakeLink("C:\\tree\\file", "../precious/photo.jpg");
  drive_.MakeLink("C:\\tree\\folder", "../precious");
  drive_.MakeLink("C:\\tree\\sub\\absolute", Host("C:\\precious"));
  drive_.MakeLink("C:\\tree\\nowhere", "missing");
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, LoopsOfLinksEnd) {
  drive_.MakeLink("C:\\tree\\self", "self");
  drive_.MakeLink("C:\\tree\\there", "back");
  drive_.MakeLink("C:\\tree\\back", "there");
  drive_.MakeLink("C:\\tree\\sub\\up", "..");
  drive_.MakeLink("C:\\tree\\sub\\deep\\top", Host("C:\\tree"));
  drive_.MakeLink("C:\\tree\\sub\\deep\\root", "/");
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, AnotherNameOfAFileOutsideKeepsTheFileAndItsPermissions) {
  drive_.SetMode("C:\\precious\\photo.jpg", 0444);
  before_ = Outside();
  fs::create_hard_link(Host("C:\\precious\\photo.jpg"), Host("C:\\tree\\twin.jpg"));
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, AFolderThatIsALinkStaysAndSoDoesWhatItLeadsTo) {
  drive_.MakeLink("C:\\way", "precious");
  before_ = Outside();
  EXPECT_EQ(RemovePath("C:\\way"), ENOTDIR);
  ExpectOutsideUnchanged();
  EXPECT_TRUE(TreeIsThere());
}

TEST_F(TreeRemoval, AFolderThatIsReachedThroughALinkStays) {
  drive_.MakeLink("C:\\way", "precious");
  before_ = Outside();
  EXPECT_EQ(RemovePath("C:\\way\\album"), ENOTDIR);
  ExpectOutsideUnchanged();
}

// --- changes meanwhile -----------------------------------------------------------------------------------------------

TEST_F(TreeRemoval, AFolderThatBecomesALinkAfterTheLookIsNotEntered) {
  int changes = 0;
  const auto swap = [&](const std::string& folder) {
    if (folder != "tree") return;
    ++changes;
    fs::rename(Host("C:\\tree\\sub"), Host("C:\\tree\\.moved"));
    fs::create_directory_symlink("../precious", Host("C:\\tree\\sub"));
  };
  // What took another name in the folder after it was listed keeps the folder.
  EXPECT_EQ(Remove(swap), ENOTEMPTY);
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(fs::is_symlink(Host("C:\\tree\\sub")));
  EXPECT_EQ(drive_.Read("C:\\tree\\.moved\\b.jpg"), "b");
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, ALinkInTheFoldersOwnPlaceGoesAsALink) {
  const auto swap = [&](const std::string& folder) {
    if (folder != "tree") return;
    fs::remove_all(Host("C:\\tree\\sub"));
    fs::create_directory_symlink("../precious", Host("C:\\tree\\sub"));
  };
  EXPECT_EQ(Remove(swap), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, AFolderOnTheWayThatBecomesALinkLeadsNowhereElse) {
  const auto swap = [&](const std::string& folder) {
    if (folder != "tree/sub/deep") return;
    fs::rename(Host("C:\\tree\\sub"), Host("C:\\tree\\.moved"));
    fs::create_directory_symlink("../precious", Host("C:\\tree\\sub"));
  };
  EXPECT_NE(Remove(swap), 0);
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, AFileThatComesAfterTheLookStaysWithItsFolder) {
  const auto write = [&](const std::string& folder) {
    if (folder == "tree/sub") drive_.Write("C:\\tree\\sub\\new.jpg", "new");
  };
  EXPECT_EQ(Remove(write), ENOTEMPTY);
  EXPECT_EQ(drive_.Read("C:\\tree\\sub\\new.jpg"), "new");
  EXPECT_FALSE(drive_.Exists("C:\\tree\\sub\\deep"));
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, WhatSomebodyElseRemovesMeanwhileIsNoFailure) {
  const auto remove = [&](const std::string& folder) {
    if (folder != "tree") return;
    fs::remove_all(Host("C:\\tree\\sub"));
    fs::remove(Host("C:\\tree\\a.jpg"));
  };
  EXPECT_EQ(Remove(remove), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, AnotherFolderThanTheOneThatIsMeantStays) {
  const FolderIdentity meant = IdentityOf("C:\\tree");
  fs::rename(Host("C:\\tree"), Host("C:\\precious\\tree"));
  drive_.Write("C:\\tree\\other.jpg", "other");
  drive_.SetMode("C:\\tree", 0500);
  EXPECT_EQ(RemoveHostTree(PathMapping({{'C', drive_.HostRoot(), "Test"}}).ToHost("C:\\tree"), meant), ESTALE);
  EXPECT_EQ(drive_.Read("C:\\tree\\other.jpg"), "other");
  EXPECT_EQ(drive_.Read("C:\\precious\\tree\\a.jpg"), "a");
  struct stat entry {};
  ASSERT_EQ(stat(Host("C:\\tree").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0500U);
}

TEST_F(TreeRemoval, AFolderThatIsMovedOutMeanwhileKeepsWhatIsInIt) {
  const auto move = [&](const std::string& folder) {
    if (folder == "tree/sub") fs::rename(Host("C:\\tree\\sub"), Host("C:\\precious\\moved"));
  };
  EXPECT_EQ(Remove(move), ESTALE);
  EXPECT_EQ(drive_.Read("C:\\precious\\moved\\b.jpg"), "b");
  EXPECT_EQ(drive_.Read("C:\\precious\\moved\\deep\\c.jpg"), "c");
}

TEST_F(TreeRemoval, AFolderInOneThatIsMovedOutMeanwhileKeepsWhatIsInIt) {
  const auto move = [&](const std::string& folder) {
    if (folder == "tree/sub/deep") fs::rename(Host("C:\\tree\\sub"), Host("C:\\precious\\moved"));
  };
  EXPECT_EQ(Remove(move), ESTALE);
  EXPECT_EQ(drive_.Read("C:\\precious\\moved\\deep\\c.jpg"), "c");
}

TEST_F(TreeRemoval, TheTreeItselfMovedMeanwhileKeepsWhatIsInIt) {
  const auto move = [&](const std::string& folder) {
    if (folder == "tree") fs::rename(Host("C:\\tree"), Host("C:\\precious\\tree"));
  };
  EXPECT_EQ(Remove(move), ESTALE);
  EXPECT_EQ(drive_.Read("C:\\precious\\tree\\a.jpg"), "a");
  EXPECT_EQ(drive_.Read("C:\\precious\\tree\\sub\\b.jpg"), "b");
}

// --- permissions -----------------------------------------------------------------------------------------------------

TEST_F(TreeRemoval, ReadOnlyFilesAndFoldersGo) {
  drive_.SetMode("C:\\tree\\a.jpg", 0444);
  drive_.Write("C:\\tree\\closed\\d.jpg", "d");
  drive_.SetMode("C:\\tree\\sub\\deep", 0555);
  drive_.SetMode("C:\\tree\\sub", 0500);
  drive_.SetMode("C:\\tree\\closed", 0000);
  drive_.SetMode("C:\\tree", 0555);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, AFolderWhoseParentMayNotBeWrittenStaysAndIsEmptied) {
  drive_.Write("C:\\parent\\tree\\a.jpg", "a");
  drive_.SetMode("C:\\parent", 0555);
  before_ = Outside();
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(RemovePath("C:\\parent\\tree"), EACCES);
  EXPECT_TRUE(drive_.Exists("C:\\parent\\tree"));
  struct stat parent {};
  ASSERT_EQ(stat(Host("C:\\parent").c_str(), &parent), 0);
  EXPECT_EQ(parent.st_mode & 0777U, 0555U);
}

TEST_F(TreeRemoval, FoldersThatMayBeReadButNotEnteredGoAtAnyDepth) {
  drive_.Write("C:\\tree\\listed\\d.jpg", "d");
  drive_.SetMode("C:\\tree\\listed", 0400);
  std::string deep = "C:\\tree";
  for (int i = 0; i < 80; ++i) deep += "\\d";
  drive_.Write(deep + "\\e.jpg", "e");
  drive_.SetMode(deep, 0400);
  const OrdinaryUser user(drive_.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

// --- names and depths ------------------------------------------------------------------------------------------------

TEST_F(TreeRemoval, NamesOfAnyBytesGo) {
  for (const std::string name : {"two\nlines", "\xff\xfe", " ", "-rf", "*", "back\\slash", "a:b", "\"", "...", "~"}) {
    fs::create_directory(Host("C:\\tree") + '/' + name);
    fs::create_directory(Host("C:\\tree") + '/' + name + "/inner\n\xff");
    const int fd = open((Host("C:\\tree") + '/' + name + "/file\n\xfe").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    ASSERT_GE(fd, 0);
    close(fd);
  }
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

// Folders in folders, deeper than a path can be long, with a file in the deepest.
void Nest(const std::string& top, int levels, const std::string& name) {
  int folder = open(top.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  ASSERT_GE(folder, 0);
  for (int i = 0; i < levels; ++i) {
    ASSERT_EQ(mkdirat(folder, name.c_str(), 0700), 0);
    const int next = openat(folder, name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(next, 0);
    close(folder);
    folder = next;
  }
  const int file = openat(folder, "photo.jpg", O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
  ASSERT_GE(file, 0);
  close(file);
  close(folder);
}

class FewFiles {
 public:
  explicit FewFiles(rlim_t most) {
    getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit few{most, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
  }
  ~FewFiles() { setrlimit(RLIMIT_NOFILE, &before_); }
  FewFiles(const FewFiles&) = delete;
  FewFiles& operator=(const FewFiles&) = delete;

 private:
  rlimit before_{};
};

TEST_F(TreeRemoval, ThreeHundredLevelsGoWithFewFilesOpen) {
  Nest(Host("C:\\tree"), 300, "a name of some forty letters, as some have");
  const FewFiles few(128);
  EXPECT_EQ(Remove(), 0);
  EXPECT_FALSE(TreeIsThere());
  ExpectOutsideUnchanged();
}

TEST_F(TreeRemoval, ADeepFolderThatIsMovedAwayEndsIt) {
  Nest(Host("C:\\tree"), 100, "d");
  std::string upper = Host("C:\\tree");
  for (int i = 0; i < 20; ++i) upper += "/d";
  std::string deepest = "tree";
  for (int i = 0; i < 100; ++i) deepest += "/d";
  const auto move = [&](const std::string& folder) {
    if (folder != deepest) return;
    fs::rename(upper + "/d", Host("C:\\precious\\moved"));
  };
  EXPECT_EQ(Remove(move), ESTALE);
  // What was outside before is untouched, and so are the files above the folder that was moved.
  EXPECT_EQ(drive_.Read("C:\\precious\\photo.jpg"), "kept");
  EXPECT_EQ(drive_.Read("C:\\precious\\album\\photo.jpg"), "kept too");
  EXPECT_TRUE(fs::exists(upper));
}

// --- mounts ----------------------------------------------------------------------------------------------------------

class TreeWithAMount : public TreeRemoval {
 protected:
  void ExpectNothingRemoved() {
    EXPECT_EQ(drive_.Read("C:\\tree\\a.jpg"), "a");
    EXPECT_EQ(drive_.Read("C:\\tree\\sub\\b.jpg"), "b");
    EXPECT_EQ(drive_.Read("C:\\tree\\sub\\deep\\c.jpg"), "c");
    ExpectOutsideUnchanged();
  }
};

TEST_F(TreeWithAMount, AnotherDiskInItKeepsAllOfIt) {
  drive_.MakeFolder("C:\\tree\\sub\\disk");
  MemoryDisk disk(Host("C:\\tree\\sub\\disk"), "size=64k");
  if (!disk.Mounted()) GTEST_SKIP() << "this machine lets no test mount anything";
  drive_.Write("C:\\tree\\sub\\disk\\far.jpg", "far");
  EXPECT_EQ(Remove(), EXDEV);
  EXPECT_EQ(drive_.Read("C:\\tree\\sub\\disk\\far.jpg"), "far");
  ExpectNothingRemoved();
}

TEST_F(TreeWithAMount, AnotherPlaceOfTheSameDiskInItKeepsAllOfIt) {
  drive_.MakeFolder("C:\\tree\\sub\\bound");
  const BoundFolder bound(Host("C:\\precious"), Host("C:\\tree\\sub\\bound"));
  if (!bound.Mounted()) GTEST_SKIP() << "this machine lets no test mount anything";
  EXPECT_EQ(Remove(), EXDEV);
  ExpectNothingRemoved();
}

TEST_F(TreeWithAMount, AFileThatIsMountedInItKeepsAllOfIt) {
  drive_.Write("C:\\tree\\sub\\bound.jpg", "");
  const BoundFolder bound(Host("C:\\precious\\photo.jpg"), Host("C:\\tree\\sub\\bound.jpg"));
  if (!bound.Mounted()) GTEST_SKIP() << "this machine lets no test mount anything";
  EXPECT_EQ(Remove(), EXDEV);
  ExpectNothingRemoved();
}

TEST_F(TreeWithAMount, AFolderOnWhichADiskIsMountedStays) {
  MemoryDisk disk(Host("C:\\tree"), "size=64k");
  if (!disk.Mounted()) GTEST_SKIP() << "this machine lets no test mount anything";
  drive_.Write("C:\\tree\\far.jpg", "far");
  EXPECT_EQ(Remove(), EXDEV);
  EXPECT_EQ(drive_.Read("C:\\tree\\far.jpg"), "far");
  disk.Unmount();
  ExpectNothingRemoved();
}

TEST_F(TreeWithAMount, WhatIsMountedMeanwhileIsNotEntered) {
  drive_.MakeFolder("C:\\tree\\sub\\bound");
  if (!HavePrivateMounts()) GTEST_SKIP() << "this machine lets no test mount anything";
  std::unique_ptr<BoundFolder> bound;
  const auto mount = [&](const std::string& folder) {
    if (folder == "tree/sub") bound = std::make_unique<BoundFolder>(Host("C:\\precious"), Host("C:\\tree\\sub\\bound"));
  };
  EXPECT_EQ(Remove(mount), EXDEV);
  ASSERT_TRUE(bound && bound->Mounted());
  EXPECT_TRUE(drive_.Exists("C:\\tree\\sub\\bound"));
  ExpectOutsideUnchanged();
}

}  // namespace
}  // namespace pixorra
