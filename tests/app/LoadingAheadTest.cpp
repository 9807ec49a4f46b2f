// Loading with photos decoded ahead of their turn: slots, order, pictures and messages are the same.
#include <gtest/gtest.h>
#include <set>

#include "app/BackgroundLoading.h"
#include "tests/filmstrip/StripTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

// All that is expected is ready when it is asked for, as on a machine that keeps up; or the photos named are not.
class SteadyAhead : public DecodeAhead {
 public:
  using DecodeAhead::DecodeAhead;
  bool IsReady(const std::string& path, int scale) override {
    if (late.contains(path)) return false;
    Settle();
    return DecodeAhead::IsReady(path, scale);
  }
  std::set<std::string> late;
};

class LoadingAheadTest : public StripTest {
 protected:
  // Too long a file to be decoded in its own turn, were it not for what is in it.
  static std::string LongJpeg(int width, int height, unsigned seed) {
    Bitmap bitmap(width, height, PixelFormat::Bgr24);
    for (int y = 0; y < height; ++y) {
      for (int i = 0; i < width * 3; ++i) {
        seed = seed * 1664525u + 1013904223u;
        bitmap.Row(y)[i] = static_cast<std::uint8_t>((seed >> 25) + static_cast<unsigned>(i * 127 / (width * 3)));
      }
    }
    return JpegOf(bitmap, {.quality = 100, .fullColour = true});
  }
  void WriteStrip(const std::string& folder) {
    for (int i = 1; i <= 4; ++i) {
      drive.Write(folder + "\\" + std::to_string(i) + ".jpg", LongJpeg(800, 600, static_cast<unsigned>(i)));
    }
    drive.Write(folder + "\\5.jpg", JpegPhoto(160, 120));
    std::string broken = LongJpeg(800, 600, 6);
    broken.replace(30, 500000, 500000, 'x');
    drive.Write(folder + "\\6.jpg", broken);
    drive.Write(folder + "\\7.jpg", LongJpeg(600, 800, 7));
    drive.Write(folder + "\\8.bmp", BmpPhoto(600, 500));
    drive.Write(folder + "\\9.jpg", LongJpeg(240, 180, 8) + std::string(600000, 'x'));
  }
  struct Outcome {
    std::vector<std::string> steps;  // at each tick
    std::vector<std::string> names;
    std::vector<std::string> pictures;
    std::vector<std::string> cells;
    int scale = 0;
    bool operator==(const Outcome&) const = default;
  };
  static std::string Pixels(const ImageBox& box) {
    const Picture picture = box.GetPicture();
    return picture.IsNothing() ? std::string() : BmpOf(picture.Pixels());
  }
  Outcome Load() {
    ProgramRun& run = StartedOnStrip({"C:\\One"});
    run.person.ExpectBox("Intel(R) JPEG Library", "", BoxAnswer::Ok);
    run.person.ExpectBox("Intel(R) JPEG Library", "", BoxAnswer::Ok);
    Outcome outcome;
    for (int tick = 0; tick < 24; ++tick) {
      run.Wait(ThumbsTick);
      outcome.steps.push_back(std::to_string(run.main.strip.SrcSlotCount) + "," +
                              std::to_string(run.main.desk.DestSlotCount));
    }
    outcome.names = SlotNames(run);
    for (int i = 1; i <= run.main.strip.SrcSlotCount; ++i) {
      outcome.pictures.push_back(Pixels(run.main.strip.SrcThumbnail(i)));
    }
    for (int i = 1; i <= run.main.desk.DestSlotCount; ++i) {
      outcome.cells.push_back(Pixels(run.main.desk.DestThumbnail(i)));
    }
    outcome.scale = run.main.pictures.lDecodeScale;
    EndRun();
    return outcome;
  }
  void ForgetThumbnails() {
    for (const char* folder : {"C:\\Strip", "C:\\One"}) {
      if (drive.Exists(std::string(folder) + "\\Thumbnails.tmp"))
        drive.Remove(std::string(folder) + "\\Thumbnails.tmp");
    }
  }
};

TEST_F(LoadingAheadTest, SlotsOrderPicturesAndMessagesAreTheSame) {
  WriteStrip("C:\\Strip");
  WriteStrip("C:\\One");
  const Outcome plain = Load();
  ASSERT_EQ(plain.names.size(), 9u);
  ASSERT_EQ(plain.cells.size(), 9u);
  ForgetThumbnails();
  SteadyAhead ahead(drive.DriveFiles());
  decodeAhead = &ahead;
  EXPECT_EQ(Load(), plain);
  EXPECT_GE(ahead.ThreadsStarted(), 1u);
}

TEST_F(LoadingAheadTest, ATurnPassesWhileThePhotoIsNotReadyAndTheOtherSideGoesOn) {
  WriteStrip("C:\\Strip");
  drive.Write("C:\\One\\a.bmp", "");
  drive.Write("C:\\One\\b.bmp", "");
  SteadyAhead ahead(drive.DriveFiles());
  decodeAhead = &ahead;
  ahead.late = {PathOf("2.jpg")};
  ProgramRun& run = StartedOnStrip({"C:\\One"});
  run.Wait(10 * ThumbsTick);
  EXPECT_EQ(SlotNames(run), std::vector<std::string>{"1.jpg"});
  EXPECT_EQ(run.main.desk.DestSlotCount, 2);
  ahead.late.clear();
  run.Wait(2 * ThumbsTick);
  EXPECT_EQ(SlotNames(run), (std::vector<std::string>{"1.jpg", "2.jpg"}));
}

TEST_F(LoadingAheadTest, APhotoInTheCacheWaitsForNothing) {
  for (int i = 1; i <= 3; ++i) {
    drive.Write(PathOf(std::to_string(i) + ".jpg"), LongJpeg(800, 600, static_cast<unsigned>(i)));
  }
  LoadedStrip();
  EndRun();
  SteadyAhead ahead(drive.DriveFiles());
  decodeAhead = &ahead;
  for (int i = 1; i <= 3; ++i) ahead.late.insert(PathOf(std::to_string(i) + ".jpg"));
  ProgramRun& run = StartedOnStrip();
  run.Wait(6 * ThumbsTick);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3);
  EXPECT_EQ(ahead.ThreadsStarted(), 0u);
}

TEST_F(LoadingAheadTest, LookingAheadLeavesNoCacheFileBehind) {
  drive.Write(PathOf("1.jpg"), LongJpeg(800, 600, 1));
  SteadyAhead ahead(drive.DriveFiles());
  decodeAhead = &ahead;
  ahead.late = {PathOf("1.jpg")};
  ProgramRun& run = StartedOnStrip();
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
  EXPECT_FALSE(drive.Exists("C:\\Strip\\Thumbnails.tmp"));
}

}  // namespace
}  // namespace pixorra
