// Bitmap files of every depth and coding, and damaged ones.
#include <array>
#include <gtest/gtest.h>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "platform/codecs/BmpDecoder.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

using Pixel = std::array<int, 3>;  // blue, green, red

constexpr Pixel Black{0, 0, 0};
constexpr Pixel Blue{255, 0, 0};
constexpr Pixel Green{0, 255, 0};
constexpr Pixel Red{0, 0, 255};

void Put16(std::string& out, std::uint32_t value) {
  out += static_cast<char>(value & 255);
  out += static_cast<char>(value >> 8 & 255);
}

void Put32(std::string& out, std::uint32_t value) {
  Put16(out, value & 0xFFFF);
  Put16(out, value >> 16);
}

// A bitmap file put together by hand.
struct BmpFile {
  int width = 4;
  int height = 2;  // below 0 for top-down
  unsigned bits = 24;
  unsigned compression = 0;
  unsigned headerBytes = 40;
  std::vector<std::uint32_t> masks{};  // red, green, blue, behind the first 40 bytes of the header
  std::vector<Pixel> palette{};
  std::optional<unsigned> pixelsAt{};  // where the file says that they are
  unsigned coloursUsed = 0;
  std::string pixels{};

  std::string Bytes() const {
    std::string header;
    Put32(header, headerBytes);
    if (headerBytes == 12) {
      for (const int field : {width, height, 1}) Put16(header, static_cast<std::uint32_t>(field));
      Put16(header, bits);
    } else {
      Put32(header, static_cast<std::uint32_t>(width));
      Put32(header, static_cast<std::uint32_t>(height));
      Put16(header, 1);
      Put16(header, bits);
      for (const unsigned field : {compression, 0U, 0U, 0U, coloursUsed, 0U}) Put32(header, field);
    }
    for (const std::uint32_t mask : masks) Put32(header, mask);
    if (header.size() < headerBytes) header.resize(headerBytes);
    for (const Pixel& colour : palette) {
      for (const int channel : colour) header += static_cast<char>(channel);
      if (headerBytes != 12) header += '\0';
    }
    std::string out = "BM";
    Put32(out, static_cast<std::uint32_t>(14 + header.size() + pixels.size()));
    Put32(out, 0);
    Put32(out, pixelsAt.value_or(static_cast<unsigned>(14 + header.size())));
    return out + header + pixels;
  }
};

Bitmap Decode(const std::string& bytes) {
  const std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());  // so that a read beyond the end is seen
  return DecodeBmp(copy);
}

int ErrorOf(const std::string& bytes) {
  return ErrorsIgnored([&] { Decode(bytes); });
}

Pixel At(const Bitmap& bitmap, int x, int y) {
  const std::uint8_t* p = bitmap.Row(y) + x * 3;
  return {p[0], p[1], p[2]};
}

void ExpectRow(const Bitmap& bitmap, int y, std::initializer_list<Pixel> expected) {
  ASSERT_EQ(bitmap.Width(), static_cast<int>(expected.size()));
  int x = 0;
  for (const Pixel& pixel : expected) EXPECT_EQ(At(bitmap, x++, y), pixel) << x - 1 << ',' << y;
}

const std::vector<Pixel> FourColours{Black, Blue, Green, Red};

TEST(BmpDecoder, TwentyFourBitsBottomUpWithPadding) {
  const Bitmap photo = SmoothBitmap(5, 3);
  const Bitmap bitmap = Decode(BmpOf(photo));
  ASSERT_EQ(bitmap.Width(), 5);
  ASSERT_EQ(bitmap.Height(), 3);
  EXPECT_EQ(bitmap.Format(), PixelFormat::Bgr24);
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 5; ++x) EXPECT_EQ(At(bitmap, x, y), At(photo, x, y));
  }
}

