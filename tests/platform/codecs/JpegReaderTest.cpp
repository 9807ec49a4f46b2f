// The reader of one JPEG picture: of a file by portions, how a read is given up, and samples
// that are wider than 8 bits.
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "platform/codecs/JpegReader.h"
#include "tests/platform/codecs/WatchedFile.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr std::uint8_t Untouched = 0xA5;

std::vector<std::uint8_t> BytesOf(const std::string& jpeg) {
  return {jpeg.begin(), jpeg.end()};
}

struct Outcome {
  int status = 0;
  std::vector<std::uint8_t> rows;
  bool IsUntouched() const {
    return std::all_of(rows.begin(), rows.end(), [](std::uint8_t byte) { return byte == Untouched; });
  }
};

// The whole picture.
Outcome ReadBy(JpegReader& reader) {
  if (const int status = reader.Open(); status != jpeg::Ok) return {status, {}};
  EXPECT_EQ(reader.Reduce(1), jpeg::Ok);
  const auto step = static_cast<std::size_t>(reader.ReducedWidth()) * 3;
  Outcome outcome;
  outcome.rows.assign(step * static_cast<std::size_t>(reader.ReducedHeight()), Untouched);
  outcome.status = reader.Read(outcome.rows.data(), static_cast<std::ptrdiff_t>(step), 3);
  return outcome;
}

// Of bytes in memory, read with this flag where there is one.
Outcome ReadOf(const std::string& jpeg, const std::atomic<bool>* stop = nullptr) {
  const std::vector<std::uint8_t> bytes = BytesOf(jpeg);
  JpegReader reader(bytes);
  if (stop != nullptr) reader.StopOn(*stop);
  return ReadBy(reader);
}

// So that its files are larger than a portion.
Bitmap RestlessBitmap(int width, int height) {
  Bitmap bitmap(width, height, PixelFormat::Bgr24);
  std::uint32_t state = 1;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < 3 * width; ++x) {
      state = state * 1664525 + 1013904223;
      bitmap.Row(y)[x] = static_cast<std::uint8_t>(state >> 24);
    }
  }
  return bitmap;
}

// What is read of the same bytes in a file.
void ExpectTheSameOfAFile(const std::string& jpeg) {
  const Outcome ofMemory = ReadOf(jpeg);
  WatchedFile file(jpeg);
  JpegReader reader(file);
  const Outcome ofFile = ReadBy(reader);
  EXPECT_EQ(ofFile.status, ofMemory.status);
  EXPECT_TRUE(ofFile.rows == ofMemory.rows);
  EXPECT_LE(file.Largest, JpegSource::PortionBytes);
}

// Segments of 65,000 bytes after the first two bytes, which are skipped: what is in them would end the picture.
std::string WithSegments(std::string jpeg, int count) {
  std::string segment("\xFF\xE9\xFD\xEA", 4);
  while (segment.size() < 0xFDEA + 2) segment += "\xFF\xD9";
  for (int i = 0; i < count; ++i) jpeg.insert(2, segment);
  return jpeg;
}

TEST(JpegReaderTest, APictureInAFileIsTheSameAsInMemory) {
  const Bitmap bitmap = RestlessBitmap(500, 400);
  for (const JpegFile& kind :
       {JpegFile{.quality = 98}, JpegFile{.quality = 98, .progressive = true}, JpegFile{.channels = 1, .quality = 98},
        JpegFile{.channels = 4, .quality = 98}, JpegFile{.quality = 98, .exif = true, .exifOrientation = 6}}) {
    SCOPED_TRACE(::testing::PrintToString(kind.channels) + (kind.progressive ? " progressive" : ""));
    const std::string photo = JpegOf(bitmap, kind);
    ASSERT_GT(photo.size(), JpegSource::PortionBytes);
    EXPECT_EQ(ReadOf(photo).status, jpeg::Ok);
    ExpectTheSameOfAFile(photo);
    // The Exif data is in the first portion.
    ExpectTheSameOfAFile(WithSegments(photo, kind.exif ? 1 : 5));
    ExpectTheSameOfAFile(photo + std::string(300'000, 'f'));
  }
}

TEST(JpegReaderTest, ADamagedPictureInAFileIsTheSameAsInMemoryWhereverItIsCut) {
  constexpr std::size_t Portion = JpegSource::PortionBytes;
  for (const bool progressive : {false, true}) {
    const std::string photo = JpegOf(RestlessBitmap(400, 300), {.quality = 98, .progressive = progressive});
    ASSERT_GT(photo.size(), Portion + 2);
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{100}, std::size_t{700},
                                     Portion - 1, Portion, Portion + 1, photo.size() - 2, photo.size() - 1}) {
      SCOPED_TRACE(length);
      ExpectTheSameOfAFile(photo.substr(0, length));
    }
    for (const std::size_t at : {std::size_t{1000}, Portion - 2, Portion - 1, Portion, photo.size() - 3}) {
      SCOPED_TRACE(at);
      std::string damaged = photo;
      damaged.replace(at, 2, "\xFF\xC4");
      ExpectTheSameOfAFile(damaged);
    }
    // The end of its header is where a portion ends, or a byte ahead of it.
    const std::size_t header = photo.find("\xFF\xDA") + 14;
    for (const std::size_t missing : {std::size_t{0}, std::size_t{1}}) {
      std::string padded = WithSegments(photo, 1);
      std::string segment("\xFF\xE9", 2);
      const std::size_t length = Portion - missing - header - (padded.size() - photo.size()) - 2;
      segment += static_cast<char>(length >> 8);
      segment += static_cast<char>(length & 0xFF);
      segment.resize(length + 2, 's');
      padded.insert(2, segment);
      ASSERT_EQ(padded.find("\xFF\xDA") + 14, Portion - missing);
      ExpectTheSameOfAFile(padded);
      ExpectTheSameOfAFile(padded.substr(0, Portion - missing));
      ExpectTheSameOfAFile(padded.substr(0, Portion - missing) + "\xFF\xD9");
    }
  }
}

