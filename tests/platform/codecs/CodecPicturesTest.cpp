// Picture files loaded by their first bytes, and the bitmap files that are written.
#include <gtest/gtest.h>

#include "platform/codecs/CodecPictures.h"
#include "platform/runtime/Errors.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

class CodecPicturesTest : public ::testing::Test {
 protected:
  Picture LoadOf(const std::string& bytes) {
    drive.Write("C:\\file", bytes);
    return pictures.Load("C:\\file");
  }
  int ErrorOf(const std::string& bytes) {
    return ErrorsIgnored([&] { LoadOf(bytes); });
  }

  TemporaryDrive drive;
  CodecPictures pictures{drive.DriveFiles()};
};

void ExpectSamePixels(const Bitmap& actual, const Bitmap& expected, int within) {
  ASSERT_EQ(actual.Width(), expected.Width());
  ASSERT_EQ(actual.Height(), expected.Height());
  for (int y = 0; y < expected.Height(); ++y) {
    for (int i = 0; i < expected.Width() * 3; ++i)
      ASSERT_NEAR(actual.Row(y)[i], expected.Row(y)[i], within) << y << ' ' << i;
  }
}

TEST_F(CodecPicturesTest, TheThreeKindsAreToldByTheirFirstBytes) {
  const Bitmap photo = SmoothBitmap(40, 30);
  ExpectSamePixels(LoadOf(JpegOf(photo, {.quality = 100, .fullColour = true})).Pixels(), photo, 4);
  ExpectSamePixels(LoadOf(JpegOf(photo, {.quality = 100, .fullColour = true, .noName = true})).Pixels(), photo, 4);
  ExpectSamePixels(LoadOf(JpegOf(photo, {.channels = 4, .quality = 100})).Pixels(), photo, 4);
  ExpectSamePixels(LoadOf(BmpOf(photo)).Pixels(), photo, 0);
  EXPECT_EQ(LoadOf(GifPhoto(12, 5)).Width(), 12);
}

TEST_F(CodecPicturesTest, APhotoComesUpright) {
  for (int orientation = 1; orientation <= 8; ++orientation) {
    const Picture picture = LoadOf(JpegPhoto(40, 30, {.exif = true, .exifOrientation = orientation}));
    EXPECT_EQ(picture.Width(), orientation < 5 ? 40 : 30) << orientation;
    EXPECT_EQ(picture.Height(), orientation < 5 ? 30 : 40) << orientation;
  }
}

TEST_F(CodecPicturesTest, WhatIsNoPictureIsError481) {
  for (const std::string& bytes : {std::string(), std::string("B"), std::string("a text file"), std::string("\xFF\xD8"),
                                   std::string("BM"), std::string("GIF"), std::string(1000, '\0')}) {
    EXPECT_EQ(ErrorOf(bytes), error::BadPicture);
  }
  EXPECT_EQ(ErrorOf(WithJpegSize(JpegPhoto(16, 16), 30000, 30000)), error::BadPicture);
}

TEST_F(CodecPicturesTest, ASizeThatNoBlockCanHaveIsALackOfMemory) {
  // Backed by its length, were it all codes.
  const std::string jpeg = WithJpegSize(JpegPhoto(16, 16, {.channels = 1}), 60000, 60000);
  EXPECT_EQ(ErrorOf(jpeg + std::string(8'000'000, '\0')), error::OutOfMemory);
}

TEST_F(CodecPicturesTest, FilesThatCannotBeReadRaiseTheirOwnErrors) {
  EXPECT_EQ(ErrorsIgnored([&] { pictures.Load("C:\\missing.jpg"); }), error::FileNotFound);
  drive.Write("C:\\a.jpg", JpegPhoto(8, 8));
  FaultyFiles files(drive.DriveFiles());
  CodecPictures faulty(files);
  files.FailNth(FileCall::OpenToRead, 1, error::PathAccess);
  EXPECT_EQ(ErrorsIgnored([&] { faulty.Load("C:\\a.jpg"); }), error::PathAccess);
  files.FailNth(FileCall::Read, 2, error::DeviceIO);
  EXPECT_EQ(ErrorsIgnored([&] { faulty.Load("C:\\a.jpg"); }), error::DeviceIO);
}