TEST(BmpDecoder, TopDownRows) {
  const BmpFile file{.width = 1, .height = -2, .pixels = std::string("\xFF\0\0\0\0\xFF\0\0", 8)};
  const Bitmap bitmap = Decode(file.Bytes());
  ASSERT_EQ(bitmap.Height(), 2);
  ExpectRow(bitmap, 0, {Blue});
  ExpectRow(bitmap, 1, {Green});
}

TEST(BmpDecoder, PaletteIndexesOfEveryDepth) {
  // The last row of the picture is the first of the file.
  const std::string oneBit("\x50\0\0\0\xA0\0\0\0", 8);
  ExpectRow(Decode(BmpFile{.bits = 1, .palette = {Red, Green}, .pixels = oneBit}.Bytes()), 0, {Green, Red, Green, Red});
  const std::string twoBits("\0\0\0\0\x1B\0\0\0", 8);
  ExpectRow(Decode(BmpFile{.bits = 2, .palette = FourColours, .pixels = twoBits}.Bytes()), 0,
            {Black, Blue, Green, Red});
  const std::string fourBits("\x32\x10\0\0\x01\x23\0\0", 8);
  const Bitmap four = Decode(BmpFile{.bits = 4, .palette = FourColours, .coloursUsed = 4, .pixels = fourBits}.Bytes());
  ExpectRow(four, 0, {Black, Blue, Green, Red});
  ExpectRow(four, 1, {Red, Green, Blue, Black});
  const std::string eightBits("\0\0\0\0\3\2\1\0", 8);
  const Bitmap eight =
      Decode(BmpFile{.bits = 8, .palette = FourColours, .coloursUsed = 4, .pixels = eightBits}.Bytes());
  ExpectRow(eight, 0, {Red, Green, Blue, Black});
}

TEST(BmpDecoder, IndexesOutsideOfThePaletteAreBlack) {
  const std::string pixels("\1\2\3\4\xFF\1\1\1", 8);
  const Bitmap bitmap = Decode(BmpFile{.bits = 8, .palette = {Red, Blue}, .coloursUsed = 2, .pixels = pixels}.Bytes());
  ExpectRow(bitmap, 0, {Black, Blue, Blue, Blue});
  ExpectRow(bitmap, 1, {Blue, Black, Black, Black});
}

TEST(BmpDecoder, OldHeaderWithPaletteEntriesOfThreeBytes) {
  std::vector<Pixel> palette(256, Black);
  palette[7] = Red;
  const BmpFile file{.bits = 8, .headerBytes = 12, .palette = palette, .pixels = std::string("\7\7\7\7\0\7\0\7", 8)};
  ExpectRow(Decode(file.Bytes()), 0, {Black, Red, Black, Red});
}

TEST(BmpDecoder, LaterHeadersOfTheOtherFamilyAndLongOnes) {
  const std::string pixels("\1\1\1\1\2\2\3\3", 8);
  for (const unsigned headerBytes : {52U, 56U, 64U, 108U, 124U}) {
    const BmpFile file{
        .bits = 8, .headerBytes = headerBytes, .palette = FourColours, .coloursUsed = 4, .pixels = pixels};
    ExpectRow(Decode(file.Bytes()), 0, {Green, Green, Red, Red});
  }
}

TEST(BmpDecoder, SixteenBitsAreFiveAChannelAndReachFullWhite) {
  const std::string pixels("\x1F\0\xE0\x03\0\x7C\xFF\x7F", 8);
  ExpectRow(Decode(BmpFile{.height = 1, .bits = 16, .pixels = pixels}.Bytes()), 0, {Blue, Green, Red, {255, 255, 255}});
}

