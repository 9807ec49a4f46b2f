// Picture files with megabytes of codes that show nothing: how much of them is read.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/runtime/Errors.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr std::size_t Megabytes = 8 * 1024 * 1024;
// A small part of the 512 reads that so many bytes are.
constexpr int FewReads = 12;

std::string Repeated(const std::string& codes) {
  std::string out;
  while (out.size() < Megabytes) out += codes;
  return out;
}

// A bitmap of one pixel in runs of 8 bits, without a palette of its own.
std::string BmpWith(const std::string& runs) {
  std::string out = BmpPhoto(1, 1).substr(0, 54);
  out[28] = 8;
  out[30] = 1;
  out[10] = 54 + 4;
  return out + "abc" + '\0' + runs;
}

// A GIF file of one pixel with these codes, in blocks of 255 bytes.
std::string GifWith(const std::string& codes) {
  const std::string whole = GifPhoto(1, 1);
  std::string out = whole.substr(0, whole.find(',', 13 + 768) + 11);
  for (std::size_t at = 0; at < codes.size(); at += 255) {
    const std::string block = codes.substr(at, 255);
    out += static_cast<char>(block.size()) + block;
  }
  return out + '\0';
}

// Codes of 9 bits: first these, eight at most, then clear codes.
std::string ClearedAfter(std::vector<unsigned> first) {
  first.resize(8, 256);
  const auto packed = [](const std::vector<unsigned>& codes) {
    std::string out;
    unsigned window = 0, held = 0;
    for (const unsigned code : codes) {
      window |= code << held;
      for (held += 9; held >= 8; held -= 8, window >>= 8) out += static_cast<char>(window & 255);
    }
    return out;
  };
  return packed(first) + Repeated(packed(std::vector<unsigned>(8, 256)));
}

class IdleCodesTest : public ::testing::Test {
 protected:
  // The error that loading these bytes ends with, 0 for none.
  int Load(const std::string& bytes) {
    drive.Write("C:\\idle", bytes);
    const int before = files.Count(FileCall::Read);
    const int number = ErrorsIgnored([&] { picture = pictures.Load("C:\\idle"); });
    reads = files.Count(FileCall::Read) - before;
    return number;
  }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
  CodecPictures pictures{files};
  Picture picture;
  int reads = 0;
};

TEST_F(IdleCodesTest, ABitmapEndsAfterThousandsOfCodesThatLeadNowhere) {
  using namespace std::string_literals;
  for (const std::string& idle : {"\xFF\0"s, "\0\2\0\0"s, "\0\4\1\2\3\4"s}) {
    EXPECT_EQ(Load(BmpWith("\1\0"s + Repeated(idle))), error::None);
    EXPECT_EQ(picture.Width(), 1);
    EXPECT_LE(reads, FewReads);
  }
  EXPECT_EQ(Load(BmpWith(Repeated("\0\2\0\0"s))), error::BadPicture);
  EXPECT_LE(reads, FewReads);
}

TEST_F(IdleCodesTest, AnImageOfClearCodesAloneIsRefusedSoon) {
  EXPECT_EQ(Load(GifWith(ClearedAfter({}))), error::BadPicture);
  EXPECT_LE(reads, FewReads);
}

TEST_F(IdleCodesTest, AnImageEndsWhereClearCodesFollowAPixel) {
  std::string large = GifWith(ClearedAfter({256, 7}));
  const std::size_t image = large.find(',', 13 + 768);
  large[6] = large[image + 5] = 2;  // so that the pixel is not all
  EXPECT_EQ(Load(large), error::None);
  EXPECT_EQ(picture.Width(), 2);
  EXPECT_LE(reads, FewReads);
}

TEST_F(IdleCodesTest, AnImageThatClearsAfterEachPixelIsWhole) {
  constexpr int Width = 120, Height = 100;
  std::string codes;
  unsigned window = 0, held = 0;
  for (int i = 0; i < Width * Height * 2; ++i) {
    window |= (i % 2 == 0 ? 256U : 9U) << held;
    for (held += 9; held >= 8; held -= 8, window >>= 8) codes += static_cast<char>(window & 255);
  }
  std::string file = GifWith(codes + '\0');
  const std::size_t image = file.find(',', 13 + 768);
  file[6] = file[image + 5] = Width;
  file[8] = file[image + 7] = Height;
  EXPECT_EQ(Load(file), error::None);
  EXPECT_EQ(picture.Pixels().Format(), PixelFormat::Bgr24) << "no pixel is missing";
  EXPECT_EQ(picture.Height(), Height);
}

}  // namespace
}  // namespace pixorra
