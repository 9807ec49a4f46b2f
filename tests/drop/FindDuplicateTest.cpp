// The file of a list that equals a new one. What counts as equal is tried by whole drops, too.
#include <filesystem>
#include <gtest/gtest.h>

#include "drop/Duplicates.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/Form.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/headless/HeadlessTest.h"
#include "window/DropState.h"

namespace pixorra {
namespace {

class FindDuplicateTest : public HeadlessTest {
 protected:
  FindDuplicateTest() {
    list.SetPattern("*.bmp");
    drive.Write("C:\\F\\new.bmp", "a photo");
    ListFolder();
  }
  void ListFolder() {
    list.SetPath("C:\\F");
    list.Refresh();
  }
  std::string Find(std::string path) { return FindDuplicate(files, list, path); }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  Form window{toolkit, "Window"};
  FileListBox list{window, "List", files};
};

TEST_F(FindDuplicateTest, OfSeveralEqualFilesTheFirstInTheListsOrderIsFound) {
  drive.Write("C:\\F\\x.bmp", "a photo");
  drive.Write("C:\\F\\Again.bmp", "a photo");
  drive.Write("C:\\F\\a first one.bmp", "another");
  ListFolder();
  EXPECT_EQ(Find("C:\\F\\new.bmp"), "C:\\F\\Again.bmp");
}

TEST_F(FindDuplicateTest, AnotherNameOfTheNewFileIsNoDuplicateAndOneOfAnEqualFileIs) {
  std::filesystem::create_hard_link(drive.HostPath("C:\\F\\new.bmp"), drive.HostPath("C:\\F\\also new.bmp"));
  ListFolder();
  EXPECT_EQ(Find("C:\\F\\new.bmp"), "");
  drive.Write("C:\\G\\old.bmp", "a photo");
  std::filesystem::create_hard_link(drive.HostPath("C:\\G\\old.bmp"), drive.HostPath("C:\\F\\old.bmp"));
  ListFolder();
  EXPECT_EQ(Find("C:\\F\\new.bmp"), "C:\\F\\old.bmp");
}

TEST_F(FindDuplicateTest, TheNewFileIsNotItsOwnDuplicateInWhateverSpelling) {
  for (const char* path : {"C:\\F\\new.bmp", "C:\\F\\NEW.BMP", "c:\\f\\New.bmp"}) EXPECT_EQ(Find(path), "") << path;
}

TEST_F(FindDuplicateTest, ForAnEmptyPathAndInAnEmptyListNothingIsFound) {
  EXPECT_EQ(Find("  "), "");
  drive.Write("C:\\Lone\\a.bmp", "a photo");
  drive.Remove("C:\\F\\new.bmp");
  ListFolder();
  EXPECT_EQ(Find("C:\\Lone\\a.bmp"), "");
}

TEST_F(FindDuplicateTest, ACandidateThatCannotBeReadEndsTheSearchWithItsError) {
  drive.Write("C:\\F\\old.bmp", "a photo");
  ListFolder();
  files.FailAlways(FileCall::Read, error::DeviceIO, "F\\old.bmp");
  EXPECT_THROW(Find("C:\\F\\new.bmp"), RuntimeError);
}

TEST_F(FindDuplicateTest, FilesOfOtherLengthsAreNotRead) {
  for (char name = 'b'; name < 'n'; ++name) {
    drive.Write(std::string("C:\\F\\") + name + ".bmp", std::string(static_cast<std::size_t>(name), 'x'));
  }
  ListFolder();
  const int reads = files.Count(FileCall::Read);
  const int opens = files.Count(FileCall::OpenToRead);
  EXPECT_EQ(Find("C:\\F\\new.bmp"), "");
  EXPECT_EQ(files.Count(FileCall::Read), reads);
  EXPECT_LE(files.Count(FileCall::OpenToRead), opens + 1);
}

TEST_F(FindDuplicateTest, WithinARunEachLengthIsLookedAtOnceAndNewFilesAreFoundAllTheSame) {
  SeenLengths seen;
  for (int i = 0; i < 20; ++i)
    drive.Write("C:\\F\\" + std::to_string(i) + ".bmp", std::string(static_cast<std::size_t>(100 + i), 'x'));
  const auto drop = [&](const std::string& name, const std::string& bytes) {
    std::string path = "C:\\F\\" + name;
    drive.Write(path, bytes);
    list.Refresh();
    return FindDuplicate(files, list, path, &seen);
  };
  EXPECT_EQ(drop("first.bmp", "abc"), "");
  const int looks = files.Count(FileCall::Length);
  EXPECT_EQ(drop("second.bmp", "abcd"), "");
  EXPECT_EQ(files.Count(FileCall::Length), looks + 1) << "only at the first photo";
  EXPECT_EQ(drop("third.bmp", "abc"), "C:\\F\\first.bmp");
  drive.Remove("C:\\F\\third.bmp");
  // A name that had another file before, and one that comes from elsewhere.
  drive.Write("C:\\F\\elsewhere.bmp", "abcdef");
  EXPECT_EQ(drop("third.bmp", "abcdef"), "C:\\F\\elsewhere.bmp");
  EXPECT_EQ(drop("fourth.bmp", "abcd"), "C:\\F\\second.bmp");
  EXPECT_EQ(drop("other.bmp", "xy"), "") << "and the third has been looked at";
  drive.Remove("C:\\F\\third.bmp");
  EXPECT_EQ(drop("third.bmp", "abcdefgh"), "");
  EXPECT_EQ(drop("fifth.bmp", "abcdefgh"), "C:\\F\\third.bmp");
}

TEST_F(FindDuplicateTest, AnotherFolderOfTheRunHasLengthsOfItsOwn) {
  SeenLengths seen;
  drive.Write("C:\\F\\old.bmp", "abc");
  drive.Write("C:\\F\\new.bmp", "abcd");
  list.Refresh();
  std::string path = "C:\\F\\new.bmp";
  EXPECT_EQ(FindDuplicate(files, list, path, &seen), "");
  drive.Write("C:\\G\\old.bmp", "abcd");
  drive.Write("C:\\G\\new.bmp", "abcd");
  list.SetPath("C:\\G");
  path = "C:\\G\\new.bmp";
  EXPECT_EQ(FindDuplicate(files, list, path, &seen), "C:\\G\\old.bmp");
}

TEST_F(FindDuplicateTest, BlanksAroundTheNewFilesPathAreTakenOff) {
  drive.Write("C:\\F\\old.bmp", "a photo");
  ListFolder();
  std::string path = "  C:\\F\\new.bmp ";
  EXPECT_EQ(FindDuplicate(files, list, path), "C:\\F\\old.bmp");
  EXPECT_EQ(path, "C:\\F\\new.bmp");
}

}  // namespace
}  // namespace pixorra
