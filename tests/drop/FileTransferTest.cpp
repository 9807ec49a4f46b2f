// Copying a photo: its bytes, its date, and what is left when something fails.
#include <gtest/gtest.h>
#include <utility>

#include "drop/FileTransfer.h"
#include "platform/runtime/Errors.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* Source = "C:\\Strip\\a.jpg";
constexpr const char* Copy = "C:\\Folder\\b.jpg";
constexpr CalendarTime Shot{2001, 5, 6, 13, 14, 15, 678};

class FileTransferTest : public ProgramTest {
 protected:
  FileTransferTest() {
    drive.Write(Source, Bytes);
    drive.SetTime(Source, Shot);
    drive.MakeFolder("C:\\Folder");
  }
  int ErrorOfCopy(const std::string& source = Source, const std::string& destination = Copy) {
    return ErrorsIgnored([&] { CopyPhotoFile(main, source, destination, OpenMode::ReadWrite); });
  }

  const std::string Bytes = std::string("photo\0bytes", 11) + std::string(70000, '\x7f');
  ProgramRun& run = NewRun();
  MainForm& main = run.main;
};

TEST_F(FileTransferTest, TheCopyHasTheSourcesBytes) {
  CopyPhotoFile(main, Source, Copy, OpenMode::ReadWrite);
  EXPECT_EQ(drive.Read(Copy), Bytes);
  EXPECT_EQ(drive.Read(Source), Bytes);
}

TEST_F(FileTransferTest, WithKeepDateAllTimesAreTheSourcesToTheSecondWithTheMillisecondsOfTheCopy) {
  main.preferences.KeepDateCheckBox.SetValue(1);
  run.platform.clock.SetNow({2020, 1, 1, 10, 20, 30, 321});
  CopyPhotoFile(main, Source, Copy, OpenMode::ReadWrite);
  const CalendarTime wanted{2001, 5, 6, 13, 14, 15, 321};
  EXPECT_EQ(drive.WriteTime(Copy), wanted);
  EXPECT_EQ(drive.AccessTime(Copy), wanted);
  EXPECT_EQ(drive.WriteTime(Source), Shot);
}

TEST_F(FileTransferTest, WithoutKeepDateTheCopyCarriesTheTimeOfCopying) {
  main.preferences.KeepDateCheckBox.SetValue(0);
  CopyPhotoFile(main, Source, Copy, OpenMode::ReadWrite);
  EXPECT_GE(drive.WriteTime(Copy).Year, 2024);
}

TEST_F(FileTransferTest, ASourceThatCannotBeWrittenKeepsNoDateAndIsCopiedAllTheSame) {
  run.files.FailAlways(FileCall::LastWriteTime, error::PathAccess);
  CopyPhotoFile(main, Source, Copy, OpenMode::ReadWrite);
  EXPECT_EQ(drive.Read(Copy), Bytes);
  EXPECT_GE(drive.WriteTime(Copy).Year, 2024);
}

TEST_F(FileTransferTest, AnEmptySourceRaisesAndLeavesAnEmptyDestination) {
  drive.Write(Source, "");
  EXPECT_EQ(ErrorOfCopy(), error::BadSubscript);
  EXPECT_EQ(drive.Read(Copy), "");
}

TEST_F(FileTransferTest, AMissingSourceRaisesAndLeavesAnEmptyDestination) {
  EXPECT_EQ(ErrorOfCopy("C:\\Strip\\gone.jpg"), error::FileNotFound);
  EXPECT_EQ(drive.Read(Copy), "");
}

TEST_F(FileTransferTest, AMissingFolderRaisesBeforeAnythingIsRead) {
  EXPECT_EQ(ErrorOfCopy(Source, "C:\\Gone\\b.jpg"), error::PathNotFound);
  EXPECT_EQ(run.files.Count(FileCall::OpenToRead), 0);
}

TEST_F(FileTransferTest, AFullDiskRaisesAndLeavesWhatFitted) {
  run.files.FillDiskAfter(1000);
  EXPECT_EQ(ErrorOfCopy(), error::DiskFull);
  EXPECT_EQ(drive.Read(Copy), Bytes.substr(0, 1000));
}

TEST_F(FileTransferTest, ASourceThatCannotBeReadToItsEndRaisesAndLeavesAnEmptyDestination) {
  run.files.FailNth(FileCall::Read, 1, error::DeviceIO, "a.jpg");
  EXPECT_EQ(ErrorOfCopy(), error::DeviceIO);
  EXPECT_EQ(drive.Read(Copy), "");
  run.files.Heal();
  drive.Write(Source, std::string(3'000'000, 's'));
  run.files.FailNth(FileCall::Read, 3, error::DeviceIO, "a.jpg");
  EXPECT_EQ(ErrorOfCopy(), error::DeviceIO);
  EXPECT_EQ(drive.Read(Copy), "");
}

