// The reader of one JPEG picture: how a read is given up, and samples that are wider than 8 bits.
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "platform/codecs/JpegReader.h"
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

// The whole picture, read with this flag where there is one.
Outcome ReadOf(const std::string& jpeg, const std::atomic<bool>* stop) {
  const std::vector<std::uint8_t> bytes = BytesOf(jpeg);
  JpegReader reader(bytes);
  EXPECT_EQ(reader.Open(), jpeg::Ok);
  if (stop != nullptr) reader.StopOn(*stop);
  EXPECT_EQ(reader.Reduce(1), jpeg::Ok);
  const auto step = static_cast<std::size_t>(reader.ReducedWidth()) * 3;
  Outcome outcome;
  outcome.rows.assign(step * static_cast<std::size_t>(reader.ReducedHeight()), Untouched);
  outcome.status = reader.Read(outcome.rows.data(), static_cast<std::ptrdiff_t>(step), 3);
  return outcome;
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