TEST(BmpDecoder, BitFieldsPlaceTheChannels) {
  const std::string sixteen("\x1F\0\xE0\x07\0\xF8\x10\x84", 8);
  const BmpFile file565{.height = 1, .bits = 16, .compression = 3, .masks = {0xF800, 0x7E0, 0x1F}, .pixels = sixteen};
  ExpectRow(Decode(file565.Bytes()), 0, {Blue, Green, Red, {132, 130, 132}});

  const std::string deep("\xFF\x03\0\0", 4);  // 10 bits of blue
  const BmpFile file10{
      .width = 1, .height = 1, .bits = 32, .compression = 3, .masks = {0x3FF00000, 0xFFC00, 0x3FF}, .pixels = deep};
  ExpectRow(Decode(file10.Bytes()), 0, {Blue});

  const std::string swapped("\x01\x02\x03\x04", 4);
  const BmpFile file8{
      .width = 1, .height = 1, .bits = 32, .compression = 3, .masks = {0xFF, 0xFF00, 0xFF000000}, .pixels = swapped};
  ExpectRow(Decode(file8.Bytes()), 0, {{4, 2, 1}});
}

TEST(BmpDecoder, ThirtyTwoBitsLeaveTheFourthByteOut) {
  const std::string pixels("\1\2\3\0\4\5\6\xFF", 8);
  ExpectRow(Decode(BmpFile{.width = 2, .height = 1, .bits = 32, .pixels = pixels}.Bytes()), 0, {{1, 2, 3}, {4, 5, 6}});
}

BmpFile Runs(unsigned bits, std::string codes, int width = 4, int height = 2) {
  return {.width = width,
          .height = height,
          .bits = bits,
          .compression = bits == 8 ? 1U : 2U,
          .palette = FourColours,
          .coloursUsed = 4,
          .pixels = std::move(codes)};
}

TEST(BmpDecoder, RunLengthsOfEightBits) {
  const Bitmap bitmap = Decode(Runs(8, std::string("\4\1\0\0\0\3\1\2\3\0\1\2\0\1", 14)).Bytes());
  ExpectRow(bitmap, 1, {Blue, Blue, Blue, Blue});
  ExpectRow(bitmap, 0, {Blue, Green, Red, Green});
}

TEST(BmpDecoder, RunLengthsOfFourBitsAlternate) {
  const Bitmap bitmap = Decode(Runs(4, std::string("\4\x12\0\0\0\3\x12\x30\0\1", 10)).Bytes());
  ExpectRow(bitmap, 1, {Blue, Green, Blue, Green});
  ExpectRow(bitmap, 0, {Blue, Green, Red, Black});
}

TEST(BmpDecoder, RunLengthsMaySkipAndWhatIsSkippedIsTheFirstColour) {
  BmpFile file = Runs(8, std::string("\1\1\0\2\1\1\1\2\0\1", 10));
  file.palette = {Red, Blue, Green};
  const Bitmap bitmap = Decode(file.Bytes());
  ExpectRow(bitmap, 1, {Blue, Red, Red, Red});
  ExpectRow(bitmap, 0, {Red, Red, Green, Red});
}

TEST(BmpDecoder, RunLengthsThatLeaveThePictureStayInIt) {
  for (const unsigned bits : {4U, 8U}) {
    EXPECT_EQ(ErrorOf(Runs(bits, std::string("\xFF\1\xFF\1\0\0\xFF\2\0\2\xFF\xFF\xFF\3\4\4", 16)).Bytes()), 0);
    EXPECT_EQ(ErrorOf(Runs(bits, std::string("\4\1\0\xFF\1\2", 6)).Bytes()), 0);
    EXPECT_EQ(ErrorOf(Runs(bits, std::string("\4\1\0\2\1", 5)).Bytes()), 0);
    EXPECT_EQ(ErrorOf(Runs(bits, std::string("\0\1\0\1", 4)).Bytes()), error::BadPicture);
  }
}

TEST(BmpDecoder, ARunBeyondTheRowsEndDoesNotReachTheNextRow) {
  for (const unsigned bits : {4U, 8U}) {
    const Bitmap bitmap = Decode(Runs(bits, std::string("\x09\x11\0\1", 4)).Bytes());
    EXPECT_EQ(At(bitmap, 0, 0), Black);
    EXPECT_EQ(At(bitmap, 1, 0), Black);
  }
}

