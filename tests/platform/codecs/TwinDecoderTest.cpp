// Thumbnails made of their photos once more, with more pixels.
#include <cmath>
#include <gtest/gtest.h>
#include <span>
#include <string>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/TwinDecoder.h"
#include "platform/pixels/DotScreen.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/codecs/BoundedMemory.h"
#include "tests/platform/codecs/SizedGif.h"
#include "tests/platform/codecs/WatchedFile.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr PixelSize ThumbnailSize{80, 60};
constexpr PixelSize TwinSize{160, 120};
constexpr const char* PhotoPath = "C:\\photo.jpg";

// Light and dark in turn, so many pixels each, over smooth colours.
Bitmap Striped(int width, int height, int stripe) {
  Bitmap bitmap = SmoothBitmap(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < 3 * width; ++x) {
      std::uint8_t& value = bitmap.Row(y)[x];
      value = static_cast<std::uint8_t>(64 + value / 2 + (x / 3 / stripe % 2 == 0 ? -60 : 60));
    }
  }
  return bitmap;
}

Bitmap StretchedTo(const Bitmap& bitmap, PixelSize size) {
  Bitmap stretched(size.Width, size.Height, PixelFormat::Bgr24);
  Stretch(bitmap, stretched, 0, 0, size.Width, size.Height);
  return stretched;
}

// On average, of 255.
double Apart(const Bitmap& a, const Bitmap& b) {
  EXPECT_EQ(a.Width(), b.Width());
  EXPECT_EQ(a.Height(), b.Height());
  if (a.Width() != b.Width() || a.Height() != b.Height()) return 255;
  double sum = 0;
  for (int y = 0; y < a.Height(); ++y) {
    for (int x = 0; x < 3 * a.Width(); ++x) sum += std::abs(a.Row(y)[x] - b.Row(y)[x]);
  }
  return sum / 3 / a.Width() / a.Height();
}

class TwinDecoderTest : public ::testing::Test {
 protected:
  Bitmap TwinOf(const std::string& file, const Bitmap& thumbnail, PixelSize size = TwinSize) {
    drive.Write(PhotoPath, file);
    return TwinOfWritten(thumbnail, size);
  }
  Bitmap TwinOfWritten(const Bitmap& thumbnail, PixelSize size = TwinSize) {
    return DecodeTwin(*drive.DriveFiles().Open(PhotoPath, OpenMode::Read), thumbnail, size, stop);
  }

  TemporaryDrive drive;
  std::atomic<bool> stop = false;
};

TEST_F(TwinDecoderTest, ATwinShowsWhatTheThumbnailHasNoPixelsFor) {
  // A stripe is a pixel of the twin, and half a pixel of the thumbnail.
  const Bitmap pixels = Striped(800, 600, 5);
  const Bitmap thumbnail = StretchedTo(pixels, ThumbnailSize);
  const Bitmap reference = StretchedTo(pixels, TwinSize);
  const Bitmap twin = TwinOf(JpegOf(pixels, {.quality = 95}), thumbnail);
  EXPECT_GT(Apart(StretchedTo(thumbnail, TwinSize), reference), 40);
  EXPECT_LT(Apart(twin, reference), 20);
}

TEST_F(TwinDecoderTest, BarsStayWhereTheThumbnailHasThem) {
  const Bitmap twin = TwinOf(JpegPhoto(600, 800), [] {
    Bitmap thumbnail = PlainBitmap(80, 60, ButtonFace);
    Stretch(SmoothBitmap(600, 800), thumbnail, 17, 0, 46, 60);
    return thumbnail;
  }());
  ASSERT_EQ(twin.Width(), 160);
  // The photo is 90 of 160 pixels wide.
  const Bitmap face = PlainBitmap(1, 1, ButtonFace);
  for (const int x : {0, 34, 125, 159}) EXPECT_EQ(twin.Row(60)[3 * x], face.Row(0)[0]) << x;
  for (const int x : {35, 124}) EXPECT_NE(twin.Row(60)[3 * x + 2], face.Row(0)[2]) << x;
}

TEST_F(TwinDecoderTest, AShadedThumbnailsTwinIsShaded) {
  const Bitmap pixels = Striped(800, 600, 5);
  Bitmap thumbnail = StretchedTo(pixels, ThumbnailSize);
  Bitmap shaded = TwinOf(JpegOf(pixels), thumbnail);
  DotScreenAs(shaded, ThumbnailSize);
  DotScreen(thumbnail);
  EXPECT_EQ(Apart(TwinOf(JpegOf(pixels), thumbnail), shaded), 0);
}