TEST_F(FileTransferTest, WhatCannotBePutOnStableStorageIsAFailure) {
  run.files.FailNth(FileCall::Flush, 1, error::DeviceIO);
  EXPECT_EQ(ErrorOfCopy(), error::DeviceIO);
  run.files.Heal();
  run.files.FailNth(FileCall::FlushFolder, 1, error::DeviceIO);
  EXPECT_EQ(ErrorOfCopy(Source, "C:\\Folder\\c.jpg"), error::DeviceIO);
}

TEST_F(FileTransferTest, ACopyThatCouldNotBeFlushedIsEmptied) {
  run.files.FailNth(FileCall::Flush, 1, error::DeviceIO);
  EXPECT_EQ(ErrorOfCopy(), error::DeviceIO);
  EXPECT_EQ(drive.Read(Copy), "");
  run.files.Heal();
  run.files.FailNth(FileCall::FlushFolder, 1, error::DeviceIO);
  EXPECT_EQ(ErrorOfCopy(Source, "C:\\Folder\\c.jpg"), error::DeviceIO);
  EXPECT_EQ(drive.Read("C:\\Folder\\c.jpg"), "");
}

TEST_F(FileTransferTest, TheDateIsSetAheadOfTheFlush) {
  main.preferences.KeepDateCheckBox.SetValue(1);
  run.files.FailNth(FileCall::Flush, 1, error::DeviceIO);
  const int times = run.files.Count(FileCall::SetTimes);
  EXPECT_EQ(ErrorOfCopy(), error::DeviceIO);
  EXPECT_EQ(run.files.Count(FileCall::SetTimes), times + 1);
}

TEST_F(FileTransferTest, ANameThatIsTakenIsNotWrittenOver) {
  drive.Write(Copy, "kept");
  EXPECT_EQ(ErrorsIgnored([&] { CopyPhotoFile(main, Source, Copy, OpenMode::CreateNew); }), error::FileExists);
  EXPECT_EQ(drive.Read(Copy), "kept");
}

TEST_F(FileTransferTest, TheFileIsFlushedOnceAndItsFolderAfterIt) {
  const int flushes = run.files.Count(FileCall::Flush);
  const int folders = run.files.Count(FileCall::FlushFolder);
  run.files.FailNth(FileCall::Flush, 1, error::DeviceIO);
  EXPECT_EQ(ErrorOfCopy(), error::DeviceIO);
  EXPECT_EQ(run.files.Count(FileCall::FlushFolder), folders);
  run.files.Heal();
  CopyPhotoFile(main, Source, "C:\\Folder\\c.jpg", OpenMode::ReadWrite);
  // The one that failed, the one of the emptied file, and the one of the copy that went well.
  EXPECT_EQ(run.files.Count(FileCall::Flush), flushes + 3);
  EXPECT_EQ(run.files.Count(FileCall::FlushFolder), folders + 1);
}

// One read more sees that there is nothing after the photo's end.
TEST_F(FileTransferTest, APhotoOfOneBlockIsReadAndWrittenOnce) {
  const int reads = run.files.Count(FileCall::Read);
  const int writes = run.files.Count(FileCall::Write);
  CopyPhotoFile(main, Source, Copy, OpenMode::ReadWrite);
  EXPECT_EQ(run.files.Count(FileCall::Read), reads + 2);
  EXPECT_EQ(run.files.Count(FileCall::Write), writes + 1);
}

TEST_F(FileTransferTest, NothingIsWrittenThroughALink) {
  drive.Write("C:\\Elsewhere\\kept.jpg", "kept");
  drive.MakeLink(Copy, drive.HostPath("C:\\Elsewhere\\kept.jpg"));
  EXPECT_NE(ErrorOfCopy(), error::None);
  EXPECT_EQ(drive.Read("C:\\Elsewhere\\kept.jpg"), "kept");
  drive.MakeLink("C:\\Folder\\dangling.jpg", drive.HostPath("C:\\Elsewhere\\new.jpg"));
  EXPECT_NE(ErrorOfCopy(Source, "C:\\Folder\\dangling.jpg"), error::None);
  EXPECT_FALSE(drive.Exists("C:\\Elsewhere\\new.jpg"));
}

