// Large bitmap and GIF files, whole and boastful: what their decoders take is what the picture needs, four bytes a
// pixel, wherever the file is.
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "platform/codecs/CodecPictures.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/codecs/BoundedMemory.h"
#include "tests/platform/codecs/SizedGif.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

// Beside four bytes a pixel: what a decoder may take for itself, and what the allocator takes in reserve.
constexpr std::int64_t Beside = 64 * 1024 + 256 * 1024;

void Put(std::string& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> 8 * i & 255);
}

std::string BmpHead(int width, int height, unsigned bits, unsigned coding) {
  const unsigned palette = bits <= 8 ? 4U << bits : 0;
  std::string out = "BM";
  for (const unsigned field : {0U, 0U, 54 + palette, 40U, static_cast<unsigned>(width), static_cast<unsigned>(height)})
    Put(out, field, 4);
  Put(out, 1, 2);
  Put(out, bits, 2);
  for (const unsigned field : {coding, 0U, 0U, 0U, 0U, 0U}) Put(out, field, 4);
  for (unsigned i = 0; i < palette; ++i) out += static_cast<char>(200 - i % 4);
  return out;
}

// Codes of 9 bits, 250 colours after each clear code, `times` times 250 x 8 pixels.
std::string GifData(int times, bool transparentAtTheEnd) {
  std::string unit;
  unsigned window = 0, held = 0;
  const auto put = [&](unsigned code) {
    window |= code << held;
    for (held += 9; held >= 8; held -= 8, window >>= 8) unit += static_cast<char>(window & 255);
  };
  for (unsigned clear = 0; clear < 8; ++clear) {
    put(256);
    for (unsigned i = 0; i < 250; ++i) put(i);
  }
  std::string data, out;
  for (int i = 0; i < times; ++i) data += unit;
  if (transparentAtTheEnd) data.back() = '\0';
  for (std::size_t at = 0; at < data.size(); at += 255) {
    const std::size_t length = std::min<std::size_t>(255, data.size() - at);
    out += static_cast<char>(length);
    out.append(data, at, length);
  }
  return out + '\0';
}

class LargePicturesTest : public ::testing::Test {
 protected:
  // `length`: of a sparse file, with zeros after the bytes; 0 for no more than these.
  void Write(const std::string& bytes, std::int64_t length = 0) {
    drive.Write(File, bytes);
    if (length > 0) std::filesystem::resize_file(drive.HostPath(File), static_cast<std::uintmax_t>(length));
  }
  // Loads the file within the bound; `look` sees the picture.
  void ExpectShown(int width, int height, const std::function<void(const Bitmap&)>& look) {
    WithinTwoGigabytes([&] {
      Picture picture;
      int number = error::None;
      const std::int64_t taken = MostTaken([&] { number = ErrorsIgnored([&] { picture = pictures.Load(File); }); });
      ASSERT_EQ(number, error::None);
      EXPECT_LE(taken, std::int64_t{width} * height * 4 + Beside);
      ASSERT_EQ(picture.Width(), width);
      ASSERT_EQ(picture.Height(), height);
      look(picture.Pixels());
    });
  }
  void ExpectRefused(int wanted) {
    WithinTwoGigabytes([&] {
      int number = error::None;
      const std::int64_t taken = MostTaken([&] { number = ErrorsIgnored([&] { pictures.Load(File); }); });
      EXPECT_EQ(number, wanted);
      EXPECT_LE(taken, Beside);
    });
  }

  static constexpr const char* File = "C:\\large";
  TemporaryDrive drive;
  CodecPictures pictures{drive.DriveFiles()};
};

TEST_F(LargePicturesTest, AnImageOfManyMegapixelsInAFewKilobytesIsShown) {
  constexpr int Width = 4000, Height = 3000;
  Write(GifOfSize(Width, Height, 9, OneColourGifData(std::int64_t{Width} * Height)));
  ExpectShown(Width, Height, [](const Bitmap& bitmap) {
    EXPECT_EQ(bitmap.Format(), PixelFormat::Bgr24);
    EXPECT_EQ(bitmap.Row(Height - 1)[(Width - 1) * 3 + 2], 7);
  });
}

TEST_F(LargePicturesTest, AnImageWhoseDataIsAsLongAsItsPixelsTakesNothingForThatData) {
  for (const int transparent : {-1, 0}) {
    Write(GifOfSize(2000, 2000, transparent, GifData(2000, transparent >= 0)));
    ExpectShown(2000, 2000, [&](const Bitmap& bitmap) {
      EXPECT_EQ(bitmap.Format(), transparent < 0 ? PixelFormat::Bgr24 : PixelFormat::Bgra32);
      EXPECT_EQ(bitmap.Row(1999)[1998 * bitmap.BytesPerPixel() + 2], 248);
    });
  }
}

