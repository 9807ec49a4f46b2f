// The JPEG codec: headers, reductions, rows and their padding, refusals, writing.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegStatus.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/runtime/Errors.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr std::uint8_t Untouched = 0xA5;

// A described surface with marks in its padding and on both sides.
struct Surface {
  static constexpr std::size_t Guard = 64;
  std::vector<std::uint8_t> memory;
  int width;
  int height;
  int channels;
  int pad;

  Surface(int w, int h, int c, int p) : width(w), height(h), channels(c), pad(p) {
    memory.assign(Guard * 2 + Step() * static_cast<std::size_t>(h), Untouched);
  }
  std::size_t Step() const { return static_cast<std::size_t>(width * channels + pad); }
  std::uint8_t* Bits() { return memory.data() + Guard; }
  // Row y in memory order.
  const std::uint8_t* Row(int y) const { return memory.data() + Guard + Step() * static_cast<std::size_t>(y); }

  void Describe(JPEG_CORE_PROPERTIES& record, bool bottomUp = true) {
    record.DIBBytes = Bits();
    record.DIBWidth = width;
    record.DIBHeight = bottomUp ? -height : height;
    record.DIBPadBytes = pad;
    record.DIBChannels = channels;
  }
  bool MarksAreWhole() const {
    const auto isMark = [](std::uint8_t byte) { return byte == Untouched; };
    bool whole = std::all_of(memory.begin(), memory.begin() + Guard, isMark) &&
                 std::all_of(memory.end() - Guard, memory.end(), isMark);
    for (int y = 0; y < height; ++y) whole = whole && std::all_of(Row(y) + width * channels, Row(y) + Step(), isMark);
    return whole;
  }
  bool IsUntouched() const {
    return std::all_of(memory.begin(), memory.end(), [](std::uint8_t byte) { return byte == Untouched; });
  }
};

void PointAt(JPEG_CORE_PROPERTIES& record, const std::string& jpeg) {
  record.JPGBytes = reinterpret_cast<const std::uint8_t*>(jpeg.data());
  record.JPGSizeBytes = static_cast<std::int32_t>(jpeg.size());
}

class TurboJpegCodecTest : public ::testing::Test {
 protected:
  int ReadInto(Surface& surface, const std::string& jpeg, int mode, bool bottomUp = true) {
    JPEG_CORE_PROPERTIES record;
    EXPECT_EQ(codec.ijlInit(record), ijl::Ok);
    PointAt(record, jpeg);
    surface.Describe(record, bottomUp);
    const int status = codec.ijlRead(record, mode);
    EXPECT_EQ(codec.ijlFree(record), ijl::Ok);
    return status;
  }
  JPEG_CORE_PROPERTIES HeaderOf(const std::string& jpeg, int expectedStatus = ijl::Ok) {
    JPEG_CORE_PROPERTIES record;
    codec.ijlInit(record);
    PointAt(record, jpeg);
    EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadParams), expectedStatus);
    return record;
  }

  TemporaryDrive drive;
  TurboJpegCodec codec{drive.DriveFiles()};
};

TEST_F(TurboJpegCodecTest, HeaderTellsSizeAndChannels) {
  const JPEG_CORE_PROPERTIES colour = HeaderOf(JpegPhoto(641, 481));
  EXPECT_EQ(colour.JPGWidth, 641);
  EXPECT_EQ(colour.JPGHeight, 481);
  EXPECT_EQ(colour.JPGChannels, 3);
  EXPECT_EQ(colour.JPGColor, ijl::YCbCr);
  EXPECT_EQ(HeaderOf(JpegPhoto(8, 8, {.channels = 1})).JPGChannels, 1);
  EXPECT_EQ(HeaderOf(JpegPhoto(8, 8, {.channels = 4})).JPGChannels, 3);
  EXPECT_EQ(HeaderOf(JpegPhoto(8, 8, {.progressive = true})).JPGChannels, 3);
}

TEST_F(TurboJpegCodecTest, RowsComeBottomUpAndPadsAreLeftAlone) {
  const Bitmap photo = SmoothBitmap(33, 17);
  Surface surface(33, 17, 3, 5);
  ASSERT_EQ(ReadInto(surface, JpegOf(photo, {.quality = 100, .fullColour = true}), ijl::BufferReadWhole), ijl::Ok);
  EXPECT_TRUE(surface.MarksAreWhole());
  for (int y = 0; y < 17; ++y) {
    for (int i = 0; i < 33 * 3; ++i) ASSERT_NEAR(surface.Row(16 - y)[i], photo.Row(y)[i], 4) << y << ' ' << i;
  }
}

