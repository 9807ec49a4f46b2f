// The thumbnail cache files: their bytes, written and read by hand from the description of the record alone, and what
// is found in them when.
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

#include "base/QuickThumbsIndex.h"
#include "pictures/QuickThumbs.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/controls/Form.h"
#include "tests/pictures/HandRecord.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

constexpr const char* Photo = "C:\\Photos\\IMG_1.JPG";
constexpr const char* Cache = "C:\\Photos\\Thumbnails.tmp";
constexpr const char* CameraCache = "C:\\Program\\CameraThumbs.tmp";
constexpr const char* Temporary = "C:\\Program\\$PXR$TMP.$$$";
constexpr CalendarTime Noon{2004, 6, 15, 12, 0, 0, 0};
constexpr double NoonValue = 38153.5;  // of that moment, days since 30 December 1899

class QuickThumbsTest : public HeadlessTest {
 protected:
  QuickThumbsTest() {
    drive.MakeFolder("C:\\Program");
    WritePhoto(Photo, 1234);
    target.SetStretch(true);
  }

  void WritePhoto(const std::string& path, std::size_t bytes, const CalendarTime& time = Noon) {
    drive.Write(path, std::string(bytes, 'p'));
    drive.SetTime(path, time);
  }
  // Each number makes a thumbnail of its own.
  static Picture Thumbnail(int number) { return Picture(PlainBitmap(80, 60, static_cast<Colour>(number))); }
  static std::string ThumbnailBytes(int number) { return BmpOf(PlainBitmap(80, 60, static_cast<Colour>(number))); }
  void Add(const std::string& path, int number) { quickThumbs.AddQuickThumb(path, Thumbnail(number), Stamp(path)); }
  FileStamp Stamp(const std::string& path) {
    FileStamp stamp;
    ErrorsIgnored([&] { stamp = drive.DriveFiles().Open(path, OpenMode::Read)->Stamp(); });
    return stamp;
  }
  // The number of the thumbnail that the cache holds, -1 on a miss. The mark is in bDragged.
  int Read(const std::string& path) { return Read(quickThumbs, path); }
  int Read(const QuickThumbs& cache, const std::string& path) {
    target.SetPicture(Picture());
    if (!cache.ReadQuickThumb(path, target, bDragged)) return -1;
    const std::uint8_t* pixel = target.GetPicture().Pixels().Row(30);
    return pixel[0] << 16 | pixel[1] << 8 | pixel[2];
  }
  HandRecord HandMade(int number) {
    return {.Thumbnail = ThumbnailBytes(number), .Name = "IMG_1.JPG", .Length = 1234, .Date = NoonValue};
  }
  // 400 photos, each with its number as thumbnail.
  void WriteLargeCache() {
    std::string bytes;
    for (int i = 0; i < 400; ++i) {
      HandRecord record = HandMade(i);
      record.Name = "IMG_" + std::to_string(i) + ".JPG";
      bytes += HandBytes(record);
    }
    drive.Write(Cache, bytes);
  }
  std::size_t CacheSize() { return drive.Read(Cache).size(); }

  QuickThumbs WithCameraAt(const std::string& folder) { return {files, drive.DrivePlaces(), pictures, index, folder}; }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  CodecPictures pictures{files};
  QuickThumbsIndex index;
  QuickThumbs quickThumbs = WithCameraAt("");
  Form window{toolkit, "Window"};
  ImageBox target{window, "Target"};
  bool bDragged = false;
};

// --- the bytes -------------------------------------------------------------------------------------------------------

TEST_F(QuickThumbsTest, ANewRecordIsByteForByteWhatTheDescriptionTells) {
  Add(Photo, 7);
  EXPECT_TRUE(drive.Read(Cache) == HandBytes(HandMade(7)));
  EXPECT_FALSE(drive.Exists(Temporary));
}

TEST_F(QuickThumbsTest, ARecordWrittenByHandIsFound) {
  HandRecord record = HandMade(9);
  record.Mark = -1;
  drive.Write(Cache, HandBytes(record));
  EXPECT_EQ(Read(Photo), 9);
  EXPECT_TRUE(bDragged);
  EXPECT_FALSE(drive.Exists(Temporary));
  EXPECT_TRUE(drive.Read(Cache) == HandBytes(record));
}

