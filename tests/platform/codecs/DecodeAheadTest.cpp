// Photos decoded ahead: what they serve, what they leave alone, and what is let go.
#include <algorithm>
#include <cstdlib>
#include <future>
#include <gtest/gtest.h>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/JpegStatus.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/codecs/BoundedMemory.h"
#include "tests/platform/codecs/ScansByHand.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr auto Strip = ReadAhead::Reader::FilmStrip;
constexpr auto Folder = ReadAhead::Reader::OpenFolder;

// Noise, as that makes long files of small pictures.
std::string LongJpeg(unsigned seed, const JpegFile& file = {.quality = 100, .fullColour = true}) {
  Bitmap bitmap(801, 602, PixelFormat::Bgr24);
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int i = 0; i < bitmap.Width() * 3; ++i) {
      seed = seed * 1664525u + 1013904223u;
      bitmap.Row(y)[i] = static_cast<std::uint8_t>(seed >> 24);
    }
  }
  return JpegOf(bitmap, file);
}

struct Decoded {
  int status = 0;
  std::vector<std::uint8_t> bytes;
  bool operator==(const Decoded&) const = default;
};

// The reduction of a block of memory, as the program asks for it: bottom-up, rows padded to 4 bytes.
Decoded Read(TurboJpegCodec& codec, const std::string& jpeg, int scale, int mode) {
  JPEG_CORE_PROPERTIES record;
  codec.ijlInit(record);
  record.JPGBytes = reinterpret_cast<const std::uint8_t*>(jpeg.data());
  record.JPGSizeBytes = static_cast<std::int32_t>(jpeg.size());
  Decoded decoded;
  decoded.status = codec.ijlRead(record, ijl::BufferReadParams);
  if (decoded.status != jpeg::Ok) return decoded;
  const int width = (record.JPGWidth + scale - 1) / scale;
  const int height = (record.JPGHeight + scale - 1) / scale;
  const int step = (width * 3 + 3) / 4 * 4;
  decoded.bytes.assign(static_cast<std::size_t>(step * height), 0xA5);
  record.DIBBytes = decoded.bytes.data();
  record.DIBWidth = width;
  record.DIBHeight = -height;
  record.DIBPadBytes = step - width * 3;
  decoded.status = codec.ijlRead(record, mode);
  return decoded;
}

class DecodeAheadTest : public ::testing::Test {
 protected:
  static std::span<const std::uint8_t> Bytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
  }
  std::string Write(const std::string& name, const std::string& bytes) {
    drive.Write("C:\\" + name, bytes);
    return "C:\\" + name;
  }
  void Prepare(const std::vector<std::string>& paths, int scale) {
    ahead.Expect(Strip, paths, scale, {});
    ahead.Settle();
  }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  DecodeAhead ahead{files};
};

TEST_F(DecodeAheadTest, NoThreadStartsBeforeAPhotoIsExpected) {
  EXPECT_TRUE(ahead.IsReady("C:\\a.jpg", 8));
  ahead.Expect(Strip, {}, 8, {});
  ahead.Expect(Strip, {Write("small.jpg", JpegPhoto(64, 48)), "C:\\none.jpg"}, 8, {});
  EXPECT_EQ(ahead.ThreadsStarted(), 0u);
  ahead.Expect(Strip, {Write("a.jpg", LongJpeg(1))}, 8, {});
  EXPECT_GE(ahead.ThreadsStarted(), 1u);
  EXPECT_LE(ahead.ThreadsStarted(), std::max(1u, std::thread::hardware_concurrency()));
}

TEST_F(DecodeAheadTest, APreparedPhotoIsTheSameToTheLastByteAtEachScale) {
  TurboJpegCodec plain(files);
  TurboJpegCodec codec(files, &ahead);
  const std::string jpeg = LongJpeg(1);
  ASSERT_GE(jpeg.size(), static_cast<std::size_t>(DecodeAhead::ShortestFile));
  const std::string path = Write("a.jpg", jpeg);
  const std::vector<std::pair<int, int>> modes = {
      {1, ijl::BufferReadWhole}, {2, ijl::BufferReadHalf}, {4, ijl::BufferReadQuarter}, {8, ijl::BufferReadEighth}};
  for (const auto& [scale, mode] : modes) {
    Prepare({path}, scale);
    EXPECT_EQ(Read(codec, jpeg, scale, mode), Read(plain, jpeg, scale, mode)) << scale;
    EXPECT_FALSE(ahead.Take(Bytes(jpeg), scale)) << "it was not what served";
  }
}

