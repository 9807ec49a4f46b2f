// Names as a person reads them, where the host writes paths in its own way.
#include <algorithm>
#include <gtest/gtest.h>

#include "base/ShownNames.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

// "C:\a\b" is "/a/b" to people here, and a colon is a name's own again.
class SlashFiles : public FaultyFiles {
 public:
  using FaultyFiles::FaultyFiles;
  std::string ShownPath(const std::string& path) override {
    if (!path.starts_with("C:")) return path;
    std::string shown = path.size() > 2 ? path.substr(2) : "/";
    std::replace(shown.begin(), shown.end(), '\\', '/');
    std::replace(shown.begin(), shown.end(), '~', ':');
    return shown;
  }
};

class ShownNamesTest : public ::testing::Test {
 protected:
  TemporaryDrive drive;
  SlashFiles files{drive.DriveFiles()};
};

TEST_F(ShownNamesTest, AFolderIsItsLastNameInTheHostsSpelling) {
  EXPECT_EQ(ShownFolderName(files, "C:\\home\\Photos"), "Photos");
  EXPECT_EQ(ShownFolderName(files, "C:\\home\\10~30"), "10:30");
}

TEST_F(ShownNamesTest, ARootStandsWhole) {
  EXPECT_EQ(ShownFolderName(files, "C:\\"), "/");
}

TEST_F(ShownNamesTest, APathThatTheHostWritesTheSameWayKeepsTheProgramsRules) {
  EXPECT_EQ(ShownFolderName(files, "D:\\DCIM"), "DCIM");
  EXPECT_EQ(ShownFolderName(files, "D:\\"), "D:\\");
  EXPECT_EQ(ShownFileName(files, "D:\\DCIM\\a~b.jpg"), "a~b.jpg");
}

TEST_F(ShownNamesTest, ATextWithoutABackslashHasNoName) {
  EXPECT_EQ(ShownFolderName(files, ""), "");
  EXPECT_EQ(ShownFolderName(files, "photos"), "");
  EXPECT_EQ(ShownFileName(files, "photo.jpg"), "");
  EXPECT_EQ(ShownBaseName(files, "photo.jpg"), "");
}

TEST_F(ShownNamesTest, AFileIsItsNameAndABaseNameEndsAtTheFirstFullStop) {
  EXPECT_EQ(ShownFileName(files, "C:\\x.y\\IMG~1.001.JPG"), "IMG:1.001.JPG");
  EXPECT_EQ(ShownBaseName(files, "C:\\x.y\\IMG~1.001.JPG"), "IMG:1");
  EXPECT_EQ(ShownBaseName(files, "C:\\x.y\\photo"), "photo");
  EXPECT_EQ(ShownBaseName(files, "C:\\x.y\\.hidden"), "");
}

// With the host's own root as drive C:, and nothing looked at.
TEST(TypedName, ANameInTheHostsSpellingIsTakenAsTheProgramSpellsIt) {
  PosixFiles host{PathMapping()};
  EXPECT_EQ(TypedName(host, "Photos"), "Photos");
  const std::string colon = TypedName(host, "10:30");
  EXPECT_EQ(colon.find(':'), std::string::npos);
  EXPECT_EQ(ShownFolderName(host, "C:\\" + colon), "10:30");
}

TEST(TypedName, WhatLeadsElsewhereStaysAsItWasTyped) {
  PosixFiles host{PathMapping()};
  for (const char* name : {"..", ".", "a/b", "/", ""}) EXPECT_EQ(TypedName(host, name), name);
}

}  // namespace
}  // namespace pixorra