TEST_F(QuickThumbsTest, FurtherRecordsLeaveOneEmptyRecordBetween) {
  WritePhoto("C:\\Photos\\b.jpg", 20);
  WritePhoto("C:\\Photos\\c.jpg", 30);
  Add(Photo, 1);
  Add("C:\\Photos\\b.jpg", 2);
  EXPECT_EQ(CacheSize(), 3U * 14776);
  Add("C:\\Photos\\c.jpg", 3);
  const HandRecord b{.Thumbnail = ThumbnailBytes(2), .Name = "b.jpg", .Length = 20, .Date = NoonValue};
  const HandRecord c{.Thumbnail = ThumbnailBytes(3), .Name = "c.jpg", .Length = 30, .Date = NoonValue};
  const std::string empty(14776, '\0');
  EXPECT_TRUE(drive.Read(Cache) == HandBytes(HandMade(1)) + empty + HandBytes(b) + empty + HandBytes(c));
  EXPECT_EQ(Read(Photo), 1);
  EXPECT_EQ(Read("C:\\Photos\\b.jpg"), 2);
  EXPECT_EQ(Read("C:\\Photos\\c.jpg"), 3);
}

TEST_F(QuickThumbsTest, AMarkChangesItsTwoBytesAndNothingElse) {
  HandRecord record = HandMade(5);
  record.Rest = std::string(207, 'r');
  const std::string before = std::string(14776, 'j') + HandBytes(record);
  drive.Write(Cache, before);
  quickThumbs.SetQuickThumbMark(Photo, "MARK");
  std::string marked = before;
  marked.replace(14776 + 14567, 2, "\xFF\xFF");
  EXPECT_TRUE(drive.Read(Cache) == marked);
  quickThumbs.SetQuickThumbMark(Photo, "");
  EXPECT_TRUE(drive.Read(Cache) == before);
}

TEST_F(QuickThumbsTest, AnyTextSetsTheMarkAndItIsReadBack) {
  Add(Photo, 1);
  bDragged = true;
  EXPECT_EQ(Read(Photo), 1);
  EXPECT_FALSE(bDragged);
  quickThumbs.SetQuickThumbMark(Photo, " ");
  EXPECT_EQ(Read(Photo), 1);
  EXPECT_TRUE(bDragged);
}

TEST_F(QuickThumbsTest, ALastRecordThatIsCutShortIsReadWithZerosForWhatIsMissing) {
  HandRecord record = HandMade(5);
  record.Mark = -1;
  drive.Write(Cache, HandBytes(record).substr(0, 14569));
  EXPECT_EQ(Read(Photo), 5);
  EXPECT_TRUE(bDragged);
  drive.Write(Cache, HandBytes(record).substr(0, 14567));
  EXPECT_EQ(Read(Photo), 5);
  EXPECT_FALSE(bDragged);
  drive.Write(Cache, HandBytes(record).substr(0, 14566));
  EXPECT_EQ(Read(Photo), -1);
}

TEST_F(QuickThumbsTest, BehindALastRecordThatIsCutShortTheNextOneIsNumberedAsAScanEnds) {
  drive.Write(Cache, std::string(14776 + 100, 'j'));
  Add(Photo, 5);
  const std::string bytes = drive.Read(Cache);
  ASSERT_EQ(bytes.size(), 3U * 14776);
  EXPECT_TRUE(bytes.substr(2 * 14776) == HandBytes(HandMade(5)));
  EXPECT_EQ(bytes.substr(14776, 14776), std::string(100, 'j') + std::string(14676, '\0'));
}

TEST_F(QuickThumbsTest, ALastRecordThatEndsAfterItsFieldsIsWhole) {
  drive.Write(Cache, std::string(14776 + 14569, 'j'));
  Add(Photo, 5);
  const std::string bytes = drive.Read(Cache);
  ASSERT_EQ(bytes.size(), 4U * 14776);
  EXPECT_TRUE(bytes.substr(3 * 14776) == HandBytes(HandMade(5)));
  drive.Write(Cache, std::string(14776 + 14568, 'j'));
  Add(Photo, 5);
  EXPECT_EQ(CacheSize(), 3U * 14776);
}

// --- what is the same photo ------------------------------------------------------------------------------------------

