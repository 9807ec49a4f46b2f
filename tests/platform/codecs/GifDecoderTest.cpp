// GIF files: the first image, its transparency, and damaged ones.
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/codecs/GifCodes.h"
#include "platform/codecs/GifDecoder.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

using Pixel = std::array<int, 4>;  // blue, green, red, alpha

Bitmap Decode(const std::string& bytes) {
  const std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());  // so that a read beyond the end is seen
  return DecodeGif(copy);
}

int ErrorOf(const std::string& bytes) {
  return ErrorsIgnored([&] { Decode(bytes); });
}

Pixel At(const Bitmap& bitmap, int x, int y) {
  const std::uint8_t* p = bitmap.Row(y) + x * bitmap.BytesPerPixel();
  return {p[0], p[1], p[2], bitmap.Format() == PixelFormat::Bgra32 ? p[3] : 255};
}

// The colours of the test files' palette.
Pixel ColourOf(int index) {
  return {index / 2, 255 - index, index, 255};
}

constexpr Pixel Nothing{0, 0, 0, 0};

std::uint8_t PhotoIndex(int x, int y) {
  return static_cast<std::uint8_t>((x + y * 3) & 255);
}

std::string Chars(std::initializer_list<int> bytes) {
  std::string out;
  for (const int byte : bytes) out += static_cast<char>(byte);
  return out;
}

// A file of 2 by 2 pixels with 4 colours: black, blue, green, red. `image` is what follows the palette.
std::string SmallGif(const std::string& image, int width = 2, int height = 2) {
  return "GIF89a" + Chars({width & 255, width >> 8, height & 255, height >> 8, 0x81, 0, 0}) +
         Chars({0, 0, 0, 0, 0, 255, 0, 255, 0, 255, 0, 0}) + image;
}

// An image of 2 by 2 pixels at (x, y): blue, green, red, black.
std::string SmallImage(int x = 0, int y = 0) {
  // Codes of 3 bits, 4 once the dictionary has 8 entries: clear, 1, 2, 3, 0, end.
  return Chars({0x2C, x & 255, x >> 8, y & 255, y >> 8, 2, 0, 2, 0, 0, 2, 3, 0x8C, 0x06, 0x05, 0});
}

TEST(GifDecoder, TheImageWithItsPalette) {
  const Bitmap bitmap = Decode(GifPhoto(50, 40));
  ASSERT_EQ(bitmap.Width(), 50);
  ASSERT_EQ(bitmap.Height(), 40);
  EXPECT_EQ(bitmap.Format(), PixelFormat::Bgr24);
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 50; ++x) ASSERT_EQ(At(bitmap, x, y), ColourOf(PhotoIndex(x, y)));
  }
}

TEST(GifDecoder, InterlacedRowsAreSorted) {
  for (const int height : {1, 2, 3, 5, 8, 9, 40}) {
    const Bitmap bitmap = Decode(GifPhoto(6, height, {.interlaced = true}));
    for (int y = 0; y < height; ++y) ASSERT_EQ(At(bitmap, 5, y), ColourOf(PhotoIndex(5, y))) << height;
  }
}

TEST(GifDecoder, TheTransparentColourIsAlpha) {
  const Bitmap bitmap = Decode(GifPhoto(10, 2, {.transparent = 4}));
  EXPECT_EQ(bitmap.Format(), PixelFormat::Bgra32);
  EXPECT_EQ(At(bitmap, 4, 0), Nothing);
  EXPECT_EQ(At(bitmap, 5, 0), ColourOf(5));
  EXPECT_EQ(At(bitmap, 1, 1), Nothing);
  // One that no pixel has makes no alpha.
  EXPECT_EQ(Decode(GifPhoto(10, 2, {.transparent = 200})).Format(), PixelFormat::Bgr24);
}

