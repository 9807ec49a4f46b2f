// Photos decoded whole ahead of their turn: what they serve, that it is the same, and what is let go.
#include <algorithm>
#include <future>
#include <gtest/gtest.h>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/WholeAhead.h"
#include "platform/pixels/Stretch.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr PixelSize Half{160, 120};

std::vector<PixelSize> HalfOnly(int, int) {
  return {Half};
}

bool SamePixels(const Bitmap& a, const Bitmap& b) {
  if (a.Width() != b.Width() || a.Height() != b.Height() || a.Format() != b.Format()) return false;
  const auto length = static_cast<std::size_t>(a.Width()) * static_cast<std::size_t>(a.BytesPerPixel());
  for (int y = 0; y < a.Height(); ++y) {
    if (!std::equal(a.Row(y), a.Row(y) + length, b.Row(y))) return false;
  }
  return true;
}

Bitmap Painted(const Picture& picture, PixelSize size) {
  Bitmap target(size.Width, size.Height, PixelFormat::Bgr24);
  Stretch(picture, target, 0, 0, size.Width, size.Height);
  return target;
}

class WholeAheadTest : public ::testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& bytes) {
    drive.Write("C:\\" + name, bytes);
    return "C:\\" + name;
  }
  void Prepare(const std::vector<std::string>& paths) {
    ahead.Expect(paths, HalfOnly);
    ahead.Settle();
  }
  FileStamp StampOf(const std::string& path) { return files.Open(path, OpenMode::Read)->Stamp(); }
  Picture Take(const std::string& path) { return ahead.Take(StampOf(path)); }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  WholeAhead ahead{files};
};

TEST_F(WholeAheadTest, NoThreadStartsBeforeAPhotoIsExpected) {
  EXPECT_FALSE(ahead.IsReady("C:\\a.jpg"));
  ahead.Expect({}, HalfOnly);
  ahead.Expect({"C:\\none.jpg"}, HalfOnly);
  EXPECT_EQ(ahead.ThreadsStarted(), 0u);
  Prepare({Write("a.jpg", JpegPhoto(320, 240))});
  EXPECT_GE(ahead.ThreadsStarted(), 1u);
}

TEST_F(WholeAheadTest, APreparedPhotoPaintsAsItsDecodeDoesToTheLastByte) {
  for (const JpegFile& file : {JpegFile{}, JpegFile{.channels = 1}, JpegFile{.channels = 4},
                               JpegFile{.progressive = true}, JpegFile{.exif = true, .exifOrientation = 6}}) {
    const std::string path = Write("a.jpg", JpegPhoto(320, 241, file));
    const Picture plain = CodecPictures(files).Load(path);
    Prepare({});
    Prepare({path});
    EXPECT_TRUE(ahead.IsReady(path));
    const Picture prepared = Take(path);
    ASSERT_FALSE(prepared.IsNothing());
    EXPECT_EQ(prepared.Width(), plain.Width());
    EXPECT_EQ(prepared.Height(), plain.Height());
    ASSERT_NE(prepared.Reduction(Half.Width, Half.Height), nullptr);
    EXPECT_TRUE(SamePixels(Painted(prepared, Half), Painted(plain, Half)));
    EXPECT_TRUE(SamePixels(Painted(prepared, {97, 60}), Painted(plain, {97, 60}))) << "in a size not thought of";
    EXPECT_TRUE(SamePixels(prepared.Pixels(), plain.Pixels()));
  }
}

TEST_F(WholeAheadTest, PicturesAreLoadedByItWithoutReadingTheFileAgain) {
  DecodeAhead whole(files);
  CodecPictures pictures(files, &whole);
  const std::string path = Write("a.jpg", JpegPhoto(320, 240));
  whole.ExpectWhole({path}, HalfOnly);
  whole.Whole().Settle();
  const int reads = files.Count(FileCall::Read);
  EXPECT_NE(pictures.Load(path).Reduction(Half.Width, Half.Height), nullptr);
  EXPECT_EQ(files.Count(FileCall::Read), reads);
}