TEST_F(QuickThumbsTest, APhotoInTheCacheIsNotAddedAgain) {
  Add(Photo, 1);
  Add(Photo, 2);
  EXPECT_EQ(CacheSize(), 14776U);
  EXPECT_EQ(Read(Photo), 1);
}

TEST_F(QuickThumbsTest, ADateThatChangesByASecondMakesTheOldEntryDeadAndAddsANewOne) {
  Add(Photo, 1);
  drive.SetTime(Photo, {2004, 6, 15, 12, 0, 1, 0});
  EXPECT_EQ(Read(Photo), -1);
  Add(Photo, 2);
  EXPECT_EQ(Read(Photo), 2);
  EXPECT_EQ(CacheSize(), 3U * 14776);
  drive.SetTime(Photo, Noon);
  EXPECT_EQ(Read(Photo), 1);
}

TEST_F(QuickThumbsTest, AnotherLengthOrAnotherCaseOfTheNameIsAnotherPhoto) {
  Add(Photo, 1);
  WritePhoto(Photo, 1235);
  EXPECT_EQ(Read(Photo), -1);
  WritePhoto(Photo, 1234);
  EXPECT_EQ(Read("C:\\Photos\\img_1.jpg"), -1);
  EXPECT_EQ(Read(Photo), 1);
}

TEST_F(QuickThumbsTest, OfNamesLongerThan100OnlyTheFirst100Count) {
  const std::string start = "C:\\Photos\\" + std::string(100, 'n');
  WritePhoto(start + "1.jpg", 50);
  WritePhoto(start + "2.jpg", 50);
  WritePhoto(start + "3.jpg", 51);
  Add(start + "1.jpg", 6);
  EXPECT_EQ(Read(start + "2.jpg"), 6);
  EXPECT_EQ(Read(start + "3.jpg"), -1);
  EXPECT_EQ(drive.Read(Cache).substr(14455, 100), std::string(100, 'n'));
}

TEST_F(QuickThumbsTest, ALongNameIsCutBetweenCharacters) {
  std::string name = "x";
  for (int i = 0; i < 60; ++i) name += "é";
  WritePhoto("C:\\Photos\\" + name + ".jpg", 50);
  Add("C:\\Photos\\" + name + ".jpg", 6);
  EXPECT_EQ(drive.Read(Cache).substr(14455, 100), name.substr(0, 99) + " ");
  EXPECT_EQ(Read("C:\\Photos\\" + name + ".jpg"), 6);
}

TEST_F(QuickThumbsTest, OfTwoEntriesForOnePhotoTheFirstIsTaken) {
  drive.Write(Cache, HandBytes(HandMade(3)) + HandBytes(HandMade(4)));
  EXPECT_EQ(Read(Photo), 3);
  quickThumbs.SetQuickThumbMark(Photo, "MARK");
  HandRecord marked = HandMade(3);
  marked.Mark = -1;
  EXPECT_TRUE(drive.Read(Cache) == HandBytes(marked) + HandBytes(HandMade(4)));
}

TEST_F(QuickThumbsTest, AMarkSetWhileNoEntryExistsIsLost) {
  quickThumbs.SetQuickThumbMark(Photo, "MARK");
  EXPECT_EQ(CacheSize(), 0U);
  Add(Photo, 1);
  EXPECT_EQ(Read(Photo), 1);
  EXPECT_FALSE(bDragged);
}

// --- where the cache lies --------------------------------------------------------------------------------------------

TEST_F(QuickThumbsTest, ALookUpMakesAnEmptyCacheFile) {
  EXPECT_EQ(Read(Photo), -1);
  EXPECT_EQ(drive.Read(Cache), "");
}

TEST_F(QuickThumbsTest, TheCamerasCacheLiesInTheProgramsFolderAndEndsWithIt) {
  const QuickThumbs ofCamera = WithCameraAt("C:\\Photos");
  ofCamera.AddQuickThumb(Photo, Thumbnail(1), Stamp(Photo));
  EXPECT_FALSE(drive.Exists(Cache));
  EXPECT_TRUE(drive.Read(CameraCache) == HandBytes(HandMade(1)));
  EXPECT_EQ(Read(ofCamera, Photo), 1);
  ofCamera.DeleteQuickThumbs("C:\\Photos");
  EXPECT_FALSE(drive.Exists(CameraCache));
  EXPECT_EQ(Read(ofCamera, Photo), -1);
}