TEST_F(DecodeAheadTest, AGreyPhotoIsPreparedInColour) {
  TurboJpegCodec plain(files);
  TurboJpegCodec codec(files, &ahead);
  const std::string jpeg = LongJpeg(2, {.channels = 1, .quality = 100});
  ASSERT_GE(jpeg.size(), static_cast<std::size_t>(DecodeAhead::ShortestFile));
  Prepare({Write("grey.jpg", jpeg)}, 8);
  EXPECT_EQ(Read(codec, jpeg, 8, ijl::BufferReadEighth), Read(plain, jpeg, 8, ijl::BufferReadEighth));
  EXPECT_FALSE(ahead.Take(Bytes(jpeg), 8));
}

TEST_F(DecodeAheadTest, OnlyTheSameBytesAndScaleAreServedAndOnlyOnce) {
  const std::string jpeg = LongJpeg(3);
  Prepare({Write("a.jpg", jpeg)}, 8);
  std::string other = jpeg;
  other.back() = static_cast<char>(other.back() ^ 1);
  EXPECT_FALSE(ahead.Take(Bytes(other), 8));
  EXPECT_FALSE(ahead.Take(Bytes(jpeg).first(jpeg.size() - 1), 8));
  EXPECT_FALSE(ahead.Take(Bytes(jpeg), 4));
  const ReducedRows* const rows = ahead.Take(Bytes(jpeg), 8);
  ASSERT_TRUE(rows);
  EXPECT_EQ(rows->width, 101);
  EXPECT_EQ(rows->height, 76);
  EXPECT_FALSE(ahead.Take(Bytes(jpeg), 8));
}

TEST_F(DecodeAheadTest, ThePhotosSmallFileAndItsPictureArePreparedToo) {
  TurboJpegCodec plain(files);
  TurboJpegCodec codec(files, &ahead);
  CodecPictures pictures(files, &ahead);
  const std::string jpeg = LongJpeg(14);
  Prepare({Write("a.jpg", jpeg)}, 4);
  JPEG_CORE_PROPERTIES record;
  Decoded decoded = Read(codec, jpeg, 4, ijl::BufferReadQuarter);
  record.DIBBytes = decoded.bytes.data();
  record.DIBWidth = record.JPGWidth = 201;
  record.JPGHeight = 151;
  record.DIBHeight = -151;
  record.DIBPadBytes = 1;
  ASSERT_EQ(plain.ijlWrite(record, ijl::BufferWriteWhole), ijl::Ok);
  const std::vector<std::uint8_t> file = record.JPGWritten;
  const std::uint8_t* top = decoded.bytes.data() + 150 * 604;
  EXPECT_EQ(ahead.Encoded(top, -604, 201, 151, 75).size(), file.size()) << "it is what serves";
  EXPECT_TRUE(ahead.Encoded(top, -604, 201, 151, 76).empty());
  EXPECT_TRUE(ahead.Encoded(top, -604, 201, 150, 75).empty());
  ASSERT_EQ(codec.ijlWrite(record, ijl::BufferWriteWhole), ijl::Ok);
  EXPECT_EQ(record.JPGWritten, file);
  // Pixels that have been changed meanwhile are encoded themselves.
  decoded.bytes[0] = static_cast<std::uint8_t>(decoded.bytes[0] ^ 0xFF);
  EXPECT_TRUE(ahead.Encoded(top, -604, 201, 151, 75).empty());
  ASSERT_EQ(codec.ijlWrite(record, ijl::BufferWriteWhole), ijl::Ok);
  EXPECT_NE(record.JPGWritten, file);

  EXPECT_TRUE(ahead.Decoded(record.JPGWritten).IsNothing()) << "another file";
  const Picture shown = pictures.FromBytes(file);
  EXPECT_TRUE(ahead.Decoded(file).IsNothing()) << "it was not what served";
  const Bitmap own = DecodePicture(file);
  ASSERT_EQ(shown.Width(), 201);
  for (int y = 0; y < 151; ++y) EXPECT_TRUE(std::equal(own.Row(y), own.Row(y) + 603, shown.Pixels().Row(y))) << y;
}

