// The thumbnail and the mark of a photo that has been renamed in its folder.
#include "base/QuickThumbsIndex.h"
#include "pictures/QuickThumbs.h"
#include "platform/runtime/Errors.h"
#include "tests/pictures/HandRecord.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/HeadlessTest.h"
#include "tests/support/headless/TestHost.h"

namespace pixorra {
namespace {

constexpr CalendarTime Morning{2004, 3, 1, 8, 30, 0, 0};

class RenamedThumbsTest : public HeadlessTest {
 protected:
  RenamedThumbsTest() {
    drive.MakeFolder("C:\\Program");
    target.SetStretch(true);
  }
  static std::string Named(const std::string& name) { return "C:\\Photos\\" + name; }
  void Write(const std::string& name, std::size_t bytes = 1234) {
    drive.Write(Named(name), std::string(bytes, 'p'));
    drive.SetTime(Named(name), Morning);
  }
  void Add(const std::string& name, int number) {
    const FileStamp stamp = drive.DriveFiles().Open(Named(name), OpenMode::Read)->Stamp();
    quickThumbs.AddQuickThumb(Named(name), Picture(PlainBitmap(80, 60, static_cast<Colour>(number))), stamp);
  }
  void Mark(const std::string& name) { quickThumbs.SetQuickThumbMark(Named(name), "MARK"); }
  void Rename(const std::string& from, const std::string& to) {
    drive.DriveFiles().Rename(Named(from), Named(to));
    quickThumbs.RenameQuickThumb(Named(from), Named(to));
  }
  // The number of the thumbnail that the cache holds, -1 on a miss. The mark is in bDragged.
  int Read(const std::string& name) {
    target.SetPicture(Picture());
    bDragged = false;
    if (!quickThumbs.ReadQuickThumb(Named(name), target, bDragged)) return -1;
    const std::uint8_t* pixel = target.GetPicture().Pixels().Row(30);
    return pixel[0] << 16 | pixel[1] << 8 | pixel[2];
  }
  std::string CacheBytes() { return drive.Read(Named("Thumbnails.tmp")); }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  CodecPictures pictures{files};
  QuickThumbsIndex index;
  QuickThumbs quickThumbs{files, drive.DrivePlaces(), pictures, index, ""};
  Form window{toolkit, "Window"};
  ImageBox target{window, "Target"};
  bool bDragged = false;
};

TEST_F(RenamedThumbsTest, ItsRecordHasTheNewNameAndIsOtherwiseAsItWas) {
  Write("a.jpg");
  Write("b.jpg", 20);
  Add("a.jpg", 1);
  Add("b.jpg", 2);
  Mark("a.jpg");
  std::string expected = CacheBytes();
  Rename("a.jpg", "summer.jpg");
  expected.replace(14455, 10, "summer.jpg");
  EXPECT_TRUE(CacheBytes() == expected);
  EXPECT_EQ(Read("summer.jpg"), 1);
  EXPECT_TRUE(bDragged);
  EXPECT_EQ(Read("b.jpg"), 2);
  EXPECT_FALSE(bDragged);
}

TEST_F(RenamedThumbsTest, AnUnmarkedPhotoDoesNotTakeOverTheMarkOfOneThatWasCalledSoBefore) {
  for (const bool former : {true, false}) {
    drive.MakeFolder("C:\\Photos");
    drive.Remove("C:\\Photos");
    // The record of the one that was called so is ahead of the photo's own, or after it.
    for (const bool turn : {true, false}) {
      Write(turn == former ? "b.jpg" : "a.jpg");
      Add(turn == former ? "b.jpg" : "a.jpg", turn == former ? 2 : 1);
    }
    Mark("b.jpg");
    drive.Remove(Named("b.jpg"));
    Rename("a.jpg", "b.jpg");
    EXPECT_EQ(Read("b.jpg"), 1);
    EXPECT_FALSE(bDragged);
  }
}

TEST_F(RenamedThumbsTest, AMarkMovesToARecordThatTheNewNameHasAlready) {
  Write("b.jpg");
  Add("b.jpg", 2);
  Write("a.jpg");
  Add("a.jpg", 1);
  Mark("a.jpg");
  drive.Remove(Named("b.jpg"));
  Rename("a.jpg", "b.jpg");
  EXPECT_EQ(Read("b.jpg"), 1);
  EXPECT_TRUE(bDragged);
}

TEST_F(RenamedThumbsTest, ItIsFoundAtOnceAlsoWhereTheDisksClockStandsStill) {
  Write("a.jpg");
  Add("a.jpg", 1);
  drive.SetTime(Named("Thumbnails.tmp"), Morning);
  EXPECT_EQ(Read("a.jpg"), 1);
  drive.DriveFiles().Rename(Named("a.jpg"), Named("b.jpg"));
  quickThumbs.RenameQuickThumb(Named("a.jpg"), Named("b.jpg"));
  drive.SetTime(Named("Thumbnails.tmp"), Morning);
  EXPECT_EQ(Read("b.jpg"), 1);
}

TEST_F(RenamedThumbsTest, ThereAndBackAgainThePhotoHasItsOwn) {
  Write("a.jpg");
  Add("a.jpg", 1);
  Mark("a.jpg");
  Rename("a.jpg", "b.jpg");
  Rename("b.jpg", "a.jpg");
  EXPECT_EQ(Read("a.jpg"), 1);
  EXPECT_TRUE(bDragged);
  EXPECT_EQ(CacheBytes().size(), 14776U);
}

TEST_F(RenamedThumbsTest, APhotoWithoutAThumbnailGetsNone) {
  Write("a.jpg");
  Write("other.jpg");
  Add("other.jpg", 1);
  const std::string before = CacheBytes();
  Rename("a.jpg", "b.jpg");
  EXPECT_TRUE(CacheBytes() == before);
  EXPECT_EQ(Read("b.jpg"), -1);
}

TEST_F(RenamedThumbsTest, AShorterNameLeavesNothingOfTheLongOne) {
  Write("a long name.jpg");
  Add("a long name.jpg", 1);
  Rename("a long name.jpg", "b.jpg");
  EXPECT_EQ(CacheBytes().substr(14455, 100), "b.jpg" + std::string(95, ' '));
  EXPECT_EQ(Read("b.jpg"), 1);
}

TEST_F(RenamedThumbsTest, ACacheThatCannotBeWrittenRaisesNothing) {
  Write("a.jpg");
  Add("a.jpg", 1);
  files.FailAlways(FileCall::Write, error::DiskFull);
  EXPECT_EQ(ErrorsIgnored([&] { Rename("a.jpg", "b.jpg"); }), error::None);
  EXPECT_TRUE(drive.Exists(Named("b.jpg")));
}

}  // namespace
}  // namespace pixorra