TEST_F(QuickThumbsTest, TheCamerasFolderIsComparedCaseIncluded) {
  WithCameraAt("C:\\photos").AddQuickThumb(Photo, Thumbnail(1), Stamp(Photo));
  EXPECT_TRUE(drive.Exists(Cache));
  EXPECT_FALSE(drive.Exists(CameraCache));
}

TEST_F(QuickThumbsTest, PhotosInADrivesRootHaveTheirCacheThere) {
  WritePhoto("C:\\a.jpg", 10);
  Add("C:\\a.jpg", 4);
  EXPECT_TRUE(drive.Exists("C:\\Thumbnails.tmp"));
  EXPECT_EQ(Read("C:\\a.jpg"), 4);
}

TEST_F(QuickThumbsTest, ARenamedFolderTakesItsCacheAlong) {
  Add(Photo, 1);
  files.Rename("C:\\Photos", "C:\\Summer");
  EXPECT_EQ(Read("C:\\Summer\\IMG_1.JPG"), 1);
}

TEST_F(QuickThumbsTest, DeletingTakesTheCacheFileAloneWithOrWithoutABackslash) {
  Add(Photo, 1);
  quickThumbs.DeleteQuickThumbs("C:\\Photos\\");
  EXPECT_FALSE(drive.Exists(Cache));
  EXPECT_TRUE(drive.Exists(Photo));
  Add(Photo, 2);
  EXPECT_EQ(Read(Photo), 2);
  quickThumbs.DeleteQuickThumbs("C:\\Photos");
  EXPECT_FALSE(drive.Exists(Cache));
  quickThumbs.DeleteQuickThumbs("C:\\Photos");
  quickThumbs.DeleteQuickThumbs("C:\\Nowhere");
}

TEST_F(QuickThumbsTest, ACacheFileInLettersOfAnotherCaseIsDeletedToo) {
  drive.Write("C:\\Photos\\THUMBNAILS.TMP", HandBytes(HandMade(3)));
  ASSERT_EQ(Read(Photo), 3);
  quickThumbs.DeleteQuickThumbs("C:\\Photos");
  EXPECT_FALSE(drive.Exists("C:\\Photos\\THUMBNAILS.TMP"));
  EXPECT_EQ(Read(Photo), -1);
}

TEST_F(QuickThumbsTest, AnEmptyPathTouchesNoFile) {
  drive.Write("C:\\Thumbnails.tmp", "mine");
  for (const std::string path : {"", "\\", "photo.jpg", "C:\\Photos\\missing.jpg"}) {
    EXPECT_EQ(Read(path), -1);
    Add(path, 1);
    quickThumbs.SetQuickThumbMark(path, "MARK");
  }
  quickThumbs.DeleteQuickThumbs("");
  quickThumbs.DeleteQuickThumbs("\\");
  EXPECT_EQ(drive.Read("C:\\Thumbnails.tmp"), "mine");
  EXPECT_FALSE(drive.Exists(Cache));
  EXPECT_EQ(files.Count(FileCall::OpenToWrite), 0);
}

// --- what cannot be cached -------------------------------------------------------------------------------------------

TEST_F(QuickThumbsTest, APictureOfAnotherSizeIsNotCachedAndItsFileStaysBehind) {
  quickThumbs.AddQuickThumb(Photo, Picture(PlainBitmap(81, 60, 0)), Stamp(Photo));
  EXPECT_EQ(CacheSize(), 0U);
  EXPECT_TRUE(drive.Exists(Temporary));
  Add(Photo, 1);
  EXPECT_EQ(Read(Photo), 1);
  EXPECT_FALSE(drive.Exists(Temporary));
}

TEST_F(QuickThumbsTest, NothingForAPictureIsNotCached) {
  quickThumbs.AddQuickThumb(Photo, Picture(), Stamp(Photo));
  EXPECT_EQ(CacheSize(), 0U);
}

TEST_F(QuickThumbsTest, APhotoOf2GiBIsNotCachedAndNothingIsWritten) {
  std::filesystem::resize_file(drive.HostPath(Photo), std::uintmax_t{1} << 31);
  Add(Photo, 1);
  EXPECT_EQ(Read(Photo), -1);
  EXPECT_FALSE(drive.Exists(Cache));
  std::filesystem::resize_file(drive.HostPath(Photo), (std::uintmax_t{1} << 31) - 1);
  drive.SetTime(Photo, Noon);
  Add(Photo, 1);
  EXPECT_EQ(Read(Photo), 1);
  EXPECT_EQ(drive.Read(Cache).substr(14555, 4), "\xFF\xFF\xFF\x7F");
}

