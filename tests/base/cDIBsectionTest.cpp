// The bitmap surface: its description, its life, and what is copied into and out of it.
#include <algorithm>
#include <array>
#include <climits>
#include <gtest/gtest.h>

#include "base/cDIBsection.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

using Pixel = std::array<int, 3>;

// (x, y) from the top left, as a person sees it; the rows lie bottom-up.
const std::uint8_t* PixelOf(const cDIBsection& surface, int x, int y) {
  return surface.DIBSectionBitsPtr() + (surface.dib_height() - 1 - y) * surface.BytesPerScanLine() +
         x * surface.dib_channels();
}

Pixel At(const cDIBsection& surface, int x, int y) {
  const std::uint8_t* p = PixelOf(surface, x, y);
  return {p[0], p[1], p[2]};
}

Pixel At(const Bitmap& bitmap, int x, int y) {
  const std::uint8_t* p = bitmap.Row(y) + x * bitmap.BytesPerPixel();
  return {p[0], p[1], p[2]};
}

void ExpectEmpty(const cDIBsection& surface) {
  EXPECT_EQ(surface.hDC(), 0U);
  EXPECT_EQ(surface.hDib(), 0U);
  EXPECT_EQ(surface.DIBSectionBitsPtr(), nullptr);
}

TEST(cDIBsection, CreateWith3ChannelsPadsTheRowsTo4Bytes) {
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(1, 2, 3));
  EXPECT_EQ(surface.BytesPerScanLine(), 4);
  ASSERT_TRUE(surface.Create(4, 2, 3));
  EXPECT_EQ(surface.BytesPerScanLine(), 12);
  EXPECT_NE(surface.hDC(), 0U);
  EXPECT_NE(surface.hDib(), 0U);
}

TEST(cDIBsection, CreateWith4Or0ChannelsGives32Bits) {
  cDIBsection surface;
  for (const int channels : {4, 0, 1, -1}) {
    ASSERT_TRUE(surface.Create(5, 5, channels));
    EXPECT_EQ(surface.Info().bmiHeader.biBitCount, 32);
    EXPECT_EQ(surface.dib_channels(), 4);
    EXPECT_EQ(surface.BytesPerScanLine(), 20);
  }
}

TEST(cDIBsection, CreateFillsTheDescriptionAndClearsThePixels) {
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(7, 3, 3));
  const BITMAPINFOHEADER& header = surface.Info().bmiHeader;
  EXPECT_EQ(header.biSize, 40);
  EXPECT_EQ(header.biWidth, 7);
  EXPECT_EQ(header.biHeight, 3);
  EXPECT_EQ(header.biPlanes, 1);
  EXPECT_EQ(header.biBitCount, 24);
  EXPECT_EQ(header.biCompression, 0);
  EXPECT_EQ(header.biSizeImage, 72);
  EXPECT_EQ(header.biClrUsed, 0);
  EXPECT_EQ(header.biClrImportant, 0);
  EXPECT_TRUE(
      std::all_of(surface.DIBSectionBitsPtr(), surface.DIBSectionBitsPtr() + 72, [](auto b) { return b == 0; }));
}

TEST(cDIBsection, HeightIsPositiveAfterCreateAndChannelsAre0AfterCleanUp) {
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(10, 6, 3));
  EXPECT_EQ(surface.dib_width(), 10);
  EXPECT_EQ(surface.dib_height(), 6);
  EXPECT_EQ(surface.dib_channels(), 3);
  surface.CleanUp();
  EXPECT_EQ(surface.dib_width(), 0);
  EXPECT_EQ(surface.dib_height(), 0);
  EXPECT_EQ(surface.dib_channels(), 0);
  EXPECT_EQ(surface.Info().bmiHeader.biSize, 40);
  EXPECT_EQ(surface.Info().bmiHeader.biPlanes, 0);
  ExpectEmpty(surface);
}

TEST(cDIBsection, CleanUpTwiceInARowDoesNothingTheSecondTime) {
  cDIBsection surface;
  EXPECT_EQ(surface.Info().bmiHeader.biSize, 0);  // a new one is all zero
  ASSERT_TRUE(surface.Create(10, 6, 3));
  surface.CleanUp();
  surface.CleanUp();
  ExpectEmpty(surface);
  EXPECT_EQ(surface.Info().bmiHeader.biSize, 40);
  EXPECT_TRUE(surface.Create(2, 2, 3));
}