TEST_F(TurboJpegCodecTest, APositiveHeightIsTopDown) {
  const Bitmap photo = SmoothBitmap(20, 30);
  Surface surface(20, 30, 3, 0);
  ASSERT_EQ(ReadInto(surface, JpegOf(photo, {.quality = 100, .fullColour = true}), ijl::BufferReadWhole, false),
            ijl::Ok);
  for (int i = 0; i < 60; ++i) ASSERT_NEAR(surface.Row(0)[i], photo.Row(0)[i], 4);
}

TEST_F(TurboJpegCodecTest, ReductionsFollowTheSizeRuleForEverySmallSize) {
  struct Reduction {
    int mode, by;
  };
  for (int size = 1; size <= 40; ++size) {
    const std::string jpeg = JpegPhoto(size, 41 - size);
    for (const Reduction r : {Reduction{ijl::BufferReadHalf, 2}, Reduction{ijl::BufferReadQuarter, 4},
                              Reduction{ijl::BufferReadEighth, 8}}) {
      Surface surface((size + r.by - 1) / r.by, (41 - size + r.by - 1) / r.by, 3, 1);
      ASSERT_EQ(ReadInto(surface, jpeg, r.mode), ijl::Ok) << size << " by " << r.by;
      ASSERT_TRUE(surface.MarksAreWhole()) << size << " by " << r.by;
    }
  }
}

TEST_F(TurboJpegCodecTest, AReductionShowsTheWholePicture) {
  const Bitmap photo = SmoothBitmap(160, 120);
  Surface surface(20, 15, 3, 0);
  ASSERT_EQ(ReadInto(surface, JpegOf(photo, {.quality = 100, .fullColour = true}), ijl::BufferReadEighth), ijl::Ok);
  for (int y = 0; y < 15; ++y) {
    for (int x = 0; x < 20; ++x) {
      for (int c = 0; c < 3; ++c) {
        ASSERT_NEAR(surface.Row(14 - y)[x * 3 + c], photo.Row(y * 8 + 4)[(x * 8 + 4) * 3 + c], 8);
      }
    }
  }
}

TEST_F(TurboJpegCodecTest, GreyComesAsThreeEqualChannels) {
  Surface surface(9, 9, 3, 1);
  ASSERT_EQ(ReadInto(surface, JpegPhoto(9, 9, {.channels = 1}), ijl::BufferReadWhole), ijl::Ok);
  std::set<int> seen;
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 9; ++x) {
      const std::uint8_t* p = surface.Row(y) + x * 3;
      seen.insert(p[0]);
      ASSERT_EQ(p[0], p[1]);
      ASSERT_EQ(p[1], p[2]);
    }
  }
  EXPECT_GT(seen.size(), 3U);
}

TEST_F(TurboJpegCodecTest, FourChannelsDescribedAsThreeComeAsThree) {
  const Bitmap photo = SmoothBitmap(16, 16);
  Surface surface(16, 16, 3, 16);
  ASSERT_EQ(ReadInto(surface, JpegOf(photo, {.channels = 4, .quality = 100}), ijl::BufferReadWhole), ijl::Ok);
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16 * 3; ++x) ASSERT_NEAR(surface.Row(15 - y)[x], photo.Row(y)[x], 4);
  }
  EXPECT_TRUE(surface.MarksAreWhole());
}

TEST_F(TurboJpegCodecTest, DamageAfterTheFirstRowsLeavesWhatCame) {
  const Bitmap photo = SmoothBitmap(200, 200);
  std::string jpeg = JpegOf(photo, {.quality = 95});
  // A marker that no scan may hold, in the middle of the data.
  jpeg.replace(jpeg.size() / 2, 4, std::string("\xFF\xC0\x00\x02", 4));
  Surface surface(200, 200, 3, 0);
  ASSERT_EQ(ReadInto(surface, jpeg, ijl::BufferReadWhole), ijl::Ok);
  EXPECT_NEAR(surface.Row(199)[0], photo.Row(0)[0], 40);
}

TEST_F(TurboJpegCodecTest, FourChannelsDescribedTrulyComeAsBlueGreenRed) {
  const Bitmap photo = SmoothBitmap(16, 16);
  Surface surface(16, 16, 4, 0);
  ASSERT_EQ(ReadInto(surface, JpegOf(photo, {.channels = 4, .quality = 100}), ijl::BufferReadWhole), ijl::Ok);
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      for (int c = 0; c < 3; ++c) ASSERT_NEAR(surface.Row(15 - y)[x * 4 + c], photo.Row(y)[x * 3 + c], 4);
      ASSERT_EQ(surface.Row(15 - y)[x * 4 + 3], 255);
    }
  }
  EXPECT_EQ(ReadInto(surface, JpegPhoto(16, 16), ijl::BufferReadWhole), jpeg::Mismatch);
}