TEST_F(FileTransferTest, CopiesOfAllSizesFollowEachOther) {
  const std::string small = "s";
  const std::string large(3'000'000, 'L');
  drive.Write("C:\\Strip\\small.jpg", small);
  drive.Write("C:\\Strip\\large.jpg", large);
  CopyPhotoFile(main, "C:\\Strip\\large.jpg", "C:\\Folder\\1.jpg", OpenMode::ReadWrite);
  CopyPhotoFile(main, Source, "C:\\Folder\\2.jpg", OpenMode::ReadWrite);
  CopyPhotoFile(main, "C:\\Strip\\small.jpg", "C:\\Folder\\3.jpg", OpenMode::ReadWrite);
  CopyPhotoFile(main, "C:\\Strip\\large.jpg", "C:\\Folder\\4.jpg", OpenMode::ReadWrite);
  EXPECT_EQ(drive.Read("C:\\Folder\\1.jpg"), large);
  EXPECT_EQ(drive.Read("C:\\Folder\\2.jpg"), Bytes);
  EXPECT_EQ(drive.Read("C:\\Folder\\3.jpg"), small);
  EXPECT_EQ(drive.Read("C:\\Folder\\4.jpg"), large);
}

TEST_F(FileTransferTest, ACopyIntoTheRootOfADriveIsFlushedThereToo) {
  CopyPhotoFile(main, Source, "C:\\root.jpg", OpenMode::ReadWrite);
  EXPECT_EQ(drive.Read("C:\\root.jpg"), Bytes);
}

// Files of which one becomes shorter as soon as its length has been told.
class ShrinkingFiles : public FaultyFiles {
 public:
  explicit ShrinkingFiles(TemporaryDrive& drive) : FaultyFiles(drive.DriveFiles()), drive_(drive) {}
  std::int64_t Length(const std::string& path) override {
    const std::int64_t length = FaultyFiles::Length(path);
    drive_.Write(path, "short");
    return length;
  }

 private:
  TemporaryDrive& drive_;
};

// Files of which one is changed as soon as its length has been told.
class ChangingFiles : public FaultyFiles {
 public:
  ChangingFiles(TemporaryDrive& drive, std::string bytes)
      : FaultyFiles(drive.DriveFiles()), drive_(drive), bytes_(std::move(bytes)) {}
  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override {
    std::unique_ptr<File> file = FaultyFiles::Open(path, mode);
    if (mode == OpenMode::Read) return std::make_unique<ChangingFile>(*this, std::move(file), path);
    return file;
  }

 private:
  // The change comes after the first look at the file, and ahead of the reading.
  class ChangingFile : public File {
   public:
    ChangingFile(ChangingFiles& files, std::unique_ptr<File> inner, std::string path)
        : files_(files), inner_(std::move(inner)), path_(std::move(path)) {}
    std::int64_t Length() override { return inner_->Length(); }
    FileStamp Stamp() override { return inner_->Stamp(); }
    std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
      files_.drive_.Write(path_, files_.bytes_);
      files_.drive_.SetTime(path_, {2010, 1, 2, 3, 4, 5, 6});
      return inner_->ReadAt(offset, into, count);
    }
    void WriteAt(std::int64_t, const void*, std::size_t) override {}
    void Flush() override {}
    void Empty() override {}

   private:
    ChangingFiles& files_;
    std::unique_ptr<File> inner_;
    std::string path_;
  };

  TemporaryDrive& drive_;
  std::string bytes_;
};

TEST_F(FileTransferTest, ASourceThatGrowsOrIsWrittenToMeanwhileDoesNotPassForAWholePhoto) {
  for (const auto& [bytes, number] : std::vector<std::pair<std::string, int>>{
           {Bytes + "more", error::PastEndOfFile}, {std::string(Bytes.size(), 'x'), error::DeviceIO}}) {
    drive.Write(Source, Bytes);
    ChangingFiles files(drive, bytes);
    EXPECT_EQ(ErrorsIgnored([&] { CopyFileBytes(files, Source, Copy, OpenMode::ReadWrite); }), number);
    EXPECT_EQ(drive.Read(Copy), "");
  }
}

TEST_F(FileTransferTest, ASourceThatBecomesShorterMeanwhileDoesNotPassForAWholePhoto) {
  ShrinkingFiles files(drive);
  EXPECT_EQ(ErrorsIgnored([&] { CopyFileBytes(files, Source, Copy, OpenMode::ReadWrite); }), error::PastEndOfFile);
  EXPECT_EQ(drive.Read(Copy), "");
}

}  // namespace
}  // namespace pixorra