TEST_F(WholeAheadTest, APhotoThatHasBeenReplacedOrWrittenToServesNothing) {
  const std::string path = Write("a.jpg", JpegPhoto(320, 240));
  Prepare({path});
  drive.Write("C:\\new.jpg", JpegOf(PlainBitmap(320, 240, 0)));
  files.RenameOver("C:\\new.jpg", path);
  EXPECT_TRUE(Take(path).IsNothing());
  EXPECT_FALSE(ahead.IsReady(path));

  Prepare({});
  Prepare({path});
  ASSERT_TRUE(ahead.IsReady(path));
  // In its place, and of the same length.
  std::string bytes = drive.Read(path);
  bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
  drive.Write(path, bytes);
  drive.SetTime(path, {2001, 2, 3, 4, 5, 6});
  EXPECT_TRUE(Take(path).IsNothing());
  EXPECT_FALSE(ahead.IsReady(path));
}

TEST_F(WholeAheadTest, AnOutdatedPhotoIsPreparedAnewOnceItHasBeenAskedAbout) {
  const std::string path = Write("a.jpg", JpegPhoto(320, 240));
  Prepare({path});
  drive.Write("C:\\new.jpg", JpegOf(PlainBitmap(320, 240, 0)));
  files.RenameOver("C:\\new.jpg", path);
  EXPECT_FALSE(ahead.IsReady(path));
  Prepare({path});
  EXPECT_TRUE(ahead.IsReady(path));
}

TEST_F(WholeAheadTest, APhotoThatIsWrittenToWhileItIsReadServesNothing) {
  const std::string path = Write("a.jpg", JpegPhoto(320, 240));
  files.BeforeNth(
      FileCall::Read, 2,
      [&] {
        drive.SetTime(path, {2001, 2, 3, 4, 5, 6});
      },
      "a.jpg");
  Prepare({path});
  EXPECT_TRUE(Take(path).IsNothing());
}

TEST_F(WholeAheadTest, ARenamedPhotoIsStillTheSameOne) {
  const std::string path = Write("a.jpg", JpegPhoto(320, 240));
  Prepare({path});
  files.Rename(path, "C:\\b.jpg");
  EXPECT_FALSE(Take("C:\\b.jpg").IsNothing());
  EXPECT_FALSE(ahead.IsReady(path)) << "nothing is there any more";
}

TEST_F(WholeAheadTest, WhatCannotBePreparedServesNothing) {
  const std::string whole = JpegPhoto(320, 240);
  std::string headless = whole;
  headless.replace(2, 200, 200, 'x');
  std::vector<std::string> paths = {"C:\\none.jpg", "C:\\", Write("a.jpg", headless), Write("b.gif", GifPhoto(40, 30)),
                                    Write("c.jpg", "")};
  Prepare(paths);
  for (std::size_t i = 0; i < paths.size(); ++i) EXPECT_FALSE(ahead.IsReady(paths[i])) << i;
  for (std::size_t i = 2; i < paths.size(); ++i) EXPECT_TRUE(Take(paths[i]).IsNothing()) << i;
}

TEST_F(WholeAheadTest, WhatIsNoLongerExpectedIsLetGoAndWhatIsExpectedStillIsNotMadeAgain) {
  const std::string a = Write("a.jpg", JpegPhoto(320, 240)), b = Write("b.jpg", JpegPhoto(320, 240));
  Prepare({a, b});
  const int opened = files.Count(FileCall::OpenToRead);
  ahead.Expect({b}, HalfOnly);
  EXPECT_EQ(files.Count(FileCall::OpenToRead), opened);
  EXPECT_FALSE(ahead.IsReady(a));
  EXPECT_TRUE(ahead.IsReady(b));
  ahead.Expect({}, {});
  EXPECT_TRUE(Take(b).IsNothing());
}

TEST_F(WholeAheadTest, OtherSizesThanThosePreparedArePreparedAnew) {
  const std::string path = Write("a.jpg", JpegPhoto(320, 240));
  Prepare({path});
  ahead.Expect({path}, [](int, int) { return std::vector<PixelSize>{{80, 60}}; });
  ahead.Settle();
  EXPECT_NE(Take(path).Reduction(80, 60), nullptr);
}

// The reading of a photo is held up until it may go on.
struct HeldUp {
  HeldUp(FaultyFiles& files, const std::string& name, int read) {
    files.BeforeNth(
        FileCall::Read, read,
        [this] {
          begun.set_value();
          goOn.get_future().wait();
        },
        name);
  }
  std::promise<void> begun;
  std::promise<void> goOn;
};