TEST_F(TurboJpegCodecTest, AnotherSizeThanTheSurfaceIsRefusedUntouched) {
  const std::string jpeg = JpegPhoto(40, 30);
  for (const auto& [w, h] : {std::pair{39, 30}, {41, 30}, {40, 29}, {40, 31}, {20, 15}}) {
    Surface surface(w, h, 3, 0);
    EXPECT_EQ(ReadInto(surface, jpeg, ijl::BufferReadWhole), jpeg::Mismatch) << w << 'x' << h;
    EXPECT_TRUE(surface.IsUntouched());
  }
  Surface half(40, 30, 3, 0);
  EXPECT_EQ(ReadInto(half, jpeg, ijl::BufferReadHalf), jpeg::Mismatch);
  EXPECT_TRUE(half.IsUntouched());
}

TEST_F(TurboJpegCodecTest, RecordsThatDescribeNothingAreRefused) {
  const std::string jpeg = JpegPhoto(8, 8);
  Surface surface(8, 8, 3, 0);
  JPEG_CORE_PROPERTIES record;
  PointAt(record, jpeg);
  EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadWhole), jpeg::BadRecord);
  surface.Describe(record);
  record.DIBPadBytes = -1;
  EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadWhole), jpeg::BadRecord);
  surface.Describe(record);
  record.DIBChannels = 1;
  EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadWhole), jpeg::BadRecord);
  surface.Describe(record);
  EXPECT_EQ(codec.ijlRead(record, 99), jpeg::BadRecord);
  record.JPGBytes = nullptr;
  EXPECT_EQ(codec.ijlRead(record, ijl::BufferReadWhole), jpeg::BadRecord);
  EXPECT_TRUE(surface.IsUntouched());
}

TEST_F(TurboJpegCodecTest, ACutPhotoShowsWhatItHas) {
  const Bitmap photo = SmoothBitmap(200, 200);
  for (const bool progressive : {false, true}) {
    const std::string jpeg = JpegOf(photo, {.quality = 95, .progressive = progressive});
    Surface surface(200, 200, 3, 0);
    ASSERT_EQ(ReadInto(surface, jpeg.substr(0, jpeg.size() / 2), ijl::BufferReadWhole), ijl::Ok);
    EXPECT_NEAR(surface.Row(199)[0], photo.Row(0)[0], 40);
  }
}

TEST_F(TurboJpegCodecTest, APhotoCutBeforeItsFirstRowIsRefused) {
  const std::string jpeg = JpegPhoto(200, 200);
  const std::size_t scan = jpeg.find("\xFF\xDA");
  Surface surface(200, 200, 3, 0);
  EXPECT_EQ(ReadInto(surface, jpeg.substr(0, scan + 14), ijl::BufferReadWhole), jpeg::NoPicture);
  EXPECT_EQ(ReadInto(surface, jpeg.substr(0, scan + 30), ijl::BufferReadWhole), jpeg::NoPicture);
  EXPECT_NE(ReadInto(surface, jpeg.substr(0, scan), ijl::BufferReadWhole), ijl::Ok);
}

TEST_F(TurboJpegCodecTest, ASmallPictureWithoutAnyDataIsRefused) {
  // A single row of blocks never is "cut before the first row"; it shows what it has, but it must have something.
  const std::string jpeg = JpegPhoto(8, 8);
  const std::size_t scan = jpeg.find("\xFF\xDA") + 14;
  Surface surface(8, 8, 3, 0);
  EXPECT_EQ(ReadInto(surface, jpeg.substr(0, scan), ijl::BufferReadWhole), jpeg::NoPicture);
  EXPECT_EQ(ReadInto(surface, jpeg.substr(0, scan) + "\xFF\xD9", ijl::BufferReadWhole), jpeg::NoPicture);
  EXPECT_TRUE(surface.IsUntouched());
  EXPECT_EQ(ReadInto(surface, jpeg.substr(0, scan + 4), ijl::BufferReadWhole), ijl::Ok);
}