TEST(GifDecoder, AnImageBesideTheScreensCornerLeavesTheRestOpen) {
  const Bitmap bitmap = Decode(SmallGif(SmallImage(1, 1) + ";", 4, 3));
  ASSERT_EQ(bitmap.Width(), 4);
  ASSERT_EQ(bitmap.Height(), 3);
  EXPECT_EQ(At(bitmap, 0, 0), Nothing);
  EXPECT_EQ(At(bitmap, 1, 1), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(At(bitmap, 2, 1), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(At(bitmap, 1, 2), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(At(bitmap, 3, 2), Nothing);
}

TEST(GifDecoder, AnImageThatLeavesTheScreenIsCut) {
  const Bitmap bitmap = Decode(SmallGif(SmallImage(1, 1) + ";"));
  EXPECT_EQ(At(bitmap, 1, 1), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(At(bitmap, 0, 0), Nothing);
  const Bitmap outside = Decode(SmallGif(SmallImage(500, 500) + ";"));
  EXPECT_EQ(At(outside, 1, 1), Nothing);
}

TEST(GifDecoder, OnlyTheFirstImageIsShown) {
  std::string second = SmallImage();
  second[11] = Chars({0x44})[0];
  const Bitmap bitmap = Decode(SmallGif(SmallImage() + second + ";"));
  EXPECT_EQ(At(bitmap, 0, 0), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(At(bitmap, 1, 1), (Pixel{0, 0, 0, 255}));
}

TEST(GifDecoder, ExtensionsArePassedOverAndTheImagesOwnPaletteGoesFirst) {
  const std::string comment = Chars({0x21, 0xFE, 3}) + "abc" + Chars({2}) + "de" + Chars({0});
  std::string image = SmallImage();
  image[9] = Chars({0x81})[0];
  image.insert(10, Chars({9, 9, 9, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
  const Bitmap bitmap = Decode(SmallGif(comment + image + ";"));
  EXPECT_EQ(At(bitmap, 0, 0), (Pixel{3, 2, 1, 255}));
  EXPECT_EQ(At(bitmap, 1, 1), (Pixel{9, 9, 9, 255}));
}

TEST(GifDecoder, ACutFileShowsWhatItHasAndLeavesTheRestOpen) {
  const std::string whole = GifPhoto(50, 40);
  const Bitmap bitmap = Decode(whole.substr(0, whole.size() / 2 + 390));
  EXPECT_EQ(bitmap.Format(), PixelFormat::Bgra32);
  EXPECT_EQ(At(bitmap, 49, 0), ColourOf(PhotoIndex(49, 0)));
  EXPECT_EQ(At(bitmap, 49, 39), Nothing);
}

TEST(GifDecoder, ACodeThatDoesNotExistLeavesTheRestOpen) {
  std::string image = SmallImage();
  image.replace(12, 2, Chars({0xCC, 0x01}));  // clear, 1, 7: nothing has been given the code 7
  const Bitmap bitmap = Decode(SmallGif(image + ";"));
  EXPECT_EQ(bitmap.Format(), PixelFormat::Bgra32);
  EXPECT_EQ(At(bitmap, 0, 0), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(At(bitmap, 1, 0), Nothing);
  EXPECT_EQ(At(bitmap, 0, 1), Nothing);
  EXPECT_EQ(At(bitmap, 1, 1), Nothing);
}

TEST(GifDecoder, EveryCutAndEveryChangedByteIsMetWithoutHarm) {
  for (const std::string& whole :
       {GifPhoto(7, 9, {.transparent = 3, .interlaced = true}), SmallGif(SmallImage() + ";")}) {
    for (std::size_t at = 0; at < whole.size(); ++at) {
      for (const int flip : {0x01, 0x40, 0x80, 0xFF}) {
        std::string changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ flip);
        const int number = ErrorOf(changed);
        EXPECT_TRUE(number == 0 || number == error::BadPicture) << at << ": " << number;
      }
      const int number = ErrorOf(whole.substr(0, at));
      EXPECT_TRUE(number == 0 || number == error::BadPicture) << at << ": " << number;
    }
  }
}

TEST(GifDecoder, WhatHasNoImageIsRefused) {
  EXPECT_EQ(ErrorOf("GIF89a"), error::BadPicture);
  EXPECT_EQ(ErrorOf(SmallGif(";")), error::BadPicture);
  EXPECT_EQ(ErrorOf(SmallGif("")), error::BadPicture);
  std::string noPixels = SmallImage();
  noPixels[10] = Chars({12})[0];  // no such code size
  EXPECT_EQ(ErrorOf(SmallGif(noPixels)), error::BadPicture);
  std::string noWidth = SmallImage();
  noWidth[5] = '\0';
  EXPECT_EQ(ErrorOf(SmallGif(noWidth)), error::BadPicture);
}

TEST(GifDecoder, SizesThatTheBytesCannotBackAreRefused) {
  EXPECT_EQ(ErrorOf(SmallGif(SmallImage() + ";", 65535, 65535)), error::BadPicture);
  std::string large = SmallImage();
  for (const std::size_t at : {5U, 6U, 7U, 8U}) large[at] = Chars({255})[0];
  EXPECT_EQ(ErrorOf(SmallGif(large + ";")), error::BadPicture);
  EXPECT_EQ(Decode(SmallGif(SmallImage() + ";", 65535, 2)).Width(), 65535);
}

// Packs as GIF writers do: the longest known text each time, codes growing to 12 bits. A full dictionary is cleared or
// kept.
std::vector<std::uint8_t> Packed(const std::vector<std::uint8_t>& indexes, bool clearWhenFull) {
  constexpr unsigned Clear = 256;
  std::vector<std::uint8_t> out;
  unsigned window = 0;
  unsigned held = 0;
  unsigned bits = 9;
  const auto put = [&](unsigned code) {
    window |= code << held;
    for (held += bits; held >= 8; held -= 8, window >>= 8) out.push_back(static_cast<std::uint8_t>(window));
  };
  std::map<std::pair<unsigned, unsigned>, unsigned> known;
  unsigned next = Clear + 2;
  put(Clear);
  unsigned text = indexes[0];
  for (std::size_t i = 1; i < indexes.size(); ++i) {
    const auto found = known.find({text, indexes[i]});
    if (found != known.end()) {
      text = found->second;
      continue;
    }
    put(text);
    if (next < 4096) {
      // The reader makes an entry one code later than the writer, and widens its codes then.
      if (next == 1U << bits && bits < 12) ++bits;
      known[{text, indexes[i]}] = next++;
    } else if (clearWhenFull) {
      put(Clear);
      known.clear();
      next = Clear + 2;
      bits = 9;
    }
    text = indexes[i];
  }
  put(text);
  put(Clear + 1);
  out.push_back(static_cast<std::uint8_t>(window));
  return out;
}

// What the codes stand for, as many indexes as fit; the number of these.
std::size_t UnpackGifCodes(const std::vector<std::uint8_t>& codes, unsigned rootBits, std::vector<std::uint8_t>& out) {
  std::vector<std::uint8_t> blocks;
  for (std::size_t at = 0; at < codes.size(); at += 255) {
    const std::size_t length = std::min<std::size_t>(255, codes.size() - at);
    blocks.push_back(static_cast<std::uint8_t>(length));
    blocks.insert(blocks.end(), codes.data() + at, codes.data() + at + length);
  }
  ByteReader in(blocks);
  GifUnpacker unpacker({in, 0}, rootBits);
  std::size_t count = 0;
  for (std::span<const std::uint8_t> come = unpacker.Next(); !come.empty(); come = unpacker.Next()) {
    for (const std::uint8_t index : come)
      if (count < out.size()) out[count++] = index;
  }
  return count;
}

TEST(GifCodes, CodesGrowTo12BitsAndAFullDictionaryIsClearedOrKept) {
  std::mt19937 random(5);
  std::vector<std::uint8_t> indexes(60'000);
  for (std::uint8_t& index : indexes) index = static_cast<std::uint8_t>(random() % 3 == 0 ? random() % 256 : 7);
  for (const bool clearWhenFull : {true, false}) {
    std::vector<std::uint8_t> out(indexes.size());
    ASSERT_EQ(UnpackGifCodes(Packed(indexes, clearWhenFull), 8, out), indexes.size()) << clearWhenFull;
    EXPECT_EQ(out, indexes) << clearWhenFull;
  }
}

TEST(GifCodes, ACodeMayStandForTheTextThatItEnds) {
  // Root 2: clear, 1, then 6 while it is being made (1 1), then 7 (1 1 1), end.
  const std::vector<std::uint8_t> codes{0x8C, 0x5F};
  std::vector<std::uint8_t> out(8, 9);
  EXPECT_EQ(UnpackGifCodes(codes, 2, out), 6U);
  EXPECT_EQ(out, (std::vector<std::uint8_t>{1, 1, 1, 1, 1, 1, 9, 9}));
}

TEST(GifCodes, TextsAreCutAtTheEndOfTheImage) {
  const std::vector<std::uint8_t> codes{0x8C, 0x5F};
  std::vector<std::uint8_t> out(4, 9);
  EXPECT_EQ(UnpackGifCodes(codes, 2, out), 4U);
  EXPECT_EQ(out, (std::vector<std::uint8_t>(4, 1)));
}

TEST(GifCodes, CodesThatDoNotExistYetEndTheData) {
  std::vector<std::uint8_t> out(8, 9);
  EXPECT_EQ(UnpackGifCodes(std::vector<std::uint8_t>{0x3C, 0}, 2, out), 0U);     // clear, 7
  EXPECT_EQ(UnpackGifCodes(std::vector<std::uint8_t>{0xCC, 0x01}, 2, out), 1U);  // clear, 1, 7
  EXPECT_EQ(UnpackGifCodes(std::vector<std::uint8_t>{0x0C}, 0, out), 0U);
}

}  // namespace
}  // namespace pixorra
