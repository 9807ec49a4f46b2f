// Files on a card: a disk that ignores case, keeps dates to two seconds and refuses some names.
#include <gtest/gtest.h>

#include "platform/runtime/Errors.h"
#include "tests/support/FatDisk.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

class FatFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!disk_.Mounted()) GTEST_SKIP() << disk_.WhyNot();
  }
  void Write(const std::string& path, const std::string& bytes) {
    files_.Open(path, OpenMode::CreateNew)->WriteAt(0, bytes.data(), bytes.size());
  }

  TemporaryDrive drive_;
  PosixFiles& files_ = drive_.DriveFiles();
  FatDisk disk_{drive_.HostPath("C:\\card"), 2048};
};

TEST_F(FatFiles, ANameInAnotherCaseIsTakenAndIsNotWrittenOver) {
  Write("C:\\card\\a.jpg", "first");
  EXPECT_TRUE(files_.NameTaken("C:\\card\\A.JPG"));
  EXPECT_EQ(ErrorsIgnored([&] { Write("C:\\card\\A.JPG", "second"); }), error::FileExists);
  EXPECT_EQ(drive_.Read("C:\\card\\a.jpg"), "first");
  EXPECT_EQ(files_.Names("C:\\card", "*.jpg", attribute::Normal).size(), 1U);
}

TEST_F(FatFiles, AFileIsDeletedByItsNameInAnotherCase) {
  Write("C:\\card\\a.jpg", "first");
  files_.Delete("C:\\card\\A.JPG");
  EXPECT_FALSE(files_.NameTaken("C:\\card\\a.jpg"));
}

TEST_F(FatFiles, TimesAreKeptToTwoSeconds) {
  Write("C:\\card\\a.jpg", "first");
  const CalendarTime odd{2001, 5, 6, 13, 14, 15, 321};
  EXPECT_TRUE(files_.SetTimes("C:\\card\\a.jpg", odd));
  EXPECT_EQ(files_.LastWriteTime("C:\\card\\a.jpg"), (CalendarTime{2001, 5, 6, 13, 14, 14, 0}));
}

TEST_F(FatFiles, NamesThatItRefusesMakeNoFile) {
  for (const char* name : {"what?.jpg", "a*b.jpg", "a|b.jpg", "a<b>.jpg", "colon\xEF\x80\xBA.jpg"}) {
    const std::string path = std::string("C:\\card\\") + name;
    const int failure = ErrorsIgnored([&] { Write(path, "1"); });
    if (failure == error::None) continue;  // some of them it takes, in letters of its own
    EXPECT_FALSE(files_.FileExists(path)) << name;
  }
  EXPECT_NE(ErrorsIgnored([&] { Write("C:\\card\\what?.jpg", "1"); }), error::None);
}

TEST_F(FatFiles, ItTakesACopyAndItsFlushes) {
  drive_.Write("C:\\from.jpg", std::string(300'000, 'x'));
  const std::unique_ptr<File> from = files_.Open("C:\\from.jpg", OpenMode::Read);
  const std::unique_ptr<File> to = files_.Open("C:\\card\\to.jpg", OpenMode::CreateNew);
  EXPECT_EQ(to->CopyFrom(*from, 300'000), 300'000);
  to->Flush();
  files_.FlushFolder("C:\\card");
  EXPECT_TRUE(drive_.Read("C:\\card\\to.jpg") == std::string(300'000, 'x'));
}

}  // namespace
}  // namespace pixorra