TEST_F(TurboJpegCodecTest, EveryCutIsMetWithoutHarm) {
  const std::string jpeg = JpegPhoto(40, 40, {.progressive = true});
  for (std::size_t length = 0; length < jpeg.size(); length += 3) {
    // A block of its own, so that a read behind the cut is seen.
    const std::vector<char> cut(jpeg.begin(), jpeg.begin() + static_cast<std::ptrdiff_t>(length));
    Surface surface(40, 40, 3, 2);
    ReadInto(surface, std::string(cut.begin(), cut.end()), ijl::BufferReadWhole);
    ASSERT_TRUE(surface.MarksAreWhole()) << length;
  }
}

TEST_F(TurboJpegCodecTest, EveryChangedByteIsMetWithoutHarm) {
  for (const bool progressive : {false, true}) {
    const std::string jpeg = JpegPhoto(24, 24, {.progressive = progressive});
    for (std::size_t at = 0; at < jpeg.size(); ++at) {
      std::string changed = jpeg;
      changed[at] = static_cast<char>(changed[at] ^ 0x55);
      Surface surface(24, 24, 3, 2);
      ReadInto(surface, changed, ijl::BufferReadHalf);
      ReadInto(surface, changed, ijl::BufferReadWhole);
      ASSERT_TRUE(surface.MarksAreWhole()) << at;
    }
  }
}

TEST_F(TurboJpegCodecTest, SizesThatTheBytesCannotBackAreRefusedWithTheHeader) {
  for (const bool progressive : {false, true}) {
    const std::string jpeg = JpegPhoto(32, 32, {.progressive = progressive});
    EXPECT_EQ(HeaderOf(WithJpegSize(jpeg, 30000, 30000), jpeg::TooLarge).JPGWidth, 0);
    HeaderOf(WithJpegSize(jpeg, 65500, 65500), jpeg::TooLarge);
    HeaderOf(WithJpegSize(jpeg, 65535, 65535), jpeg::TooLarge);
    HeaderOf(WithJpegSize(jpeg, 4000, 3000));
  }
}

TEST_F(TurboJpegCodecTest, ScanAfterScanOverNothingEnds) {
  const std::string jpeg = JpegPhoto(2048, 2048, {.channels = 1, .progressive = true});
  const std::size_t scan = jpeg.rfind("\xFF\xDA");
  const std::string last = jpeg.substr(scan, jpeg.size() - 2 - scan);
  std::string many = jpeg.substr(0, jpeg.size() - 2);
  for (int i = 0; i < 2000; ++i) many += last;
  Surface surface(256, 256, 3, 0);
  EXPECT_EQ(ReadInto(surface, many + "\xFF\xD9", ijl::BufferReadEighth), jpeg::TooMuchWork);
}

TEST_F(TurboJpegCodecTest, WhatIsNoJpegIsRefused) {
  for (const std::string& bytes :
       {std::string("x"), std::string("\xFF\xD8"), std::string(5000, '\0'), BmpPhoto(8, 8)}) {
    HeaderOf(bytes, jpeg::BadData);
  }
}

TEST_F(TurboJpegCodecTest, TheFileRouteReadsTheFile) {
  drive.Write("C:\\a.jpg", JpegPhoto(30, 20));
  JPEG_CORE_PROPERTIES record;
  codec.ijlInit(record);
  record.JPGFile = "C:\\a.jpg";
  ASSERT_EQ(codec.ijlRead(record, ijl::FileReadParams), ijl::Ok);
  EXPECT_EQ(record.JPGWidth, 30);
  Surface surface(8, 5, 3, 0);
  surface.Describe(record);
  EXPECT_EQ(codec.ijlRead(record, ijl::FileReadQuarter), ijl::Ok);
  record.JPGFile = "C:\\missing.jpg";
  EXPECT_EQ(codec.ijlRead(record, ijl::FileReadQuarter), jpeg::BadFile);
}

class TurboJpegWriting : public TurboJpegCodecTest {
 protected:
  // The smooth picture, written bottom-up with padding.
  int Write(TurboJpegCodec& with, const std::string& path, int width, int height, int quality = 95) {
    const Bitmap photo = SmoothBitmap(width, height);
    Surface surface(width, height, 3, 3);
    for (int y = 0; y < height; ++y) {
      std::copy_n(photo.Row(y), width * 3, surface.Bits() + surface.Step() * static_cast<std::size_t>(height - 1 - y));
    }
    JPEG_CORE_PROPERTIES record;
    with.ijlInit(record);
    surface.Describe(record);
    record.JPGFile = path;
    record.JPGWidth = width;
    record.JPGHeight = height;
    record.jquality = quality;
    return with.ijlWrite(record, ijl::FileWriteWhole);
  }
};