TEST(JpegReaderTest, AFileThatCannotBeReadIsTold) {
  for (const bool progressive : {false, true}) {
    const std::string photo = JpegOf(RestlessBitmap(500, 400), {.quality = 98, .progressive = progressive});
    for (const std::int64_t from : {0, 1, 131'072}) {
      WatchedFile file(photo);
      file.FailsFrom = from;
      JpegReader reader(file);
      EXPECT_EQ(ReadBy(reader).status, jpeg::BadFile) << from;
    }
  }
}

TEST(JpegReaderTest, AReadThatIsStoppedGivesUpBeforeItsFirstRow) {
  const std::atomic<bool> stop = true;
  for (const bool progressive : {false, true}) {
    const Outcome outcome = ReadOf(JpegPhoto(640, 480, {.progressive = progressive}), &stop);
    EXPECT_EQ(outcome.status, jpeg::BadData);
    EXPECT_TRUE(outcome.IsUntouched());
  }
}

TEST(JpegReaderTest, AFlagThatIsNotSetChangesNothing) {
  const std::atomic<bool> stop = false;
  for (const bool progressive : {false, true}) {
    const std::string photo = JpegPhoto(64, 48, {.progressive = progressive});
    const Outcome outcome = ReadOf(photo, &stop);
    EXPECT_EQ(outcome.status, jpeg::Ok);
    EXPECT_FALSE(outcome.IsUntouched());
    EXPECT_TRUE(outcome.rows == ReadOf(photo, nullptr).rows);
  }
}

TEST(JpegReaderTest, ASecondPictureIsReadAfterAStoppedOne) {
  std::atomic<bool> stop = true;
  const std::string photo = JpegPhoto(64, 48, {.progressive = true});
  ReadOf(photo, &stop);
  stop = false;
  EXPECT_EQ(ReadOf(photo, &stop).status, jpeg::Ok);
}

// The frame's header told anew: its marker's last byte and the bits of a sample.
std::string WithFrame(std::string jpeg, char marker, char bits) {
  const std::size_t frame = std::min(jpeg.find("\xFF\xC0"), jpeg.find("\xFF\xC2"));
  jpeg.at(frame + 1) = marker;
  jpeg.at(frame + 4) = bits;
  return jpeg;
}

TEST(JpegReaderTest, PicturesOf12BitsAreRefusedWithTheirHeader) {
  for (const int channels : {1, 3, 4}) {
    for (const std::string& jpeg :
         {WithFrame(JpegPhoto(16, 16, {.channels = channels}), '\xC1', 12),
          WithFrame(JpegPhoto(16, 16, {.channels = channels, .progressive = true}), '\xC2', 12)}) {
      const std::vector<std::uint8_t> bytes = BytesOf(jpeg);
      EXPECT_EQ(JpegReader(bytes).Open(), jpeg::Unsupported) << channels;
    }
  }
}

TEST(JpegReaderTest, TheSameFrameOf8BitsIsRead) {
  EXPECT_EQ(ReadOf(WithFrame(JpegPhoto(16, 16), '\xC1', 8), nullptr).status, jpeg::Ok);
}

}  // namespace
}  // namespace pixorra