TEST(cDIBsection, SizesBelow1MakeNoSurface) {
  cDIBsection surface;
  for (const auto& [w, h] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {5, -1}}) {
    ASSERT_TRUE(surface.Create(3, 3, 3));
    EXPECT_FALSE(surface.Create(w, h, 3));
    ExpectEmpty(surface);
  }
}

TEST(cDIBsection, WhatLeaves32BitsIsError6AndMakesNoSurface) {
  cDIBsection surface;
  // The row itself, then the block of rows.
  for (const auto& [w, h] : {std::pair{800'000'000, 1}, {30000, 30000}, {INT32_MAX, 1}}) {
    EXPECT_EQ(ErrorsIgnored([&] { surface.Create(w, h, 3); }), error::Overflow) << w << 'x' << h;
    ExpectEmpty(surface);
  }
  EXPECT_EQ(ErrorsIgnored([&] { surface.BytesPerScanLine(); }), error::Overflow);  // the description stayed
  surface.CleanUp();
  EXPECT_EQ(surface.BytesPerScanLine(), 0);
}

TEST(cDIBsection, CreateFromPictureCopiesThePicture) {
  const Bitmap photo = SmoothBitmap(13, 7);
  cDIBsection surface;
  surface.CreateFromPicture(Picture(photo.Clone()));
  ASSERT_EQ(surface.dib_width(), 13);
  ASSERT_EQ(surface.dib_height(), 7);
  EXPECT_EQ(surface.dib_channels(), 3);
  for (int y = 0; y < 7; ++y) {
    for (int x = 0; x < 13; ++x) ASSERT_EQ(At(surface, x, y), At(photo, x, y));
  }
}

TEST(cDIBsection, CreateFromATransparentPictureLaysItOverWhite) {
  Bitmap clear(2, 1, PixelFormat::Bgra32);
  const std::array<std::uint8_t, 8> pixels{0, 0, 0, 0, 9, 8, 7, 255};
  std::copy(pixels.begin(), pixels.end(), clear.Row(0));
  cDIBsection surface;
  surface.CreateFromPicture(Picture(std::move(clear)));
  EXPECT_EQ(At(surface, 0, 0), (Pixel{255, 255, 255}));
  EXPECT_EQ(At(surface, 1, 0), (Pixel{9, 8, 7}));
}

TEST(cDIBsection, CreateFromNothingTellsOfItInTheSurfaceAlone) {
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(3, 3, 3));
  surface.CreateFromPicture(Picture());
  ExpectEmpty(surface);
  EXPECT_EQ(surface.dib_width(), 0);
}

TEST(cDIBsection, CopyingWithWidthAndHeightMinus1CopiesTheWholeSurface) {
  Bitmap photo = SmoothBitmap(9, 5);
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(9, 5, 3));
  surface.LoadPictureBlt(photo, 0, 0, -1, -1);
  Bitmap out = PlainBitmap(9, 5, 0);
  surface.PaintPicture(out, 0, 0, -1, -1);
  for (int y = 0; y < 5; ++y) {
    for (int x = 0; x < 9; ++x) {
      ASSERT_EQ(At(surface, x, y), At(photo, x, y));
      ASSERT_EQ(At(out, x, y), At(photo, x, y));
    }
  }
}

TEST(cDIBsection, CopyingAPartTakesItFromItsPlace) {
  Bitmap photo = SmoothBitmap(9, 5);
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(4, 4, 3));
  surface.LoadPictureBlt(photo, 2, 1, 3, 2);
  EXPECT_EQ(At(surface, 0, 0), At(photo, 2, 1));
  EXPECT_EQ(At(surface, 2, 1), At(photo, 4, 2));
  EXPECT_EQ(At(surface, 3, 0), (Pixel{0, 0, 0}));
  EXPECT_EQ(At(surface, 0, 2), (Pixel{0, 0, 0}));

  Bitmap out = PlainBitmap(6, 6, 0x777777);
  surface.PaintPicture(out, 3, 4, 2, 1, 1, 1);
  EXPECT_EQ(At(out, 3, 4), At(surface, 1, 1));
  EXPECT_EQ(At(out, 4, 4), At(surface, 2, 1));
  EXPECT_EQ(At(out, 5, 4), (Pixel{0x77, 0x77, 0x77}));
  EXPECT_EQ(At(out, 3, 5), (Pixel{0x77, 0x77, 0x77}));
}