TEST_F(QuickThumbsTest, ACacheFileOf2GiBIsAMissAndDoesNotGrow) {
  drive.Write(Cache, HandBytes(HandMade(1)));
  const std::uintmax_t size = std::uintmax_t{1} << 31;
  std::filesystem::resize_file(drive.HostPath(Cache), size);
  Add(Photo, 1);
  EXPECT_EQ(Read(Photo), -1);
  EXPECT_EQ(std::filesystem::file_size(drive.HostPath(Cache)), size);
}

TEST_F(QuickThumbsTest, AReadOnlyFolderIsAMissWithoutAMessage) {
  files.FailAlways(FileCall::OpenToWrite, error::PathAccess, "Thumbnails.tmp");
  Add(Photo, 1);
  EXPECT_EQ(Read(Photo), -1);
  quickThumbs.SetQuickThumbMark(Photo, "MARK");
  EXPECT_FALSE(drive.Exists(Cache));
}

TEST_F(QuickThumbsTest, ACacheThatMayOnlyBeReadIsRead) {
  HandRecord record = HandMade(7);
  record.Mark = -1;
  drive.Write(Cache, HandBytes(record));
  files.FailAlways(FileCall::OpenToWrite, error::PathAccess, "Thumbnails.tmp");
  EXPECT_TRUE(quickThumbs.HasQuickThumb(Photo));
  EXPECT_EQ(Read(Photo), 7);
  EXPECT_TRUE(bDragged);
  quickThumbs.SetQuickThumbMark(Photo, "");
  EXPECT_TRUE(drive.Read(Cache) == HandBytes(record));
}

TEST_F(QuickThumbsTest, OnlyAThumbnailsOwnBitmapIsTakenFromARecord) {
  // The byte that is changed: the file's kind and length, where its pixels are, the kind of header, width, height,
  // depth, compression.
  for (const std::size_t at : {0U, 1U, 3U, 10U, 14U, 17U, 18U, 22U, 28U, 30U}) {
    HandRecord record = HandMade(7);
    record.Thumbnail[at] = static_cast<char>(record.Thumbnail[at] ^ 1);
    drive.Write(Cache, HandBytes(record));
    EXPECT_FALSE(quickThumbs.HasQuickThumb(Photo)) << at;
    EXPECT_EQ(Read(Photo), -1) << at;
  }
  HandRecord record = HandMade(7);
  record.Thumbnail = GifPhoto(80, 60).substr(0, 14000);
  drive.Write(Cache, HandBytes(record));
  EXPECT_FALSE(quickThumbs.HasQuickThumb(Photo));
  EXPECT_EQ(Read(Photo), -1);
}

TEST_F(QuickThumbsTest, AFullDiskWritesNoEntryAndTheNextTryFindsTheTruth) {
  files.FillDiskAfter(300);
  Add(Photo, 1);
  EXPECT_EQ(Read(Photo), -1);
  files.Heal();
  Add(Photo, 2);
  EXPECT_EQ(Read(Photo), 2);
}

TEST_F(QuickThumbsTest, ADamagedThumbnailIsAMissAndLeavesTheTargetAsItWas) {
  HandRecord record = HandMade(1);
  record.Thumbnail.replace(0, 2, "XX");
  drive.Write(Cache, HandBytes(record));
  target.SetPicture(Thumbnail(77));
  bDragged = true;
  EXPECT_FALSE(quickThumbs.ReadQuickThumb(Photo, target, bDragged));
  EXPECT_EQ(target.GetPicture().Pixels().Row(0)[2], 77);
  EXPECT_TRUE(bDragged);
}

TEST_F(QuickThumbsTest, ALinkOrAFolderOfTheCachesNameIsNotTouched) {
  drive.Write("C:\\else.tmp", HandBytes(HandMade(1)));
  drive.MakeLink(Cache, drive.HostPath("C:\\else.tmp"));
  EXPECT_EQ(Read(Photo), -1);
  quickThumbs.SetQuickThumbMark(Photo, "MARK");
  Add(Photo, 2);
  EXPECT_TRUE(drive.Read("C:\\else.tmp") == HandBytes(HandMade(1)));
  drive.Remove(Cache);
  drive.MakeFolder(Cache);
  EXPECT_EQ(Read(Photo), -1);
  quickThumbs.DeleteQuickThumbs("C:\\Photos");
  EXPECT_TRUE(drive.Exists(Cache));
}

