// Cache files that are cut, full of noise, or damaged: every photo is shown all the same, and none is touched.
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr const char* Cache = "C:\\Strip\\Thumbnails.tmp";
constexpr std::size_t RecordBytes = 14776;
constexpr int Photos = 3;

class DamagedCacheTest : public ProgramTest {
 protected:
  DamagedCacheTest() {
    for (int i = 1; i <= Photos; ++i) {
      photos_[PathOf(i)] = BmpOf(PlainBitmap(80, 60, static_cast<Colour>(0x00112233 * i)));
      drive.Write(PathOf(i), photos_[PathOf(i)]);
    }
    WriteSavedState(StateLines("C:\\Strip", {}));
    ProgramRun& run = Started();
    run.LoadAll();
    run.person.DoubleClick(run.main.strip.SrcBackground(1));
    run.Close();
    whole_ = drive.Read(Cache);
    EXPECT_EQ(whole_.size(), 5 * RecordBytes);
  }
  static std::string PathOf(int i) { return "C:\\Strip\\" + std::to_string(i) + ".bmp"; }

  // A start on this cache; the number of photos that come up marked.
  int MarksWith(const std::string& cache) {
    drive.Write(Cache, cache);
    ProgramRun& run = Started();
    run.LoadAll();
    const FilmStripState& strip = run.main.strip;
    EXPECT_EQ(strip.SrcSlotCount, Photos);
    int marks = 0;
    for (int i = 1; i <= strip.SrcSlotCount; ++i) {
      EXPECT_FALSE(strip.SrcThumbnail(i).GetPicture().IsNothing()) << i;
      EXPECT_FALSE(strip.SrcThumbnail(i).GetPicture() == run.main.pictures.InvalidPicture) << i;
      if (strip.SrcThumbName(i).Tag() == "MARK") ++marks;
    }
    // A mark is set and taken off again, whatever the file is like.
    run.person.DoubleClick(run.main.strip.SrcBackground(2));
    run.person.DoubleClick(run.main.strip.SrcBackground(2));
    run.Close();
    for (const auto& [path, bytes] : photos_) EXPECT_TRUE(drive.Read(path) == bytes) << path;
    return marks;
  }

  std::map<std::string, std::string> photos_;
  std::string whole_;
};

TEST_F(DamagedCacheTest, CutAnywhereTheMarkGoesOnlyWithItsOwnRecord) {
  EXPECT_EQ(MarksWith(whole_), 1);
  for (const std::size_t cut : {std::size_t{0}, std::size_t{1}, std::size_t{54}, std::size_t{14454}, std::size_t{14455},
                                std::size_t{14500}, std::size_t{14568}, RecordBytes - 1, RecordBytes, RecordBytes + 1,
                                2 * RecordBytes, 3 * RecordBytes - 200, 4 * RecordBytes + 7000, 5 * RecordBytes - 1}) {
    SCOPED_TRACE("cut at " + std::to_string(cut));
    EXPECT_EQ(MarksWith(whole_.substr(0, cut)), cut >= 14568 ? 1 : 0) << "its first byte does";
  }
}

TEST_F(DamagedCacheTest, NoiseIsNoThumbnail) {
  std::mt19937 random(7);
  for (const std::size_t length : {std::size_t{10}, RecordBytes, 3 * RecordBytes + 5}) {
    std::string noise(length, '\0');
    for (char& byte : noise) byte = static_cast<char>(random());
    EXPECT_EQ(MarksWith(noise), 0);
  }
  EXPECT_EQ(MarksWith(std::string(4 * RecordBytes, '\xFF')), 0);
}

TEST_F(DamagedCacheTest, BehindWhatIsNoRecordTheOthersAreFoundByTheirPlace) {
  std::string shifted = whole_;
  shifted.replace(2 * RecordBytes, RecordBytes, std::string(RecordBytes, 'x'));
  EXPECT_EQ(MarksWith(shifted), 1);
  EXPECT_EQ(MarksWith("x" + whole_), 0) << "a byte too many moves every record";
}

TEST_F(DamagedCacheTest, ADamagedBitmapInARecordIsPaintedFromThePhoto) {
  for (const auto& [at, bytes] : std::vector<std::pair<std::size_t, std::string>>{{0, "XX"},
                                                                                  {10, "\xFF\xFF\xFF\x7F"},
                                                                                  {14, std::string(4, '\0')},
                                                                                  {18, "\xFF\xFF\xFF\x7F"},
                                                                                  {22, std::string("\0\0\0\x80", 4)},
                                                                                  {28, "\x07"},
                                                                                  {30, "\x01"},
                                                                                  {46, "\xFF\xFF\xFF\xFF"}}) {
    SCOPED_TRACE("at " + std::to_string(at));
    std::string damaged = whole_;
    damaged.replace(at, bytes.size(), bytes);
    MarksWith(damaged);
  }
}

TEST_F(DamagedCacheTest, AFewWrongBytesAnywhereAreSurvived) {
  std::mt19937 random(8);
  for (int round = 0; round < 25; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    std::string damaged = whole_;
    for (int i = 0; i < 200; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
    for (int i = 0; i < 3; ++i) damaged[random() % 60] = static_cast<char>(random());
    MarksWith(damaged);
  }
}

}  // namespace
}  // namespace pixorra