TEST_F(DecodeAheadTest, TheSmallPictureIsMadeAsSmallAsItWillBePainted) {
  TurboJpegCodec codec(files, &ahead);
  CodecPictures pictures(files, &ahead);
  const std::string jpeg = LongJpeg(15);
  ahead.Expect(Strip, {Write("a.jpg", jpeg)}, 4, [](int width, int height) {
    return std::vector<PixelSize>{{width / 2, height / 2}, {0, height}};
  });
  ahead.Settle();
  const Decoded decoded = Read(codec, jpeg, 4, ijl::BufferReadQuarter);
  const std::span<const std::uint8_t> made = ahead.Encoded(decoded.bytes.data() + 150 * 604, -604, 201, 151, 75);
  const std::vector<std::uint8_t> file(made.begin(), made.end());
  const Picture shown = pictures.FromBytes(file);
  const Bitmap* const half = shown.Reduction(100, 75);
  ASSERT_NE(half, nullptr);
  const Bitmap own = DecodePicture(file);
  Bitmap ownHalf(100, 75, PixelFormat::Bgr24);
  Stretch(own, ownHalf, 0, 0, 100, 75);
  for (int y = 0; y < 75; ++y) EXPECT_TRUE(std::equal(ownHalf.Row(y), ownHalf.Row(y) + 300, half->Row(y))) << y;
  for (int y = 0; y < 151; ++y) EXPECT_TRUE(std::equal(own.Row(y), own.Row(y) + 603, shown.Pixels().Row(y))) << y;
}

TEST_F(DecodeAheadTest, TheBytesAreAtHandOfAFileThatStillHoldsThem) {
  const std::string jpeg = LongJpeg(16);
  const std::string path = Write("a.jpg", jpeg);
  Prepare({path}, 8);
  const auto atHand = [&](const std::string& name) { return ahead.AtHand(*files.Open("C:\\" + name, OpenMode::Read)); };
  const std::span<const std::uint8_t> bytes = atHand("a.jpg");
  EXPECT_TRUE(std::ranges::equal(bytes, Bytes(jpeg)));
  std::string other = jpeg;
  other.back() = static_cast<char>(other.back() ^ 1);
  Write("other.jpg", other);
  Write("shorter.jpg", jpeg.substr(0, jpeg.size() - 1));
  Write("longer.jpg", jpeg + 'x');
  for (const char* name : {"other.jpg", "shorter.jpg", "longer.jpg"}) EXPECT_TRUE(atHand(name).empty()) << name;
  files.FailNth(FileCall::Read, 2, error::DeviceIO);
  EXPECT_TRUE(atHand("a.jpg").empty());
  files.Heal();
  EXPECT_TRUE(ahead.Take(bytes, 8));
  EXPECT_TRUE(atHand("a.jpg").empty());
}

TEST_F(DecodeAheadTest, AFileChangedAfterwardsIsDecodedAnew) {
  TurboJpegCodec plain(files);
  TurboJpegCodec codec(files, &ahead);
  Prepare({Write("a.jpg", LongJpeg(4))}, 8);
  const std::string changed = LongJpeg(5);
  EXPECT_EQ(Read(codec, changed, 8, ijl::BufferReadEighth), Read(plain, changed, 8, ijl::BufferReadEighth));
}

TEST_F(DecodeAheadTest, AMisdescribedSurfaceIsStillRefused) {
  TurboJpegCodec codec(files, &ahead);
  const std::string jpeg = LongJpeg(6);
  Prepare({Write("a.jpg", jpeg)}, 8);
  JPEG_CORE_PROPERTIES record;
  std::vector<std::uint8_t> bytes(100 * 76 * 3, 0xA5);
  record.JPGBytes = Bytes(jpeg).data();
  record.JPGSizeBytes = static_cast<std::int32_t>(jpeg.size());
  record.DIBBytes = bytes.data();
  record.DIBWidth = 100;
  record.DIBHeight = 76;
  EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadEighth), jpeg::Mismatch);
}

