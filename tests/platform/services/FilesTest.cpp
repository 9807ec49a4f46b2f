// What counts as a file and as a folder, told by attributes alone.
#include <gtest/gtest.h>
#include <optional>

#include "platform/services/Files.h"

namespace pixorra {
namespace {

// Answers with given attributes; the members under test ask for nothing else.
class OneAnswer : public Files {
 public:
  explicit OneAnswer(std::optional<int> attributes) : attributes_(attributes) {}

  std::optional<int> Attributes(const std::string&) override { return attributes_; }

  std::vector<std::string> Names(const std::string&, const std::string&, int) override { return {}; }
  std::vector<std::string> CompleteNames(const std::string&, const std::string&, int) override { return {}; }
  std::vector<std::string> Folders(const std::string&, int) override { return {}; }
  void SetAttributes(const std::string&, int) override {}
  NameState LookAtName(const std::string&) override { return attributes_ ? NameState::Taken : NameState::Free; }
  bool IsLink(const std::string&) override { return false; }
  bool IsSameFile(const std::string&, const std::string&) override { return false; }
  std::int64_t Length(const std::string&) override { return 0; }
  std::unique_ptr<File> Open(const std::string&, OpenMode) override { return nullptr; }
  void Delete(const std::string&) override {}
  void Rename(const std::string&, const std::string&) override {}
  void RenameOver(const std::string&, const std::string&) override {}
  void LinkOrCopy(const std::string&, const std::string&) override {}
  void MakeFolder(const std::string&) override {}
  void RemoveFolder(const std::string&) override {}
  void RemoveTree(const std::string&, const FolderIdentity&) override {}
  void FlushFolder(const std::string&) override {}
  std::optional<CalendarTime> LastWriteTime(const std::string&) override { return {}; }
  std::optional<CalendarTime> LastWriteTimeToRead(const std::string&) override { return {}; }
  bool SetTimes(const std::string&, const CalendarTime&) override { return false; }
  std::vector<Drive> Drives() override { return {}; }
  std::string FolderPath(const std::string& path) override { return path; }
  FolderIdentity IdentityOf(const std::string&) override { return {}; }
  std::string RealPath(const std::string& path) override { return path; }
  std::string ShownPath(const std::string& path) override { return path; }
  std::string ProgramPath(const std::string& typed) override { return typed; }

 private:
  std::optional<int> attributes_;
};

bool IsFile(std::optional<int> attributes) {
  return OneAnswer(attributes).FileExists("C:\\x");
}
bool IsFolder(std::optional<int> attributes) {
  return OneAnswer(attributes).FolderExists("C:\\x");
}

TEST(Files, AnOrdinaryFileIsAFileWhateverItsAttributes) {
  EXPECT_TRUE(IsFile(attribute::Normal));
  EXPECT_TRUE(IsFile(attribute::Archive));
  EXPECT_TRUE(IsFile(attribute::ReadOnly | attribute::Hidden | attribute::Archive));
  EXPECT_FALSE(IsFolder(attribute::ReadOnly | attribute::Hidden | attribute::Archive));
}

TEST(Files, AFolderIsNoFile) {
  EXPECT_TRUE(IsFolder(attribute::Directory));
  EXPECT_TRUE(IsFolder(attribute::Directory | attribute::ReadOnly | attribute::Hidden));
  EXPECT_FALSE(IsFile(attribute::Directory));
}

TEST(Files, DevicesAndLinksThatLeadNowhereAreNeither) {
  EXPECT_FALSE(IsFile(attribute::System));
  EXPECT_FALSE(IsFolder(attribute::System));
}

TEST(Files, WhatIsNotThereIsNeither) {
  EXPECT_FALSE(IsFile(std::nullopt));
  EXPECT_FALSE(IsFolder(std::nullopt));
}

}  // namespace
}  // namespace pixorra
