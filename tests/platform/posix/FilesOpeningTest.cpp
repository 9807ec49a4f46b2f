// Contract of Files: opening, reading and writing.
#include <algorithm>
#include <array>
#include <filesystem>
#include <sys/stat.h>

#include "tests/platform/posix/FilesContract.h"

namespace pixorra {
namespace {

class FilesOpening : public FilesContract {};
PIXORRA_ON_ALL_FILES(FilesOpening);

TEST_P(FilesOpening, ReadsAtAnyPlaceAndTellsHowMuchCame) {
  drive_.Write("C:\\p\\a", "0123456789");
  const std::unique_ptr<File> file = TheFiles().Open("C:\\p\\a", OpenMode::Read);
  std::array<char, 4> part{};
  EXPECT_EQ(file->Length(), 10);
  EXPECT_EQ(file->ReadAt(3, part.data(), part.size()), 4U);
  EXPECT_EQ(std::string(part.data(), 4), "3456");
  EXPECT_EQ(file->ReadAt(8, part.data(), part.size()), 2U);
  EXPECT_EQ(std::string(part.data(), 2), "89");
  EXPECT_EQ(file->ReadAt(10, part.data(), part.size()), 0U);
  EXPECT_EQ(file->ReadAt(5000, part.data(), part.size()), 0U);
}

TEST_P(FilesOpening, OnlyAFileOfTheLengthOpensByItsLength) {
  drive_.Write("C:\\p\\a", "0123456789");
  std::filesystem::create_symlink("a", drive_.HostPath("C:\\p\\link"));
  for (const std::string path : {"C:\\p\\a", "C:\\P\\A", "C:\\p\\link"}) {
    const std::unique_ptr<File> file = TheFiles().OpenOfLength(path, 10);
    ASSERT_NE(file, nullptr) << path;
    char last = 0;
    EXPECT_EQ(file->ReadAt(9, &last, 1), 1U);
    EXPECT_EQ(last, '9');
    EXPECT_EQ(TheFiles().OpenOfLength(path, 9), nullptr) << path;
    EXPECT_EQ(TheFiles().OpenOfLength(path, 11), nullptr) << path;
  }
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().OpenOfLength("C:\\p\\b", 10); }), error::FileNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().OpenOfLength("C:\\q\\b", 10); }), error::PathNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().OpenOfLength("C:\\p", 10); }), error::FileNotFound);
}

TEST_P(FilesOpening, TheStampOfAFileThatIsLookedAtIsThatOfTheOpenFile) {
  drive_.Write("C:\\p\\a", "1");
  drive_.MakeLink("C:\\p\\link", "a");
  drive_.MakeFolder("C:\\p\\sub");
  const FileStamp stamp = TheFiles().Open("C:\\p\\a", OpenMode::Read)->Stamp();
  EXPECT_EQ(TheFiles().StampOf("C:\\p\\A"), stamp);
  EXPECT_EQ(TheFiles().StampOf("C:\\p\\link"), stamp);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().StampOf("C:\\p\\b"); }), error::FileNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().StampOf("C:\\q\\b"); }), error::PathNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().StampOf("C:\\p\\sub"); }), error::FileNotFound);
}

TEST_P(FilesOpening, AStampChangesWithEveryChangeOfLengthAndTimeAndWithAnotherFileInItsPlace) {
  drive_.Write("C:\\p\\a", "0123456789");
  const auto stamp = [&] { return TheFiles().Open("C:\\p\\a", OpenMode::Read)->Stamp(); };
  const FileStamp first = stamp();
  EXPECT_EQ(first.Length, 10);
  EXPECT_EQ(stamp(), first);
  TheFiles().Open("C:\\p\\a", OpenMode::ReadWrite)->WriteAt(10, "a", 1);
  const FileStamp longer = stamp();
  EXPECT_NE(longer, first);
  drive_.SetTime("C:\\p\\a", {.Year = 2004, .Month = 2, .Day = 3, .Hour = 4, .Minute = 5, .Second = 6});
  const FileStamp dated = stamp();
  EXPECT_NE(dated, longer);
  drive_.Write("C:\\p\\b", "0123456789a");
  drive_.SetTime("C:\\p\\b", {.Year = 2004, .Month = 2, .Day = 3, .Hour = 4, .Minute = 5, .Second = 6});
  TheFiles().Delete("C:\\p\\a");
  TheFiles().Rename("C:\\p\\b", "C:\\p\\a");
  EXPECT_NE(stamp(), dated);
}