TEST_F(TwinDecoderTest, APhotoThatLooksDifferentByNowHasNone) {
  const Bitmap thumbnail = StretchedTo(SmoothBitmap(800, 600), ThumbnailSize);
  EXPECT_FALSE(TwinOf(JpegPhoto(800, 600), thumbnail).IsEmpty());
  Bitmap changed = SmoothBitmap(800, 600);
  for (int y = 0; y < 150; ++y) std::fill_n(changed.Row(y), 3 * 200, std::uint8_t{0});
  EXPECT_TRUE(TwinOf(JpegOf(changed), thumbnail).IsEmpty());
  EXPECT_TRUE(TwinOf(JpegPhoto(600, 800), thumbnail).IsEmpty()) << "of another shape";
  // The same is true of what is shaded.
  Bitmap shaded = thumbnail.Clone();
  DotScreen(shaded);
  EXPECT_FALSE(TwinOf(JpegPhoto(800, 600), shaded).IsEmpty());
  EXPECT_TRUE(TwinOf(JpegOf(changed), shaded).IsEmpty());
}

TEST_F(TwinDecoderTest, PicturesOfEveryKindHaveThem) {
  const Bitmap pixels = SmoothBitmap(400, 300);
  const Bitmap thumbnail = StretchedTo(pixels, ThumbnailSize);
  EXPECT_LT(Apart(TwinOf(BmpOf(pixels), thumbnail), StretchedTo(pixels, TwinSize)), 1);
  EXPECT_LT(Apart(TwinOf(JpegOf(pixels, {.progressive = true}), thumbnail), StretchedTo(pixels, TwinSize)), 3);
}

TEST_F(TwinDecoderTest, WhatIsNoPictureRaises) {
  const Bitmap thumbnail = StretchedTo(SmoothBitmap(800, 600), ThumbnailSize);
  EXPECT_EQ(ErrorOf([&] { TwinOf("no picture", thumbnail); }), error::BadPicture);
  EXPECT_EQ(ErrorOf([&] { TwinOf("", thumbnail); }), error::BadPicture);
}

TEST_F(TwinDecoderTest, AFileThatBoastsOfItsSizeIsRefusedBeforeItTakesMemory) {
  if (!MemoryCanBeBounded) GTEST_SKIP();
  const Bitmap thumbnail = PlainBitmap(80, 60, 0);
  drive.Write(PhotoPath, GifOfSize(17000, 17000, -1, OneColourGifData(std::int64_t{17000} * 17000)));
  WithinTwoGigabytes([&] {
    EXPECT_LT(MostTaken([&] { EXPECT_EQ(ErrorOf([&] { TwinOfWritten(thumbnail); }), error::OutOfMemory); }), 16 * MiB);
  });
}

TEST_F(TwinDecoderTest, ALongFileIsNotReadToItsEndForATwinThatIsNotWantedAnyMore) {
  const Bitmap thumbnail = PlainBitmap(80, 60, 0);
  drive.Write(PhotoPath, GifOfSize(8000, 8000, -1, OneColourGifData(std::int64_t{8000} * 8000)));
  stop = true;
  WithinTwoGigabytes([&] { EXPECT_LT(MostTaken([&] { EXPECT_TRUE(TwinOfWritten(thumbnail).IsEmpty()); }), 16 * MiB); });
}

// A photo with a film after it, as telephones leave them.
TEST_F(TwinDecoderTest, APhotoIsReadByPortionsAndNotBeyondItsEnd) {
  constexpr std::size_t FilmBytes = 4'000'000;
  constexpr std::size_t Portion = 128 * 1024;
  const Bitmap pixels = Striped(1600, 1200, 3);
  const Bitmap thumbnail = StretchedTo(pixels, ThumbnailSize);
  for (const bool progressive : {false, true}) {
    SCOPED_TRACE(progressive);
    const std::string photo = JpegOf(pixels, {.quality = 97, .progressive = progressive});
    ASSERT_GT(photo.size(), 2 * Portion);
    WatchedFile file(photo + std::string(FilmBytes, 'f'));
    EXPECT_EQ(Apart(DecodeTwin(file, thumbnail, TwinSize, stop), TwinOf(photo, thumbnail)), 0);
    EXPECT_LE(file.Largest, Portion);
    EXPECT_LE(file.Sum, photo.size() + 3 * Portion);
  }
  WatchedFile bitmap(BmpOf(pixels));
  EXPECT_FALSE(DecodeTwin(bitmap, thumbnail, TwinSize, stop).IsEmpty());
  EXPECT_LE(bitmap.Largest, Portion);
}

TEST_F(TwinDecoderTest, APhotoThatCannotBeReadToItsEndRaises) {
  const Bitmap pixels = Striped(1600, 1200, 3);
  for (const bool progressive : {false, true}) {
    WatchedFile file(JpegOf(pixels, {.quality = 97, .progressive = progressive}));
    file.FailsFrom = 200'000;
    EXPECT_EQ(ErrorOf([&] { DecodeTwin(file, StretchedTo(pixels, ThumbnailSize), TwinSize, stop); }), error::DeviceIO);
  }
}

TEST_F(TwinDecoderTest, ATwinThatIsNotWantedAnyMoreIsNotMade) {
  stop = true;
  const Bitmap pixels = SmoothBitmap(800, 600);
  EXPECT_TRUE(TwinOf(JpegOf(pixels), StretchedTo(pixels, ThumbnailSize)).IsEmpty());
}

