// The fuzz targets' entries with a few thousand mutations of good files, the same in every run.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <random>

#include "tests/fuzz/Entries.h"
#include "tests/support/TestPictures.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace pixorra {
namespace {

using Entry = std::function<void(fuzz::Bytes)>;

void Feed(const Entry& entry, const std::string& text) {
  // In a block of its own length, so that a sanitizer sees each byte that is read beyond.
  const std::vector<std::uint8_t> bytes(text.begin(), text.end());
  entry(bytes);
}

std::string Mutated(std::mt19937& random, std::string text, const std::vector<std::string>& seeds) {
  static const std::string special("\0\xFF\x7F\x80\x01\\/\":,.\r\n", 13);
  for (auto i = 1 + random() % 6; i > 0; --i) {
    const std::size_t at = text.empty() ? 0 : random() % text.size();
    switch (random() % 7) {
      case 0:
        if (!text.empty()) text[at] = static_cast<char>(random());
        break;
      case 1:
        if (!text.empty()) text[at] = special[random() % special.size()];
        break;
      case 2:
        text.resize(at);
        break;
      case 3:
        text.insert(at, text.substr(at / 2, random() % 40));
        break;
      case 4:
        text.erase(at, random() % 20);
        break;
      case 5:  // the head of a file is where its numbers are
        if (!text.empty()) text[random() % std::min<std::size_t>(text.size(), 64)] = static_cast<char>(random());
        break;
      default: {
        const std::string& other = seeds[random() % seeds.size()];
        text = text.substr(0, at) + other.substr(std::min(other.size(), at));
      }
    }
  }
  return text;
}

// The inputs that the fuzz targets begin with, and those that one of them failed on once. So many were there at least.
std::vector<std::string> Kept(const std::string& target, std::size_t least) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(PIXORRA_TEST_DATA "/fuzz/" + target)) {
    files.push_back(entry.path());
  }
  EXPECT_GE(files.size(), least);
  std::sort(files.begin(), files.end());
  std::vector<std::string> texts;
  for (const std::filesystem::path& file : files) {
    std::ifstream in(file, std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return texts;
}

void Replay(const Entry& entry, const std::vector<std::string>& kept, std::vector<std::string> seeds, int rounds) {
  std::mt19937 random(20040315);
  seeds.insert(seeds.end(), kept.begin(), kept.end());
  Feed(entry, "");
  for (const std::string& seed : seeds) Feed(entry, seed);
  for (int round = 0; round < rounds; ++round) {
    Feed(entry, Mutated(random, seeds[static_cast<std::size_t>(round) % seeds.size()], seeds));
  }
}

TEST(FuzzReplay, SavedStates) {
  Replay(fuzz::SavedState, Kept("SavedState", 2),
         {"11730,9090,300,300,0\r\n\"Pixorra\"\r\n1\r\n2\r\n\"C:\\Card\"\r\n\"\"\r\n0\r\n", "-1.5,1E300,&H7F\n\"open",
          ",,,\"\"\"\""},
         5000);
}

TEST(FuzzReplay, CacheFiles) {
  std::string records(3 * 14776, '\0');
  records.replace(14455, 5, "a.jpg");
  records.replace(2 * 14776 + 14455, 5, "b.jpg");
  Replay(fuzz::CacheFile, Kept("CacheFile", 2), {records, records.substr(0, 14776 + 14500), std::string(14776, ' ')},
         1000);
}

TEST(FuzzReplay, Pictures) {
  std::vector<std::string> seeds = {JpegPhoto(40, 30),
                                    JpegPhoto(33, 17, {.channels = 1}),
                                    JpegPhoto(24, 24, {.channels = 4}),
                                    JpegPhoto(40, 30, {.progressive = true, .exif = true, .exifOrientation = 6}),
                                    BmpPhoto(20, 15),
                                    GifPhoto(20, 15),
                                    GifPhoto(20, 15, {.transparent = 3, .interlaced = true})};
  Replay(fuzz::PictureFile, Kept("PictureFile", 11), seeds, 3000);
}

TEST(FuzzReplay, Paths) {
  Replay(fuzz::Path, Kept("Path", 5),
         {"home\\anna\\Photos\\a.jpg", "..\\..\\etc\\passwd", "C:\\x:y\\z", "\\\\server\\share\\d",
          "a\xEF\x80\xBA\xFF\x80z", "\xEF\x81\x9C..\xEF\x81\x9C", "/home/anna", "."},
         5000);
}

TEST(FuzzReplay, ATargetTakesItsInputAndTellsSo) {
  const std::string photo = JpegPhoto(8, 8);
  EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(photo.data()), photo.size()), 0);
  EXPECT_EQ(LLVMFuzzerTestOneInput(nullptr, 0), 0);
}

}  // namespace
}  // namespace pixorra
