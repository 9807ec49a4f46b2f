// Real picture files of cameras and of other decoders' test sets, where they are at hand. Their expected.tsv tells what
// each shows; manifest.tsv lists all.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <jconfig.h>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/codecs/SeenAt.h"
#include "tests/platform/codecs/Sha256.h"
#include "tests/support/RealPhotos.h"

namespace pixorra {
namespace {

namespace fs = std::filesystem;
using Row = std::map<std::string, std::string>;

std::vector<std::string> Cells(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream in(line);
  for (std::string cell; std::getline(in, cell, '\t');) cells.push_back(cell);
  return cells;
}

std::vector<Row> Table(const fs::path& file) {
  std::ifstream in(file);
  std::string line;
  std::getline(in, line);
  const std::vector<std::string> names = Cells(line);
  std::vector<Row> rows;
  while (std::getline(in, line)) {
    const std::vector<std::string> cells = Cells(line);
    Row row;
    for (std::size_t i = 0; i < names.size() && i < cells.size(); ++i) row[names[i]] = cells[i];
    rows.push_back(row);
  }
  return rows;
}

std::vector<std::uint8_t> BytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The rows as red, green and blue, the top one first and without padding; what is transparent is white.
std::vector<std::uint8_t> RgbOverWhite(const Bitmap& bitmap) {
  std::vector<std::uint8_t> rgb(static_cast<std::size_t>(bitmap.Width()) * static_cast<std::size_t>(bitmap.Height()) *
                                3);
  std::uint8_t* to = rgb.data();
  for (int y = 0; y < bitmap.Height(); ++y) {
    const std::uint8_t* p = bitmap.Row(y);
    for (int x = 0; x < bitmap.Width(); ++x, p += bitmap.BytesPerPixel()) {
      const int white = bitmap.Format() == PixelFormat::Bgra32 ? 255 - p[3] : 0;
      for (int c = 2; c >= 0; --c) *to++ = static_cast<std::uint8_t>(p[c] + white);
    }
  }
  return rgb;
}

// The tables list the pixels as the file stores them; these have been turned upright.
std::vector<std::uint8_t> TurnedBack(const Row& row, const std::vector<std::uint8_t>& upright) {
  const int orientation = row.at("exif_orientation").empty() ? 1 : std::stoi(row.at("exif_orientation"));
  if (orientation == 1) return upright;
  const int width = std::stoi(row.at("width"));
  const int height = std::stoi(row.at("height"));
  const int uprightWidth = orientation < 5 ? width : height;
  std::vector<std::uint8_t> stored;
  stored.reserve(upright.size());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto [seenX, seenY] = SeenAt(orientation, x, y, width, height);
      const auto at = upright.begin() + (std::ptrdiff_t{seenY} * uprightWidth + seenX) * 3;
      stored.insert(stored.end(), at, at + 3);
    }
  }
  return stored;
}

// The sums of this file come from decoders that leave the low bits of 4-bit channels at 0; 15 of 15 is 255 here.
std::vector<std::uint8_t> AsSummed(const Row& row, std::vector<std::uint8_t> rgb) {
  if (row.at("path").ends_with("V3_A4_R4_G4_B4.bmp")) {
    for (std::uint8_t& value : rgb) value &= 0xF0;
  }
  return rgb;
}

// Sums of large photos take too long under the sanitizers; they are decoded all the same.
bool IsSummed(const Bitmap& bitmap) {
#ifdef __SANITIZE_ADDRESS__
  return bitmap.Width() * bitmap.Height() < 250'000;
#else
  return !bitmap.IsEmpty();
#endif
}

struct Outcome {
  int error = 0;
  std::optional<Bitmap> picture;
};

Outcome Decoded(const fs::path& file) {
  const std::vector<std::uint8_t> bytes = BytesOf(file);
  Outcome outcome;
  outcome.error = ErrorsIgnored([&] { outcome.picture = DecodePicture(bytes); });
  return outcome;
}

class PhotoSet : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(PhotosFolder() / "expected.tsv")) GTEST_SKIP() << "no photos in " << PhotosFolder();
  }

  // All rows of one format with a verdict.
  static std::vector<Row> Expected(const std::string& format, const std::string& verdict) {
    std::vector<Row> rows = Table(PhotosFolder() / "expected.tsv");
    std::erase_if(rows, [&](const Row& row) { return row.at("format") != format || row.at("expect") != verdict; });
    return rows;
  }

  static void ExpectPixels(const std::string& format) {
    const std::vector<Row> rows = Expected(format, "decode");
    ASSERT_GT(rows.size(), 30U);
    for (const Row& row : rows) {
      const Outcome outcome = Decoded(PhotosFolder() / row.at("path"));
      ASSERT_EQ(outcome.error, 0) << row.at("path");
      const bool turned = row.at("exif_orientation") >= "5";
      EXPECT_EQ(std::to_string(outcome.picture->Width()), row.at(turned ? "height" : "width")) << row.at("path");
      EXPECT_EQ(std::to_string(outcome.picture->Height()), row.at(turned ? "width" : "height")) << row.at("path");
      if (!IsSummed(*outcome.picture)) continue;
      const std::vector<std::uint8_t> rgb = TurnedBack(row, RgbOverWhite(*outcome.picture));
      EXPECT_EQ(Sha256(AsSummed(row, rgb)), row.at("sha256_rgb")) << row.at("path");
    }
  }
};

TEST(Sha256Test, KnownSums) {
  EXPECT_EQ(Sha256({}), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  const std::vector<std::uint8_t> abc{'a', 'b', 'c'};
  EXPECT_EQ(Sha256(abc), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST_F(PhotoSet, BitmapsShowTheirPixels) {
  ExpectPixels("BMP");
}

TEST_F(PhotoSet, GifFilesShowTheirFirstImage) {
  ExpectPixels("GIF");
}

TEST_F(PhotoSet, JpegPhotosShowTheirPixels) {
#if LIBJPEG_TURBO_VERSION_NUMBER / 1000 != 2001
  GTEST_SKIP() << "the sums are those of libjpeg-turbo 2.1";
#endif
  ExpectPixels("JPEG");
}

TEST_F(PhotoSet, WhatIsNoPictureIsRefusedAndNothingElseHappens) {
  // What comes ahead of their damage is shown; strict decoders refuse them all the same.
  const std::set<std::string> damagedLater = {"its-138d3b9e0d9fbf641b8135981e597c3a.jpg", "afl-jpeg-e07.jpg",
                                              "afl-jpeg_turbo-e06.jpg"};
  std::size_t count = 0;
  for (const Row& row : Table(PhotosFolder() / "manifest.tsv")) {
    const fs::path file = PhotosFolder() / row.at("path");
    const Outcome outcome = Decoded(file);
    const std::string& verdict = row.at("expect");
    ++count;
    if (outcome.error != 0) {
      EXPECT_EQ(outcome.error, error::BadPicture) << file;
      EXPECT_NE(verdict, "decode") << file;
    } else {
      EXPECT_TRUE(verdict != "refuse" || damagedLater.contains(file.filename())) << file;
      EXPECT_FALSE(outcome.picture->IsEmpty()) << file;
    }
  }
  EXPECT_GT(count, 300U);
}

}  // namespace
}  // namespace pixorra