// A photo that comes with a small picture; nothing else of it can be read.
class EmbeddedTest : public TwinDecoderTest {
 protected:
  static constexpr PixelSize PhotoSize{800, 600};
  static constexpr int FileBytes = 300'000;

  // Its own pixels are grey from the first row on.
  static std::string Spoilt(const std::string& small, int orientation = 1) {
    std::string file = JpegPhoto(PhotoSize.Width, PhotoSize.Height,
                                 {.exif = true, .exifOrientation = orientation, .thumbnail = small});
    const std::size_t scan = file.rfind("\xFF\xDA");
    file.resize(scan + 14);
    file.resize(FileBytes);
    return file;
  }
  const Bitmap thumbnail = StretchedTo(SmoothBitmap(PhotoSize.Width, PhotoSize.Height), ThumbnailSize);
};

TEST_F(EmbeddedTest, TheCamerasOwnSmallPictureServes) {
  const Bitmap twin = TwinOf(Spoilt(JpegPhoto(160, 120)), thumbnail);
  ASSERT_FALSE(twin.IsEmpty());
  EXPECT_LT(Apart(twin, StretchedTo(SmoothBitmap(160, 120), TwinSize)), 3);
}

TEST_F(EmbeddedTest, ItStandsUprightAsThePhotoDoes) {
  // Turned to the right, as the smooth bitmap is seen by orientation 6.
  Bitmap upright(60, 80, PixelFormat::Bgr24);
  const Bitmap stored = SmoothBitmap(80, 60);
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 60; ++x) std::copy_n(stored.Row(59 - x) + 3 * y, 3, upright.Row(y) + 3 * x);
  }
  Bitmap turned = PlainBitmap(80, 60, ButtonFace);
  Stretch(upright, turned, 17, 0, 46, 60);
  EXPECT_FALSE(TwinOf(Spoilt(JpegPhoto(160, 120), 6), turned).IsEmpty());
  EXPECT_TRUE(TwinOf(Spoilt(JpegPhoto(160, 120), 8), turned).IsEmpty());
}

TEST_F(EmbeddedTest, OneThatIsTooSmallOfAnotherShapeOrOfAnotherPhotoDoesNot) {
  EXPECT_TRUE(TwinOf(Spoilt(JpegPhoto(156, 117)), thumbnail).IsEmpty());
  EXPECT_TRUE(TwinOf(Spoilt(JpegPhoto(160, 120)), thumbnail, {240, 180}).IsEmpty());
  EXPECT_TRUE(TwinOf(Spoilt(JpegPhoto(180, 120)), thumbnail).IsEmpty());
  EXPECT_TRUE(TwinOf(Spoilt(JpegOf(PlainBitmap(160, 120, 0x000000FF))), thumbnail).IsEmpty());
  EXPECT_TRUE(TwinOf(Spoilt("no picture"), thumbnail).IsEmpty());
}

TEST_F(EmbeddedTest, ASmallPictureThatIsNoJpegFileIsNotLookedAt) {
  const auto bytes = [](const std::string& file) {
    return std::span(reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
  };
  for (const std::string& small : {GifPhoto(160, 120), BmpOf(SmoothBitmap(136, 102))}) {
    const Bitmap pixels = DecodePicture(bytes(small));
    EXPECT_TRUE(TwinOf(Spoilt(small), StretchedTo(pixels, {68, 51}), {136, 102}).IsEmpty());
  }
}

TEST_F(EmbeddedTest, ThatOfALargePhotoServesThoughItsBeginningAloneCouldNotHoldSoManyPixels) {
  // The frame header after that of the small picture.
  const auto large = [](std::string file) {
    const std::size_t frame = file.rfind(std::string("\xFF\xC0\0\x11", 4));
    return file.replace(frame + 5, 4, std::string("\x1D\x4C\x27\x10", 4));
  };
  const Bitmap twin = TwinOf(large(Spoilt(JpegPhoto(160, 120))), thumbnail);  // 10,000 x 7,500
  ASSERT_FALSE(twin.IsEmpty());
  EXPECT_LT(Apart(twin, StretchedTo(SmoothBitmap(160, 120), TwinSize)), 3);
}

TEST_F(EmbeddedTest, ThePhotoItselfServesWhereItsSmallPictureDoesNot) {
  for (const std::string& small :
       {JpegPhoto(80, 60), JpegPhoto(180, 120), std::string("no picture"), JpegOf(PlainBitmap(160, 120, 0x000000FF))}) {
    std::string file = JpegPhoto(PhotoSize.Width, PhotoSize.Height, {.exif = true, .thumbnail = small});
    file.resize(std::max<std::size_t>(file.size(), FileBytes));
    EXPECT_FALSE(TwinOf(file, thumbnail).IsEmpty());
  }
}

}  // namespace
}  // namespace pixorra
