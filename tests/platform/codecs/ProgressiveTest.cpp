// Progressive JPEG pictures: scans without end, and damage after the first of them.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegStatus.h"
#include "platform/codecs/TurboJpegCodec.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/codecs/ScansByHand.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

std::span<const std::uint8_t> Bytes(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// The picture at an eighth of its size, as thumbnails are made of it; the codec's status.
int ReadAnEighth(const std::string& jpeg, int width, int height) {
  TemporaryDrive drive;
  TurboJpegCodec codec(drive.DriveFiles());
  JPEG_CORE_PROPERTIES record;
  record.JPGBytes = Bytes(jpeg).data();
  record.JPGSizeBytes = static_cast<std::int32_t>(jpeg.size());
  record.DIBWidth = (width + 7) / 8;
  record.DIBHeight = (height + 7) / 8;
  std::vector<std::uint8_t> rows(static_cast<std::size_t>(record.DIBWidth * record.DIBHeight * 3));
  record.DIBBytes = rows.data();
  return codec.ijlRead(record, ijl::BufferReadEighth);
}

TEST(ProgressiveTest, HundredsOfScansOverALargePictureAreRefused) {
  constexpr int Side = 8000;
  for (const auto scan : {ScansByHand::Refining, ScansByHand::OfNothing}) {
    const std::string jpeg = ScansByHand::Grey(Side, Side, 450, scan);
    EXPECT_EQ(ReadAnEighth(jpeg, Side, Side), jpeg::TooMuchWork);
    EXPECT_EQ(ErrorsIgnored([&] { DecodePicture(Bytes(jpeg)); }), error::BadPicture);
  }
}

TEST(ProgressiveTest, HundredsOfScansOverASmallPictureAreNoMatter) {
  EXPECT_EQ(DecodePicture(Bytes(ScansByHand::Grey(64, 48, 450, ScansByHand::Refining))).Width(), 64);
}

TEST(ProgressiveTest, TheUsualScansAreReadWhateverTheSize) {
  constexpr int Side = 20000;
  EXPECT_EQ(ReadAnEighth(ScansByHand::Grey(Side, Side, 10, ScansByHand::OfNothing), Side, Side), ijl::Ok);
}

// What follows it, a film for one, has bytes of all kinds.
TEST(ProgressiveTest, WhatFollowsThePictureIsNoScanOfIt) {
  constexpr int Side = 20000;
  std::string jpeg = ScansByHand::Grey(Side, Side, 10, ScansByHand::OfNothing);
  for (int i = 0; i < 300; ++i) jpeg += "\xFF\xDA";
  EXPECT_EQ(ReadAnEighth(jpeg, Side, Side), ijl::Ok);
}

// Where the n-th scan begins, from 1 on.
std::size_t ScanOf(const std::string& jpeg, int n) {
  std::size_t at = 0;
  for (int i = 0; i < n; ++i) at = jpeg.find("\xFF\xDA", at + 1);
  return at;
}

TEST(ProgressiveTest, DamageAfterTheFirstScanLeavesWhatCame) {
  const Bitmap photo = SmoothBitmap(200, 200);
  const std::string jpeg = JpegOf(photo, {.quality = 95, .progressive = true});
  // Between the first scans, in the middle of one, and right before the end: a second frame header, of another size and
  // kind, a kind of frame that is unknown, and a table that is none.
  for (const std::size_t at : {ScanOf(jpeg, 2), ScanOf(jpeg, 4) + 40, jpeg.size() - 3}) {
    for (const std::string& marker : {std::string("\xFF\xC0\0\x02\x0C\xFF\xFF\xFF\xFF\xFF", 10),
                                      std::string("\xFF\xC3\0\x02", 4), std::string("\xFF\xC4\0\x13\xFF", 5)}) {
      std::string damaged = jpeg;
      damaged.insert(at, marker);
      const Bitmap shown = DecodePicture(Bytes(damaged));
      for (const int place : {0, 100, 199}) {
        for (int c = 0; c < 3; ++c) EXPECT_NEAR(shown.Row(place)[place * 3 + c], photo.Row(place)[place * 3 + c], 40);
      }
      EXPECT_EQ(ReadAnEighth(damaged, 200, 200), ijl::Ok);
    }
  }
}

TEST(ProgressiveTest, DamageInTheFirstScanIsRefused) {
  std::string jpeg = JpegPhoto(200, 200, {.progressive = true});
  jpeg.insert(ScanOf(jpeg, 1), "\xFF\xC0\x00\x02", 4);
  EXPECT_EQ(ErrorsIgnored([&] { DecodePicture(Bytes(jpeg)); }), error::BadPicture);
}

TEST(ProgressiveTest, APictureShowsTheSameWhetherItCameInOneScanOrInMany) {
  for (const JpegFile& file : {JpegFile{}, JpegFile{.channels = 1}, JpegFile{.fullColour = true}}) {
    JpegFile progressive = file;
    progressive.progressive = true;
    const Bitmap once = DecodePicture(Bytes(JpegPhoto(203, 101, file)));
    const Bitmap many = DecodePicture(Bytes(JpegPhoto(203, 101, progressive)));
    for (int y = 0; y < 101; ++y) EXPECT_TRUE(std::equal(once.Row(y), once.Row(y) + 203 * 3, many.Row(y))) << y;
  }
}

}  // namespace
}  // namespace pixorra