TEST_F(WholeAheadTest, APhotoThatIsWantedBeforeItsDecodeHasBegunIsLeftToWhoWantsItAndExpectedAnewLater) {
  const std::string path = Write("a.jpg", JpegPhoto(320, 240));
  HeldUp reading(files, "a.jpg", 2);
  ahead.Expect({path}, HalfOnly);
  reading.begun.get_future().wait();
  EXPECT_TRUE(Take(path).IsNothing());
  reading.goOn.set_value();
  ahead.Settle();
  EXPECT_FALSE(ahead.IsReady(path));
  Prepare({path});
  EXPECT_TRUE(ahead.IsReady(path));
}

TEST_F(WholeAheadTest, AFileIsReadInPartsAndNoFurtherOnceThePhotoIsNoLongerExpected) {
  std::string longFile = JpegPhoto(320, 240);
  longFile.resize(std::size_t{4} * 1024 * 1024, 'x');
  const std::string path = Write("a.jpg", longFile);
  HeldUp secondPart(files, "a.jpg", 3);
  ahead.Expect({path}, HalfOnly);
  const bool inParts = secondPart.begun.get_future().wait_for(std::chrono::seconds(10)) == std::future_status::ready;
  ahead.Expect({}, HalfOnly);
  secondPart.goOn.set_value();
  ahead.Settle();
  EXPECT_TRUE(inParts);
  EXPECT_EQ(files.Count(FileCall::Read), 3) << "the start, and two parts";
  Prepare({path});
  EXPECT_TRUE(ahead.IsReady(path));
}

TEST_F(WholeAheadTest, APictureIsKeptForTheNextToAskWhilePhotosAreExpected) {
  DecodeAhead whole(files);
  CodecPictures pictures(files, &whole);
  const std::string path = Write("a.jpg", JpegPhoto(320, 240)), other = Write("b.jpg", JpegPhoto(320, 240));
  EXPECT_FALSE(pictures.Load(path) == pictures.Load(path)) << "nobody looks through photos";
  whole.ExpectWhole({other}, HalfOnly);
  const Picture first = pictures.Load(path);
  EXPECT_TRUE(pictures.Load(path) == first);
  EXPECT_TRUE(whole.IsWholeReady(path));
  drive.SetTime(path, {2001, 2, 3, 4, 5, 6});
  EXPECT_FALSE(whole.IsWholeReady(path)) << "it may have been written to";
  EXPECT_FALSE(pictures.Load(path) == first);
  whole.ExpectWhole({other}, HalfOnly);
  EXPECT_FALSE(whole.IsWholeReady(path));
}

// Each photo of 320 by 240 takes some 360 KB while it is decoded, and some 70 KB afterwards.
class LittleRoom : public WholeAheadTest {
 protected:
  std::vector<std::string> Photos(int count) {
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) paths.push_back(Write(std::to_string(i) + ".jpg", JpegPhoto(320, 240)));
    return paths;
  }
  long ReadyCount(const std::vector<std::string>& paths) {
    return std::ranges::count_if(paths, [&](const auto& path) { return little.IsReady(path); });
  }
  static constexpr std::int64_t Room = 600 * 1024;
  WholeAhead little{files, Room};
};

TEST_F(LittleRoom, NoMoreIsHeldThanThereIsRoomForAndThePhotosWantedFirstHaveIt) {
  const std::vector<std::string> paths = Photos(10);
  little.Expect(paths, HalfOnly);
  little.Settle();
  EXPECT_LE(little.MostHeld(), Room);
  EXPECT_TRUE(little.IsReady(paths[0]));
  EXPECT_TRUE(little.IsReady(paths[1]));
  EXPECT_LT(ReadyCount(paths), 10);
}

TEST_F(LittleRoom, WhatIsWantedMoreTakesTheRoomOfWhatIsWantedLess) {
  std::vector<std::string> paths = Photos(6);
  const std::vector<std::string> before(paths.begin(), paths.begin() + 3);
  little.Expect(before, HalfOnly);
  little.Settle();
  ASSERT_TRUE(little.IsReady(paths[2]));
  little.Expect({paths[4], paths[5], paths[3], paths[0], paths[1], paths[2]}, HalfOnly);
  little.Settle();
  EXPECT_TRUE(little.IsReady(paths[4]));
  EXPECT_TRUE(little.IsReady(paths[5]));
  EXPECT_FALSE(little.IsReady(paths[2]));
  EXPECT_LE(little.MostHeld(), Room);
  little.Expect(before, HalfOnly);
  little.Settle();
  EXPECT_TRUE(little.IsReady(paths[2])) << "it is prepared anew when there is room";
}