TEST_F(DecodeAheadTest, AFileAtHandIsStillThereAfterASurfaceWasRefused) {
  TurboJpegCodec codec(files, &ahead);
  const std::string jpeg = LongJpeg(17);
  const std::string path = Write("a.jpg", jpeg);
  Prepare({path}, 8);
  const auto atHand = [&] { return codec.AtHand(*files.Open(path, OpenMode::Read)); };
  JPEG_CORE_PROPERTIES record;
  std::vector<std::uint8_t> pixels(101 * 76 * 3, 0xA5);
  record.JPGBytes = atHand().data();
  record.JPGSizeBytes = static_cast<std::int32_t>(jpeg.size());
  record.DIBBytes = pixels.data();
  record.DIBWidth = 100;
  record.DIBHeight = 76;
  EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadEighth), jpeg::Mismatch);
  ASSERT_EQ(atHand().data(), record.JPGBytes);
  record.DIBWidth = 101;
  EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadEighth), jpeg::Ok);
  EXPECT_TRUE(atHand().empty()) << "it has been served";
}

TEST_F(DecodeAheadTest, WhatCannotBePreparedIsReadyAtOnceOrSoonAndServesNothing) {
  std::string cut = LongJpeg(7);
  cut.resize(cut.size() / 2);
  std::string broken = LongJpeg(8);
  broken.replace(2, 400000, 400000, 'x');
  const std::vector<std::string> texts = {std::string(600000, 'x'), broken, JpegPhoto(64, 48)};
  std::vector<std::string> paths = {"C:\\none.jpg", "C:\\"};
  for (std::size_t i = 0; i < texts.size(); ++i) paths.push_back(Write(std::to_string(i) + ".jpg", texts[i]));
  Prepare(paths, 8);
  for (const std::string& path : paths) EXPECT_TRUE(ahead.IsReady(path, 8)) << path;
  for (const std::string& text : texts) EXPECT_FALSE(ahead.Take(Bytes(text), 8));
}

TEST_F(DecodeAheadTest, InksAndPhotosOnTheirSideComeAsTheDecodeItselfWouldGiveThem) {
  TurboJpegCodec codec(files, &ahead);
  TurboJpegCodec plain(files);
  for (const JpegFile& file : {JpegFile{.channels = 4, .quality = 100},
                               JpegFile{.quality = 100, .fullColour = true, .exif = true, .exifOrientation = 6}}) {
    const std::string jpeg = LongJpeg(9, file);
    Prepare({Write("turned.jpg", jpeg)}, 8);
    const Decoded ready = Read(codec, jpeg, 8, ijl::BufferReadEighth);
    EXPECT_EQ(ready.status, jpeg::Ok);
    EXPECT_EQ(ready, Read(plain, jpeg, 8, ijl::BufferReadEighth));
    EXPECT_FALSE(ahead.Take(Bytes(jpeg), 8)) << "it was not what served";
  }
}

TEST_F(DecodeAheadTest, WhatIsNoLongerExpectedIsLetGo) {
  const std::string a = LongJpeg(10), b = LongJpeg(11);
  const std::string pathA = Write("a.jpg", a), pathB = Write("b.jpg", b);
  Prepare({pathA, pathB}, 8);
  Prepare({pathB}, 8);
  EXPECT_FALSE(ahead.Take(Bytes(a), 8));
  EXPECT_TRUE(ahead.Take(Bytes(b), 8));
}

TEST_F(DecodeAheadTest, ReadersDoNotDisturbEachOther) {
  const std::string a = LongJpeg(12);
  const std::string path = Write("a.jpg", a);
  ahead.Expect(Strip, {path}, 8, {});
  ahead.Expect(Folder, {path}, 8, {});
  ahead.Expect(Strip, {}, 8, {});
  ahead.Settle();
  EXPECT_TRUE(ahead.Take(Bytes(a), 8));
  EXPECT_TRUE(ahead.IsReady(path, 8));
}

TEST_F(DecodeAheadTest, AnOutdatedScaleIsReplacedByTheOneExpectedNow) {
  const std::string a = LongJpeg(13);
  const std::string path = Write("a.jpg", a);
  ahead.Expect(Strip, {path}, 4, {});
  Prepare({path}, 8);
  EXPECT_FALSE(ahead.Take(Bytes(a), 4));
  EXPECT_TRUE(ahead.Take(Bytes(a), 8));
  ahead.Expect(Strip, {path}, 3, {});
  EXPECT_TRUE(ahead.IsReady(path, 3));
}

TEST_F(DecodeAheadTest, ItEndsInMidWork) {
  std::vector<std::string> paths;
  for (unsigned i = 0; i < 4; ++i) paths.push_back(Write(std::to_string(i) + ".jpg", LongJpeg(i)));
  for (int round = 0; round < 20; ++round) {
    DecodeAhead brief(files);
    brief.Expect(Strip, paths, 1, {});
    brief.Expect(Folder, {paths[round % 4]}, 8, {});
  }
}