TEST_P(FilesOpening, APlaceBeforeTheStartRaises57) {
  drive_.Write("C:\\p\\a", "0123456789");
  const std::unique_ptr<File> file = TheFiles().Open("C:\\p\\a", OpenMode::ReadWrite);
  char byte = 'x';
  EXPECT_EQ(ErrorsIgnored([&] { file->ReadAt(-1, &byte, 1); }), error::DeviceIO);
  EXPECT_EQ(ErrorsIgnored([&] { file->WriteAt(-1, &byte, 1); }), error::DeviceIO);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), "0123456789");
}

TEST_P(FilesOpening, ReadingWhatIsMissingTellsFileFromFolder) {
  drive_.MakeFolder("C:\\p");
  EXPECT_EQ(NumberOfOpen("C:\\p\\a", OpenMode::Read), error::FileNotFound);
  EXPECT_EQ(NumberOfOpen("C:\\q\\a", OpenMode::Read), error::PathNotFound);
  EXPECT_EQ(NumberOfOpen("Q:\\a", OpenMode::Read), error::PathNotFound);
  EXPECT_EQ(NumberOfOpen("a", OpenMode::Read), error::BadFileName);
  EXPECT_FALSE(drive_.Exists("C:\\p\\a"));
}

TEST_P(FilesOpening, WritingMakesAFileThatOthersMayReadAsTheMaskSays) {
  drive_.MakeFolder("C:\\p");
  const mode_t mask = umask(027);
  TheFiles().Open("C:\\p\\a", OpenMode::ReadWrite);
  umask(mask);
  struct stat entry {};
  ASSERT_EQ(stat(drive_.HostPath("C:\\p\\a").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0640U);
  EXPECT_EQ(entry.st_size, 0);
}

TEST_P(FilesOpening, ReadWriteNeverShortensAFile) {
  drive_.Write("C:\\p\\a", "0123456789");
  const std::unique_ptr<File> file = TheFiles().Open("C:\\p\\a", OpenMode::ReadWrite);
  EXPECT_EQ(file->Length(), 10);
  file->WriteAt(2, "xy", 2);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), "01xy456789");
}

TEST_P(FilesOpening, WritingBeyondTheEndLengthensWithZeros) {
  drive_.MakeFolder("C:\\p");
  const std::unique_ptr<File> file = TheFiles().Open("C:\\p\\a", OpenMode::ReadWrite);
  file->WriteAt(3, "x", 1);
  EXPECT_EQ(file->Length(), 4);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), std::string("\0\0\0x", 4));
}

TEST_P(FilesOpening, WhatOneReaderWritesAnotherReads) {
  drive_.MakeFolder("C:\\p");
  const std::unique_ptr<File> writer = TheFiles().Open("C:\\p\\a", OpenMode::ReadWrite);
  writer->WriteAt(0, "abc", 3);
  EXPECT_EQ(ReadWhole("C:\\p\\a"), "abc");
  writer->Flush();
  TheFiles().FlushFolder("C:\\p");
  EXPECT_EQ(ReadWhole("C:\\p\\a"), "abc");
}

TEST_P(FilesOpening, ReplaceEmptiesAnOrdinaryFileAndMakesAMissingOne) {
  drive_.Write("C:\\p\\a", "0123456789");
  TheFiles().Open("C:\\p\\a", OpenMode::Replace)->WriteAt(0, "x", 1);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), "x");
  TheFiles().Open("C:\\p\\b", OpenMode::Replace)->WriteAt(0, "y", 1);
  EXPECT_EQ(drive_.Read("C:\\p\\b"), "y");
}

TEST_P(FilesOpening, CreateNewMakesAFileOnlyWhereNothingHasTheName) {
  TheFiles().Open("C:\\new.jpg", OpenMode::CreateNew)->WriteAt(0, "1", 1);
  EXPECT_EQ(ReadWhole("C:\\new.jpg"), "1");
  EXPECT_EQ(NumberOfOpen("C:\\new.jpg", OpenMode::CreateNew), error::FileExists);
  EXPECT_EQ(NumberOfOpen("C:\\NEW.jpg", OpenMode::CreateNew), error::FileExists);
  EXPECT_EQ(ReadWhole("C:\\new.jpg"), "1");
  drive_.MakeFolder("C:\\folder");
  EXPECT_EQ(NumberOfOpen("C:\\folder", OpenMode::CreateNew), error::FileExists);
  drive_.MakeLink("C:\\nowhere", "missing");
  EXPECT_EQ(NumberOfOpen("C:\\nowhere", OpenMode::CreateNew), error::FileExists);
  EXPECT_FALSE(drive_.Exists("C:\\missing"));
  EXPECT_EQ(NumberOfOpen("C:\\gone\\new.jpg", OpenMode::CreateNew), error::PathNotFound);
}