// --- the index -------------------------------------------------------------------------------------------------------

TEST_F(QuickThumbsTest, AFileChangedByAnotherHandIsReadAnew) {
  EXPECT_EQ(Read(Photo), -1);
  drive.Write(Cache, HandBytes(HandMade(3)));
  EXPECT_EQ(Read(Photo), 3);
  HandRecord other = HandMade(4);
  other.Name = "other.jpg";
  drive.Write(Cache, HandBytes(other));
  EXPECT_EQ(Read(Photo), -1);
  drive.Write(Cache, HandBytes(HandMade(5)));
  drive.SetTime(Cache, {2003, 1, 1, 0, 0, 0, 0});
  EXPECT_EQ(Read(Photo), 5);
}

TEST_F(QuickThumbsTest, AFileReplacedWithinTheSameMomentIsNotTakenForTheOldOne) {
  drive.Write(Cache, HandBytes(HandMade(3)) + HandBytes(HandMade(4)));
  drive.SetTime(Cache, Noon);
  EXPECT_EQ(Read(Photo), 3);
  HandRecord other = HandMade(9);
  other.Name = "other.jpg";
  drive.Write(Cache, HandBytes(other) + HandBytes(HandMade(4)));
  drive.SetTime(Cache, Noon);
  EXPECT_EQ(Read(Photo), 4);
}

TEST_F(QuickThumbsTest, ALookUpReadsOneRecordHoweverManyThereAre) {
  WriteLargeCache();
  WritePhoto("C:\\Photos\\IMG_399.JPG", 1234);
  EXPECT_EQ(Read("C:\\Photos\\IMG_399.JPG"), 399);
  const int before = files.Count(FileCall::Read);
  EXPECT_EQ(Read(Photo), 1);
  quickThumbs.SetQuickThumbMark("C:\\Photos\\IMG_399.JPG", "MARK");
  EXPECT_EQ(Read("C:\\Photos\\IMG_399.JPG"), 399);
  EXPECT_TRUE(bDragged);
  EXPECT_LE(files.Count(FileCall::Read) - before, 12);
}

TEST_F(QuickThumbsTest, NewPhotosAreAddedWithoutReadingTheOldOnesAnew) {
  WriteLargeCache();
  EXPECT_EQ(Read(Photo), 1);
  const int before = files.Count(FileCall::Read);
  for (int i = 1; i <= 5; ++i) {
    const std::string path = "C:\\Photos\\new" + std::to_string(i) + ".jpg";
    WritePhoto(path, 10);
    EXPECT_EQ(Read(path), -1);
    Add(path, i);
    EXPECT_EQ(Read(path), i);
  }
  EXPECT_LE(files.Count(FileCall::Read) - before, 30);
}

TEST_F(QuickThumbsTest, MoreFoldersThanAreRememberedAreAllFound) {
  for (int round = 0; round < 2; ++round) {
    for (int i = 1; i <= 30; ++i) {
      const std::string path = "C:\\F" + std::to_string(i) + "\\a.jpg";
      if (round == 0) {
        WritePhoto(path, 10);
        Add(path, i);
      }
      EXPECT_EQ(Read(path), i);
    }
  }
}

TEST_F(QuickThumbsTest, TwoProgramsOnOneFolderSeeEachOthersEntries) {
  QuickThumbsIndex ofSecond;
  const QuickThumbs second(files, drive.DrivePlaces(), pictures, ofSecond, "");
  WritePhoto("C:\\Photos\\b.jpg", 20);
  Add(Photo, 1);
  EXPECT_EQ(Read("C:\\Photos\\b.jpg"), -1);
  second.AddQuickThumb("C:\\Photos\\b.jpg", Thumbnail(2), Stamp("C:\\Photos\\b.jpg"));
  EXPECT_EQ(Read("C:\\Photos\\b.jpg"), 2);
  EXPECT_EQ(CacheSize(), 3U * 14776);
}

}  // namespace
}  // namespace pixorra