TEST_F(DecodeAheadTest, OfManyLongFilesOnlySomeAreHeld) {
  std::vector<std::string> paths;
  const std::string photo = LongJpeg(20);
  std::string longFile = photo;
  longFile.resize(20 * 1024 * 1024, 'x');  // what follows the picture is no matter
  for (int i = 0; i < 4; ++i) paths.push_back(Write(std::to_string(i) + ".jpg", longFile));
  Prepare(paths, 8);
  int held = 0;
  while (ahead.Take(Bytes(longFile), 8)) ++held;
  EXPECT_EQ(held, 2);
  longFile.resize(static_cast<std::size_t>(DecodeAhead::LongestFile) + 1, 'x');
  Prepare({Write("longest.jpg", longFile)}, 8);
  EXPECT_FALSE(ahead.Take(Bytes(longFile), 8));
}

TEST_F(DecodeAheadTest, AFileThatIsStillReadCountsThoughItIsNoLongerExpected) {
  const std::string photo = LongJpeg(21);
  std::string longFile = photo;
  longFile.resize(20 * 1024 * 1024, 'x');
  const std::string former = Write("former.jpg", longFile);
  const std::vector<std::string> wanted = {Write("a.jpg", longFile), Write("b.jpg", longFile)};
  std::promise<void> begun, goOn;
  files.BeforeNth(
      FileCall::Read, 1,
      [&] {
        begun.set_value();
        goOn.get_future().wait();
      },
      "former");
  ahead.Expect(Strip, {former}, 8, {});
  begun.get_future().wait();
  ahead.Expect(Strip, wanted, 8, {});
  goOn.set_value();
  ahead.Settle();
  EXPECT_TRUE(ahead.Take(Bytes(longFile), 8));
  EXPECT_FALSE(ahead.Take(Bytes(longFile), 8)) << "three of these files were held";
  Prepare(wanted, 8);
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(ahead.Take(Bytes(longFile), 8)) << i;
}

// As from a disk that no longer answers.
TEST_F(DecodeAheadTest, AReadThatHangsIsNotWaitedForAtTheEnd) {
  std::promise<void> begun, goOn;
  files.BeforeNth(
      FileCall::Read, 1,
      [&] {
        begun.set_value();
        goOn.get_future().wait();
      },
      "hangs");
  ahead.Expect(Strip, {Write("hangs.jpg", LongJpeg(22))}, 8, {});
  begun.get_future().wait();
  EXPECT_FALSE(ahead.EndWithin(std::chrono::milliseconds(1)));
  goOn.set_value();
  EXPECT_TRUE(ahead.EndWithin(std::chrono::seconds(60)));
}

// A grey progressive photo, of which the library keeps two bytes for each pixel. What follows it is no matter.
std::string GreyPhoto(int side) {
  std::string jpeg = ScansByHand::Grey(side, side, 1, ScansByHand::OfNothing);
  jpeg.resize(std::max<std::size_t>(jpeg.size(), DecodeAhead::ShortestFile), 'x');
  return jpeg;
}

TEST_F(DecodeAheadTest, APhotoThatNeedsTooMuchMemoryIsLeftAlone) {
  const std::string large = GreyPhoto(12000);
  const std::string path = Write("large.jpg", large);
  Prepare({path}, 8);
  EXPECT_TRUE(ahead.IsReady(path, 8));
  EXPECT_FALSE(ahead.Take(Bytes(large), 8));
}

TEST_F(DecodeAheadTest, PhotosThatNeedMuchMemoryAreDecodedOneAfterTheOther) {
  std::vector<std::string> paths;
  const std::string photo = GreyPhoto(9000);
  for (int i = 0; i < 3; ++i) paths.push_back(Write(std::to_string(i) + ".jpg", photo));
  WithinTwoGigabytes([&] {
    const std::int64_t before = OwnMemory("VmRSS");
    DecodeAhead own(files);
    own.Expect(Strip, paths, 8, {});
    own.Settle();
    EXPECT_LE(OwnMemory("VmHWM") - before, DecodeAhead::MostMemory);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(own.Take(Bytes(photo), 8)) << i;
  });
}

}  // namespace
}  // namespace pixorra