TEST_P(FilesOpening, ANameThatWasFreeAndIsTakenSinceInAnyCaseIsNotMade) {
  drive_.MakeFolder("C:\\p");
  EXPECT_FALSE(TheFiles().NameTaken("C:\\p\\a.jpg"));
  drive_.Write("C:\\p\\A.JPG", "1");
  EXPECT_EQ(NumberOfOpen("C:\\p\\a.jpg", OpenMode::CreateNew), error::FileExists);
  EXPECT_FALSE(TheFiles().NameTaken("C:\\P\\b.jpg"));
  EXPECT_EQ(NumberOfOpen("C:\\P\\b.jpg", OpenMode::CreateNew), error::None);
  EXPECT_TRUE(drive_.Exists("C:\\p\\b.jpg"));
  EXPECT_EQ(NumberOfOpen("C:\\P\\b.jpg", OpenMode::CreateNew), error::FileExists);
  EXPECT_FALSE(TheFiles().NameTaken("C:\\p\\c.jpg"));
  drive_.Remove("C:\\p");
  EXPECT_EQ(NumberOfOpen("C:\\p\\c.jpg", OpenMode::CreateNew), error::PathNotFound);
}

TEST_P(FilesOpening, AFileTakesTheFirstBytesOfAnother) {
  std::string bytes(3'000'017, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
  drive_.Write("C:\\p\\from", bytes);
  const std::unique_ptr<File> from = TheFiles().Open("C:\\p\\from", OpenMode::Read);
  for (const std::size_t count :
       {std::size_t{0}, std::size_t{1}, std::size_t{262'144}, bytes.size() - 1, bytes.size()}) {
    const std::unique_ptr<File> to = TheFiles().Open("C:\\p\\to", OpenMode::Replace);
    EXPECT_EQ(to->CopyFrom(*from, static_cast<std::int64_t>(count)), static_cast<std::int64_t>(count));
    EXPECT_TRUE(drive_.Read("C:\\p\\to") == bytes.substr(0, count)) << count;
  }
  // What both files had read and written before leaves no trace in where the copy begins.
  char byte = 0;
  from->ReadAt(5, &byte, 1);
  const std::unique_ptr<File> to = TheFiles().Open("C:\\p\\to", OpenMode::ReadWrite);
  to->WriteAt(static_cast<std::int64_t>(bytes.size()), "tail", 4);
  EXPECT_EQ(to->CopyFrom(*from, 10'000'000), static_cast<std::int64_t>(bytes.size())) << "no more than there is";
  EXPECT_TRUE(drive_.Read("C:\\p\\to") == bytes + "tail");
}

TEST_P(FilesOpening, ACopyRaisesWhatWritingRaises) {
  drive_.Write("C:\\p\\from", "0123456789");
  const std::unique_ptr<File> from = TheFiles().Open("C:\\p\\from", OpenMode::Read);
  const std::unique_ptr<File> reader = TheFiles().Open("C:\\p\\from", OpenMode::Read);
  EXPECT_EQ(ErrorsIgnored([&] { reader->CopyFrom(*from, 10); }), error::PathAccess);
  EXPECT_EQ(drive_.Read("C:\\p\\from"), "0123456789");
}

TEST_P(FilesOpening, AnOpenFileIsEmptiedAndMayBeWrittenAgain) {
  drive_.Write("C:\\a", "before");
  const std::unique_ptr<File> file = TheFiles().Open("C:\\a", OpenMode::ReadWrite);
  file->Empty();
  EXPECT_EQ(drive_.Read("C:\\a"), "");
  file->WriteAt(0, "after", 5);
  EXPECT_EQ(drive_.Read("C:\\a"), "after");
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().Open("C:\\a", OpenMode::Read)->Empty(); }), error::PathAccess);
}

TEST_P(FilesOpening, WritingWithoutAFolderRaises76) {
  EXPECT_EQ(NumberOfOpen("C:\\q\\a", OpenMode::ReadWrite), error::PathNotFound);
  EXPECT_EQ(NumberOfOpen("C:\\q\\a", OpenMode::Replace), error::PathNotFound);
  drive_.Write("C:\\file", "1");
  EXPECT_EQ(NumberOfOpen("C:\\file\\a", OpenMode::ReadWrite), error::PathNotFound);
}

TEST_P(FilesOpening, WritingUnderAnotherCaseTakesTheFileThatIsThere) {
  drive_.Write("C:\\Photos\\a.jpg", "a");
  TheFiles().Open("C:\\PHOTOS\\A.JPG", OpenMode::ReadWrite)->WriteAt(1, "b", 1);
  EXPECT_EQ(drive_.Read("C:\\Photos\\a.jpg"), "ab");
  EXPECT_FALSE(drive_.Exists("C:\\Photos\\A.JPG"));
  EXPECT_FALSE(drive_.Exists("C:\\PHOTOS"));
}