TEST(BmpDecoder, ACutFileShowsTheRowsThatItHas) {
  const std::string whole = BmpOf(PlainBitmap(4, 4, 0xFFFFFF));
  const Bitmap bitmap = Decode(whole.substr(0, 54 + 2 * 12 + 5));
  ExpectRow(bitmap, 0, {Black, Black, Black, Black});
  ExpectRow(bitmap, 1, {Black, Black, Black, Black});
  for (int y = 2; y < 4; ++y) EXPECT_EQ(At(bitmap, 3, y), (Pixel{255, 255, 255}));
  EXPECT_EQ(ErrorOf(whole.substr(0, 54 + 11)), error::BadPicture);
  EXPECT_EQ(ErrorOf(whole.substr(0, 54)), error::BadPicture);
}

TEST(BmpDecoder, EveryCutAndEveryChangedByteIsMetWithoutHarm) {
  for (const std::string& whole :
       {BmpPhoto(7, 5), Runs(8, std::string("\4\1\0\0\0\3\1\2\3\0\1\2\0\1", 14)).Bytes(),
        Runs(4, std::string("\4\x12\0\0\0\3\x12\x30\0\1", 10)).Bytes(),
        BmpFile{.height = 1, .bits = 16, .compression = 3, .masks = {0xF800, 0x7E0, 0x1F}, .pixels = "12345678"}
            .Bytes()}) {
    for (std::size_t at = 0; at < whole.size(); ++at) {
      for (const int flip : {0x01, 0x80, 0xFF}) {
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

TEST(BmpDecoder, SizesThatTheBytesCannotBackAreRefused) {
  for (const auto& [w, h] : {std::pair{30000, 30000},
                             {65536, 1},
                             {1, 65536},
                             {0, 5},
                             {5, 0},
                             {-4, 2},
                             {4, INT32_MIN},
                             {INT32_MAX, INT32_MAX}}) {
    EXPECT_EQ(ErrorOf(BmpFile{.width = w, .height = h, .pixels = std::string(300, 'x')}.Bytes()), error::BadPicture)
        << w << 'x' << h;
  }
}

TEST(BmpDecoder, UnknownKindsAreRefused) {
  const std::string pixels(64, 'x');
  EXPECT_EQ(ErrorOf(BmpFile{.bits = 24, .compression = 4, .pixels = pixels}.Bytes()), error::BadPicture);
  EXPECT_EQ(ErrorOf(BmpFile{.bits = 8, .compression = 2, .palette = FourColours, .pixels = pixels}.Bytes()),
            error::BadPicture);
  EXPECT_EQ(ErrorOf(BmpFile{.bits = 0, .compression = 5, .pixels = pixels}.Bytes()), error::BadPicture);
  EXPECT_EQ(ErrorOf(BmpFile{.bits = 3, .pixels = pixels}.Bytes()), error::BadPicture);
  EXPECT_EQ(ErrorOf(BmpFile{.headerBytes = 200, .pixels = pixels}.Bytes()), error::BadPicture);
  EXPECT_EQ(ErrorOf(BmpFile{.pixelsAt = 5000, .pixels = pixels}.Bytes()), error::BadPicture);
  EXPECT_EQ(ErrorOf("BA" + BmpPhoto(4, 4).substr(2)), error::BadPicture);
  EXPECT_EQ(ErrorOf(""), error::BadPicture);
}

TEST(BmpDecoder, AMissingOffsetMeansBehindTheHeader) {
  const std::string pixels("\1\1\1\1\2\2\3\3", 8);
  const BmpFile file{.bits = 8, .palette = FourColours, .pixelsAt = 0, .coloursUsed = 4, .pixels = pixels};
  ExpectRow(Decode(file.Bytes()), 0, {Green, Green, Red, Red});
}

}  // namespace
}  // namespace pixorra
