// A card that was sorted while it could be written, and is locked now: its thumbnails and marks show.
#include <gtest/gtest.h>

#include "pictures/QuickThumbs.h"
#include "tests/pictures/HandRecord.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr const char* Card = "C:\\Card";

class LockedCardTest : public ProgramTest {
 protected:
  void WritePhotos() {
    drive.Write("C:\\Card\\a.bmp", BmpOf(PlainBitmap(80, 60, 0x00102030)));
    drive.Write("C:\\Card\\b.bmp", BmpOf(PlainBitmap(80, 60, 0x00302010)));
    WriteSavedState(StateLines(Card, {}));
  }
  // The first photo is marked by hand.
  void SortWhileItCanBeWritten() {
    ProgramRun& run = Started();
    run.LoadAll();
    run.person.DoubleClick(run.main.strip.SrcBackground(1));
    run.Close();
    EndRun();
  }
  // No photo can be decoded: what shows comes from the card's own cache.
  void ExpectThumbnailsAndTheMark() {
    ProgramRun& run = NewRun();
    run.files.FailAlways(FileCall::Read, error::DeviceIO, ".bmp");
    run.Start();
    run.LoadAll();
    const FilmStripState& strip = run.main.strip;
    ASSERT_EQ(strip.SrcSlotCount, 2);
    for (int i = 1; i <= 2; ++i) {
      EXPECT_TRUE(QuickThumbsOf(run.main).HasQuickThumb(strip.SrcThumbnail(i).Tag())) << i;
      EXPECT_FALSE(strip.SrcThumbnail(i).GetPicture() == run.main.pictures.InvalidPicture) << i;
    }
    EXPECT_EQ(strip.SrcThumbName(1).Tag(), "MARK");
    EXPECT_EQ(strip.SrcThumbName(2).Tag(), "");
  }
};

TEST_F(LockedCardTest, ACardThatWasSortedShowsItsThumbnailsAndMarksWhenItIsLocked) {
  drive.MakeFolder(Card);
  MemoryDisk card(drive.HostPath(Card), "size=512k");
  if (!card.Mounted()) GTEST_SKIP() << "this user may not mount";
  WritePhotos();
  SortWhileItCanBeWritten();
  const std::string cache = drive.Read("C:\\Card\\Thumbnails.tmp");
  ASSERT_TRUE(card.MakeReadOnly());
  ExpectThumbnailsAndTheMark();
  EndRun();
  EXPECT_TRUE(drive.Read("C:\\Card\\Thumbnails.tmp") == cache);
}

TEST_F(LockedCardTest, PhotosThatAreReadOnlyKeepThumbnailsAndMarksAndTakeNewMarks) {
  WritePhotos();
  SortWhileItCanBeWritten();
  const std::size_t cacheSize = drive.Read("C:\\Card\\Thumbnails.tmp").size();
  drive.SetMode("C:\\Card\\a.bmp", 0444);
  drive.SetMode("C:\\Card\\b.bmp", 0444);
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  ExpectThumbnailsAndTheMark();
  ProgramRun& second = Started();
  second.LoadAll();
  second.person.DoubleClick(second.main.strip.SrcBackground(1));
  second.person.DoubleClick(second.main.strip.SrcBackground(2));
  second.Close();
  ProgramRun& third = Started();
  third.LoadAll();
  const FilmStripState& strip = third.main.strip;
  EXPECT_EQ(strip.SrcThumbName(1).Tag(), "");
  EXPECT_EQ(strip.SrcThumbName(2).Tag(), "MARK");
  EXPECT_EQ(drive.Read("C:\\Card\\Thumbnails.tmp").size(), cacheSize) << "there is one record for each photo";
  EndRun();
}

// One photo's record, and whether it is found.
class LockedPhotoTest : public LockedCardTest {
 protected:
  LockedPhotoTest() {
    drive.Write(Photo, std::string(1234, 'p'));
    drive.SetTime(Photo, {2004, 6, 15, 12, 0, 0, 0});
    drive.MakeFolder("C:\\Program");
  }

  static std::string Bitmap(int number) { return BmpOf(PlainBitmap(80, 60, static_cast<Colour>(number))); }
  void Add(int number) {
    const FileStamp stamp = drive.DriveFiles().Open(Photo, OpenMode::Read)->Stamp();
    cache.AddQuickThumb(Photo, Picture(PlainBitmap(80, 60, static_cast<Colour>(number))), stamp);
  }
  void Lock() { run.files.FailAlways(FileCall::LastWriteTime, error::PathAccess); }
  // Whether the cache holds the photo's thumbnail; both ways to ask agree. The mark is in bDragged.
  bool Found() {
    const bool found = cache.ReadQuickThumb(Photo, target, bDragged);
    EXPECT_EQ(cache.HasQuickThumb(Photo), found);
    return found;
  }

  static constexpr const char* Photo = "C:\\Card\\IMG_1.JPG";
  ProgramRun& run = NewRun();
  QuickThumbs cache = QuickThumbsOf(run.main);
  ImageBox& target = run.main.strip.SrcThumbnail.Load(1);
  HandRecord record{.Thumbnail = Bitmap(7), .Name = "IMG_1.JPG", .Length = 1234, .Date = 38153.5};
  bool bDragged = false;
};

TEST_F(LockedPhotoTest, APhotoThatCannotBeWrittenAnyMoreIsFoundByTheDateThatItHad) {
  Add(7);
  cache.SetQuickThumbMark(Photo, "MARK");
  Lock();
  EXPECT_TRUE(Found());
  EXPECT_TRUE(bDragged);
  cache.SetQuickThumbMark(Photo, "");
  Add(8);
  EXPECT_TRUE(drive.Read("C:\\Card\\Thumbnails.tmp") == HandBytes(record)) << "one record, its mark cleared";
  drive.SetTime(Photo, {2004, 6, 15, 12, 0, 1, 0});
  EXPECT_FALSE(Found()) << "it is another photo";
}

TEST_F(LockedPhotoTest, APhotoThatCouldNeverBeWrittenIsFoundByTheDateOfSuch) {
  Lock();
  Add(7);
  record.Date = -109205;  // 1 January 1601
  EXPECT_TRUE(drive.Read("C:\\Card\\Thumbnails.tmp") == HandBytes(record));
  EXPECT_TRUE(Found());
}

}  // namespace
}  // namespace pixorra