TEST_F(CodecPicturesTest, AThumbnailIsWrittenAsExactly14454Bytes) {
  const Bitmap photo = SmoothBitmap(80, 60);
  pictures.Save(Picture(photo.Clone()), "C:\\thumb");
  const std::string bytes = drive.Read("C:\\thumb");
  EXPECT_EQ(bytes.size(), 14454U);
  EXPECT_EQ(bytes, BmpOf(photo));
}

TEST_F(CodecPicturesTest, SavedRowsArePaddedWithZerosAndLoadAsTheyWere) {
  for (int width = 1; width <= 5; ++width) {
    const Bitmap photo = SmoothBitmap(width, 3);
    pictures.Save(Picture(photo.Clone()), "C:\\saved");
    EXPECT_EQ(drive.Read("C:\\saved"), BmpOf(photo));
    ExpectSamePixels(pictures.Load("C:\\saved").Pixels(), photo, 0);
  }
}

TEST_F(CodecPicturesTest, SavingReplacesALongerFileWhole) {
  drive.Write("C:\\saved", std::string(100'000, 'x'));
  pictures.Save(Picture(SmoothBitmap(2, 2)), "C:\\saved");
  EXPECT_EQ(drive.Read("C:\\saved").size(), 54U + 16U);
}

TEST_F(CodecPicturesTest, TransparentPixelsAreSavedOverWhite) {
  Bitmap clear(2, 1, PixelFormat::Bgra32);
  const std::array<std::uint8_t, 8> pixels{0, 0, 0, 0, 0, 64, 128, 128};
  std::copy(pixels.begin(), pixels.end(), clear.Row(0));
  pictures.Save(Picture(std::move(clear)), "C:\\saved");
  const std::string row = drive.Read("C:\\saved").substr(54);
  EXPECT_EQ(row, std::string("\xFF\xFF\xFF\x7F\xBF\xFF\0\0", 8));
}

TEST_F(CodecPicturesTest, WhatIsSavedAndLoadedAtOnceIsWhatTheFileHolds) {
  Bitmap shaded(3, 2, PixelFormat::Bgra32);
  for (int y = 0; y < 2; ++y) {
    for (int i = 0; i < 12; ++i) shaded.Row(y)[i] = static_cast<std::uint8_t>(i % 4 == 3 ? 128 : 10 * i);
  }
  for (const Picture& picture :
       {Picture(SmoothBitmap(81, 60)), Picture(std::move(shaded)), Picture(SmoothBitmap(5, 4), "Logo")}) {
    const Picture loaded = pictures.SaveAndLoad(picture, "C:\\saved");
    EXPECT_EQ(loaded.Pixels().Format(), PixelFormat::Bgr24);
    EXPECT_EQ(loaded.ArtName(), "");
    ExpectSamePixels(loaded.Pixels(), pictures.Load("C:\\saved").Pixels(), 0);
    const std::vector<std::uint8_t> bytes = pictures.BitmapFile(picture);
    EXPECT_EQ(drive.Read("C:\\saved"), std::string(bytes.begin(), bytes.end()));
    ExpectSamePixels(pictures.FromBytes(bytes).Pixels(), loaded.Pixels(), 0);
  }
}

TEST_F(CodecPicturesTest, SavingNothingIsError380AndFileErrorsTravel) {
  EXPECT_EQ(ErrorsIgnored([&] { pictures.Save(Picture(), "C:\\none"); }), error::BadPropertyValue);
  EXPECT_EQ(ErrorsIgnored([&] { pictures.SaveAndLoad(Picture(), "C:\\none"); }), error::BadPropertyValue);
  EXPECT_EQ(ErrorsIgnored([&] { pictures.BitmapFile(Picture()); }), error::BadPropertyValue);
  EXPECT_FALSE(drive.Exists("C:\\none"));
  FaultyFiles files(drive.DriveFiles());
  CodecPictures faulty(files);
  files.FillDiskAfter(1000);
  EXPECT_EQ(ErrorsIgnored([&] { faulty.Save(Picture(SmoothBitmap(80, 60)), "C:\\full"); }), error::DiskFull);
  EXPECT_EQ(ErrorsIgnored([&] { faulty.SaveAndLoad(Picture(SmoothBitmap(8, 6)), "C:\\full"); }), error::DiskFull);
}

}  // namespace
}  // namespace pixorra