TEST_F(LargePicturesTest, AnImageThatEndsAfterItsFirstPixelsTouchesOnlyThese) {
  if (!MemoryCanBeBounded) GTEST_SKIP();
  Write(GifOfSize(4000, 4000, -1, GifData(1, false)));
  WithinTwoGigabytes([&] {
    const std::int64_t before = OwnMemory("VmRSS");
    const Picture picture = pictures.Load(File);
    EXPECT_EQ(picture.Width(), 4000);
    EXPECT_LE(OwnMemory("VmHWM") - before, 2 * MiB);
  });
}

TEST_F(LargePicturesTest, ABitmapIsReadRowByRow) {
  constexpr int Width = 20000;
  for (const unsigned bits : {24U, 32U}) {
    const int height = bits == 24 ? 15000 : 2000;
    std::string head = BmpHead(Width, height, bits, 0);
    head += '\x63';
    Write(head, std::int64_t{Width} * height * bits / 8 + 54);
    ExpectShown(Width, height, [&](const Bitmap& bitmap) { EXPECT_EQ(bitmap.Row(height - 1)[0], 0x63); });
  }
}

TEST_F(LargePicturesTest, ABitmapInRunsIsDrawnWithoutACopyOfItsPixels) {
  constexpr int Width = 2550, Height = 2000;
  std::string runs;
  for (int i = 0; i < Width / 255; ++i) runs += "\xFF\x05";
  runs += std::string("\0\0", 2);
  std::string bytes = BmpHead(Width, Height, 8, 1);
  for (int y = 0; y < Height; ++y) bytes += runs;
  Write(bytes);
  ExpectShown(Width, Height, [](const Bitmap& bitmap) { EXPECT_EQ(bitmap.Row(0)[(Width - 1) * 3], 200); });
}

TEST_F(LargePicturesTest, ALargeBitmapWhoseRunsSkipSomeRowsIsShown) {
  constexpr int Width = 5100, Height = 4000;
  std::string runs;
  for (int i = 0; i < Width / 255; ++i) runs += "\xFF\x05";
  runs += std::string("\0\0", 2) + std::string("\0\2\0\2", 4);
  std::string bytes = BmpHead(Width, Height, 8, 1);
  for (int y = 0; y < Height; y += 3) bytes += runs;
  Write(bytes);
  ExpectShown(Width, Height, [](const Bitmap& bitmap) { EXPECT_EQ(bitmap.Row(0)[(Width - 1) * 3], 200); });
}

TEST_F(LargePicturesTest, ASmallBitmapInALongFileCostsNoMoreThanASmallOne) {
  Write(BmpPhoto(400, 300), 1500 * MiB);
  ExpectShown(400, 300, [](const Bitmap& bitmap) { EXPECT_EQ(bitmap.Row(0)[399 * 3], 255); });
}

TEST_F(LargePicturesTest, MoreThan300MegapixelsAreRefusedBeforeAnythingIsTaken) {
  constexpr int Width = 20000, Height = 15001;
  Write(BmpHead(Width, Height, 24, 0), std::int64_t{Width} * Height * 3 + 54);
  ExpectRefused(error::OutOfMemory);
  Write(GifOfSize(Width, Height, -1, OneColourGifData(std::int64_t{Width} * Height)));
  ExpectRefused(error::OutOfMemory);
}

TEST_F(LargePicturesTest, AHeaderThatBoastsIsRefusedForLittle) {
  Write(BmpHead(20000, 15000, 24, 0), 600 * 1024);  // one pixel in a thousand
  ExpectRefused(error::BadPicture);
  Write(GifOfSize(4000, 4000, -1, std::string("\x01\x40\0", 3)));  // not a pixel
  ExpectRefused(error::BadPicture);
  Write(BmpHead(4000, 4000, 8, 1) + std::string("\0\1", 2));
  ExpectRefused(error::BadPicture);
  const std::string head = BmpHead(20000, 15000, 8, 1);
  Write(head + std::string("\1\1\0\1", 4), 600 * 1024);  // one pixel, and the end
  ExpectRefused(error::BadPicture);
  std::string skipping = head + "\1\1";
  for (int i = 0; i < 60; ++i) skipping += std::string("\0\2\0\xFF", 4);
  Write(skipping, 600 * 1024);  // one pixel, and on to the last row
  ExpectRefused(error::BadPicture);
}

}  // namespace
}  // namespace pixorra