TEST_P(FilesOpening, ANewFileKeepsItsCaseInAFolderOfAnother) {
  drive_.MakeFolder("C:\\Photos");
  TheFiles().Open("C:\\PHOTOS\\New.JPG", OpenMode::ReadWrite);
  EXPECT_TRUE(drive_.Exists("C:\\Photos\\New.JPG"));
}

TEST_P(FilesOpening, NothingIsWrittenThroughALink) {
  drive_.Write("C:\\p\\target", "keep");
  drive_.MakeLink("C:\\p\\link", "target");
  drive_.MakeLink("C:\\p\\nowhere", "made");
  for (const OpenMode mode : {OpenMode::ReadWrite, OpenMode::Replace}) {
    EXPECT_EQ(NumberOfOpen("C:\\p\\link", mode), error::PathAccess);
    EXPECT_EQ(NumberOfOpen("C:\\p\\nowhere", mode), error::PathAccess);
  }
  EXPECT_EQ(drive_.Read("C:\\p\\target"), "keep");
  EXPECT_FALSE(drive_.Exists("C:\\p\\made"));
}

TEST_P(FilesOpening, ReadingGoesThroughALink) {
  drive_.Write("C:\\p\\target", "seen");
  drive_.MakeLink("C:\\p\\link", "target");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  EXPECT_EQ(ReadWhole("C:\\p\\link"), "seen");
  EXPECT_EQ(NumberOfOpen("C:\\p\\nowhere", OpenMode::Read), error::FileNotFound);
}

TEST_P(FilesOpening, AFifoIsRefusedAndNothingBlocks) {
  drive_.MakeFifo("C:\\p\\fifo.jpg");
  for (const OpenMode mode : {OpenMode::Read, OpenMode::ReadWrite, OpenMode::Replace})
    EXPECT_EQ(NumberOfOpen("C:\\p\\fifo.jpg", mode), error::PathAccess);
}

TEST_P(FilesOpening, AFolderIsRefused) {
  drive_.MakeFolder("C:\\p\\folder.jpg");
  for (const OpenMode mode : {OpenMode::Read, OpenMode::ReadWrite, OpenMode::Replace}) {
    EXPECT_EQ(NumberOfOpen("C:\\p\\folder.jpg", mode), error::PathAccess);
    EXPECT_EQ(NumberOfOpen("C:\\", mode), error::PathAccess);
  }
}

TEST_P(FilesOpening, ANameThatLeadsOutOfItsFolderIsNoName) {
  drive_.Write("C:\\a", "outside");
  drive_.MakeFolder("C:\\p");
  for (const char* path : {"C:\\p\\..\\a", "C:\\p\\../a", "C:\\p\\.\\a", "C:\\p/../a", "C:\\p\\a:b", "C:p\\a"}) {
    EXPECT_EQ(NumberOfOpen(path, OpenMode::Read), error::BadFileName) << path;
    EXPECT_EQ(NumberOfOpen(path, OpenMode::ReadWrite), error::BadFileName) << path;
  }
  EXPECT_EQ(NumberOfOpen(std::string("C:\\p\\a\0b", 8), OpenMode::ReadWrite), error::BadFileName);
  EXPECT_EQ(drive_.Read("C:\\a"), "outside");
  EXPECT_TRUE(TheFiles().Names("C:\\p", "*.*", attribute::Hidden).empty());
}

TEST_P(FilesOpening, ANameOf255BytesIsTakenAndOneOf256IsNot) {
  drive_.MakeFolder("C:\\p");
  const std::string longest = "C:\\p\\" + std::string(255, 'n');
  TheFiles().Open(longest, OpenMode::ReadWrite)->WriteAt(0, "x", 1);
  EXPECT_EQ(ReadWhole(longest), "x");
  EXPECT_EQ(NumberOfOpen(longest + "n", OpenMode::ReadWrite), error::BadFileName);
  EXPECT_EQ(NumberOfOpen(longest + "n", OpenMode::Read), error::BadFileName);
  EXPECT_FALSE(TheFiles().NameTaken(longest + "n"));
}

TEST_P(FilesOpening, AFileThatWasOpenedForReadingTakesNoWriting) {
  drive_.Write("C:\\p\\a", "keep");
  const std::unique_ptr<File> file = TheFiles().Open("C:\\p\\a", OpenMode::Read);
  EXPECT_EQ(ErrorsIgnored([&] { file->WriteAt(0, "x", 1); }), error::PathAccess);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), "keep");
}

TEST_P(FilesOpening, ALargeFileComesBackWhole) {
  std::string bytes(3'000'001, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 31 % 251);
  drive_.MakeFolder("C:\\p");
  TheFiles().Open("C:\\p\\a", OpenMode::ReadWrite)->WriteAt(0, bytes.data(), bytes.size());
  EXPECT_TRUE(ReadWhole("C:\\p\\a") == bytes);
}

}  // namespace
}  // namespace pixorra