TEST_F(LittleRoom, APhotoThatNeverFitsIsLeftAlone) {
  const std::string large = Write("large.jpg", JpegPhoto(640, 480)), small = Write("small.jpg", JpegPhoto(320, 240));
  little.Expect({large, small}, HalfOnly);
  little.Settle();
  EXPECT_FALSE(little.IsReady(large));
  EXPECT_TRUE(little.IsReady(small));
}

TEST_F(LittleRoom, ThePhotoWantedMostIsReadyThoughItDoesNotFitBesideTheOthersFiles) {
  std::string longFile = JpegPhoto(320, 240);
  longFile.resize(Room / 4, 'x');  // what follows the picture is no matter
  for (int round = 0; round < 20; ++round) {
    std::vector<std::string> paths;
    for (int i = 0; i < 6; ++i) paths.push_back(Write(std::to_string(i) + ".jpg", longFile));
    WholeAhead own(files, Room);
    own.Expect(paths, HalfOnly);
    own.Settle();
    EXPECT_TRUE(own.IsReady(paths[0])) << round;
    EXPECT_LE(own.MostHeld(), Room);
  }
}

TEST_F(LittleRoom, WhatFoundNoRoomIsTriedAgainOnlyOnceSomethingHasBeenLetGo) {
  std::vector<std::string> paths = Photos(8);
  const auto opensOfARound = [&] {
    const int before = files.Count(FileCall::OpenToRead);
    little.Expect(paths, HalfOnly);
    little.Settle();
    return files.Count(FileCall::OpenToRead) - before;
  };
  EXPECT_EQ(opensOfARound(), 8);
  // One that was ready first may have given way to one that is wanted more, and is tried again.
  int rounds = 0;
  while (opensOfARound() > 0 && rounds < 8) ++rounds;
  ASSERT_LT(rounds, 8);
  const auto ready = ReadyCount(paths);
  ASSERT_LT(ready, 8);
  EXPECT_EQ(opensOfARound(), 0);
  paths.erase(paths.begin());
  EXPECT_GT(opensOfARound(), 0);
  while (opensOfARound() > 0 && rounds < 16) ++rounds;
  EXPECT_EQ(ReadyCount(paths), ready) << "one more in the place of the one that has gone";
}

TEST_F(LittleRoom, APictureThatIsKeptCountsToo) {
  const std::vector<std::string> paths = Photos(3);
  little.Expect(paths, HalfOnly);
  little.Settle();
  Bitmap bitmap(300, 300, PixelFormat::Bgr24);
  bitmap.Fill(0);
  little.Keep({.Number = 1}, Picture(std::move(bitmap)));
  EXPECT_FALSE(little.Take({.Number = 1}).IsNothing());
  EXPECT_LE(little.MostHeld(), Room);
  Bitmap larger(600, 600, PixelFormat::Bgr24);
  larger.Fill(0);
  little.Keep({.Number = 2}, Picture(std::move(larger)));
  EXPECT_TRUE(little.Take({.Number = 2}).IsNothing());
}

// As from a disk that no longer answers.
TEST_F(WholeAheadTest, AReadThatHangsIsNotWaitedForAtTheEnd) {
  HeldUp reading(files, "a.jpg", 2);
  DecodeAhead whole(files);
  whole.ExpectWhole({Write("a.jpg", JpegPhoto(320, 240))}, HalfOnly);
  reading.begun.get_future().wait();
  EXPECT_FALSE(whole.EndWithin(std::chrono::milliseconds(1)));
  reading.goOn.set_value();
  EXPECT_TRUE(whole.EndWithin(std::chrono::seconds(60)));
}

TEST_F(WholeAheadTest, ItEndsInMidWork) {
  std::vector<std::string> paths;
  for (int i = 0; i < 4; ++i) paths.push_back(Write(std::to_string(i) + ".jpg", JpegPhoto(801, 602)));
  for (int round = 0; round < 20; ++round) {
    WholeAhead brief(files);
    brief.Expect(paths, HalfOnly);
    brief.Expect({paths[static_cast<std::size_t>(round % 4)]}, HalfOnly);
  }
}

}  // namespace
}  // namespace pixorra