TEST(cDIBsection, CopiesAreCutToBothSides) {
  Bitmap photo = SmoothBitmap(9, 5);
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(4, 4, 3));
  surface.LoadPictureBlt(photo, 7, 3, 100, 100);
  EXPECT_EQ(At(surface, 1, 1), At(photo, 8, 4));
  EXPECT_EQ(At(surface, 2, 1), (Pixel{0, 0, 0}));
  surface.LoadPictureBlt(photo, -3, -3, INT32_MAX, INT32_MAX);
  EXPECT_EQ(At(surface, 3, 3), At(photo, 0, 0));
  surface.LoadPictureBlt(photo, INT32_MAX, INT32_MIN, 5, 5);
  Bitmap out = PlainBitmap(3, 3, 0);
  surface.PaintPicture(out, -2, -2, 50, 50, 1, 1);
  EXPECT_EQ(At(out, 0, 0), At(surface, 3, 3));
  surface.PaintPicture(out, 50, 50);
  cDIBsection none;
  none.PaintPicture(out);
  none.LoadPictureBlt(out);
  surface.LoadPictureBlt(none);
  EXPECT_EQ(At(out, 0, 0), At(surface, 3, 3));
}

TEST(cDIBsection, SurfacesOf24And32BitsCopyIntoEachOther) {
  Bitmap photo = SmoothBitmap(3, 3);
  cDIBsection deep;
  ASSERT_TRUE(deep.Create(3, 3, 4));
  deep.LoadPictureBlt(photo);
  EXPECT_EQ(At(deep, 2, 1), At(photo, 2, 1));
  EXPECT_EQ(PixelOf(deep, 2, 1)[3], 255);
  cDIBsection flat;
  ASSERT_TRUE(flat.Create(3, 3, 3));
  deep.PaintPicture(flat);
  EXPECT_EQ(At(flat, 2, 1), At(photo, 2, 1));
}

TEST(cDIBsection, OtherRasterOperationsCopyNothing) {
  Bitmap photo = SmoothBitmap(3, 3);
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(3, 3, 3));
  surface.LoadPictureBlt(photo, 0, 0, -1, -1, 0x42);
  EXPECT_EQ(At(surface, 0, 0), (Pixel{0, 0, 0}));
}

TEST(cDIBsection, PaintPictureStretchFillsTheRectangle) {
  cDIBsection surface;
  ASSERT_TRUE(surface.Create(2, 2, 3));
  Bitmap colours = PlainBitmap(2, 2, 0x102030);
  surface.LoadPictureBlt(colours);
  Bitmap out = PlainBitmap(8, 8, 0);
  surface.PaintPictureStretch(out, 2, 3, 4, 5);
  EXPECT_EQ(At(out, 2, 3), (Pixel{0x10, 0x20, 0x30}));
  EXPECT_EQ(At(out, 5, 7), (Pixel{0x10, 0x20, 0x30}));
  EXPECT_EQ(At(out, 6, 7), (Pixel{0, 0, 0}));
  EXPECT_EQ(At(out, 5, 2), (Pixel{0, 0, 0}));
}

TEST(cDIBsection, LoadMakesA24BitSurfaceOfAnyBitmapFile) {
  TemporaryDrive drive;
  CodecPictures pictures(drive.DriveFiles());
  drive.Write("C:\\a.bmp", BmpPhoto(6, 4));
  cDIBsection surface;
  ASSERT_TRUE(surface.Load(pictures, "C:\\a.bmp"));
  EXPECT_EQ(surface.dib_channels(), 3);
  EXPECT_EQ(surface.Info().bmiHeader.biSizeImage, 80);
  EXPECT_EQ(At(surface, 5, 0), At(SmoothBitmap(6, 4), 5, 0));
  EXPECT_FALSE(surface.Load(pictures, "C:\\missing.bmp"));
  ExpectEmpty(surface);
}

}  // namespace
}  // namespace pixorra