TEST_F(TurboJpegWriting, AFileThatLoadsAgainTheRightWayUp) {
  ASSERT_EQ(Write(codec, "C:\\out.jpg", 50, 40), ijl::Ok);
  const std::string bytes = drive.Read("C:\\out.jpg");
  EXPECT_EQ(bytes.substr(6, 4), "JFIF");
  const Picture picture = CodecPictures(drive.DriveFiles()).Load("C:\\out.jpg");
  const Bitmap photo = SmoothBitmap(50, 40);
  ASSERT_EQ(picture.Width(), 50);
  ASSERT_EQ(picture.Height(), 40);
  for (int y = 0; y < 40; ++y) {
    for (int i = 0; i < 150; ++i) ASSERT_NEAR(picture.Pixels().Row(y)[i], photo.Row(y)[i], 12);
  }
}

TEST_F(TurboJpegWriting, ColourIsHalvedBothWaysAndQualityCounts) {
  ASSERT_EQ(Write(codec, "C:\\fine.jpg", 64, 64, 100), ijl::Ok);
  ASSERT_EQ(Write(codec, "C:\\rough.jpg", 64, 64, 10), ijl::Ok);
  ASSERT_EQ(Write(codec, "C:\\beyond.jpg", 64, 64, 1000), ijl::Ok);
  const std::string fine = drive.Read("C:\\fine.jpg");
  EXPECT_GT(fine.size(), drive.Read("C:\\rough.jpg").size());
  EXPECT_EQ(fine, drive.Read("C:\\beyond.jpg"));
  const std::size_t frame = fine.find("\xFF\xC0");
  ASSERT_NE(frame, std::string::npos);
  EXPECT_EQ(fine[frame + 11], '\x22');
  EXPECT_EQ(fine[frame + 14], '\x11');
}

TEST_F(TurboJpegWriting, ReplacesALongerFileWhole) {
  drive.Write("C:\\out.jpg", std::string(100'000, 'x'));
  ASSERT_EQ(Write(codec, "C:\\out.jpg", 8, 8), ijl::Ok);
  const std::string bytes = drive.Read("C:\\out.jpg");
  EXPECT_LT(bytes.size(), 5000U);
  EXPECT_EQ(bytes.substr(bytes.size() - 2), "\xFF\xD9");
}

TEST_F(TurboJpegWriting, AFullDiskAndAMissingFolderAreStatuses) {
  FaultyFiles files(drive.DriveFiles());
  TurboJpegCodec faulty(files);
  files.FillDiskAfter(100);
  EXPECT_EQ(Write(faulty, "C:\\full.jpg", 64, 64), jpeg::CannotWrite);
  EXPECT_EQ(Write(codec, "C:\\no\\such.jpg", 8, 8), jpeg::CannotWrite);
}

TEST_F(TurboJpegWriting, WhatCannotBeEncodedTouchesNoFile) {
  drive.Write("C:\\kept.jpg", "kept");
  std::vector<std::uint8_t> bits(64 * 4);
  JPEG_CORE_PROPERTIES record;
  codec.ijlInit(record);
  record.JPGFile = "C:\\kept.jpg";
  EXPECT_EQ(codec.ijlWrite(record, ijl::FileWriteWhole), jpeg::BadRecord);
  record.DIBBytes = bits.data();
  record.DIBWidth = record.JPGWidth = 8;
  record.DIBHeight = -8;
  record.JPGHeight = 8;
  record.DIBChannels = 4;
  EXPECT_EQ(codec.ijlWrite(record, ijl::FileWriteWhole), jpeg::Unsupported);
  record.DIBChannels = 3;
  record.JPGWidth = 9;
  EXPECT_EQ(codec.ijlWrite(record, ijl::FileWriteWhole), jpeg::Mismatch);
  record.JPGWidth = 8;
  EXPECT_EQ(codec.ijlWrite(record, ijl::FileReadWhole), jpeg::BadRecord);
  EXPECT_EQ(drive.Read("C:\\kept.jpg"), "kept");
}

TEST_F(TurboJpegCodecTest, EachStatusHasATextOfItsOwn) {
  std::set<std::string> texts;
  for (int status = jpeg::TooMuchWork; status <= jpeg::Ok; ++status) texts.insert(codec.ijlErrorStr(status));
  EXPECT_EQ(texts.size(), 11U);
  EXPECT_EQ(codec.ijlErrorStr(12345), "Unknown error");
  EXPECT_EQ(texts.count(""), 0U);
}

}  // namespace
}  // namespace pixorra
