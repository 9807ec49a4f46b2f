// Frames that a thread makes: what their users share is in FramesContract.
#include <cstdint>
#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "platform/codecs/FrameDecoder.h"
#include "platform/codecs/ThreadedFrames.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/codecs/BoundedMemory.h"
#include "tests/platform/codecs/PostedCalls.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr PixelSize FrameSize{64, 48};

// The same bitmap file with another size in its head.
std::string WithBmpSize(std::string file, int width, int height) {
  for (const auto& [at, value] : {std::pair(18, width), std::pair(22, height)}) {
    for (int i = 0; i < 4; ++i) file[static_cast<std::size_t>(at + i)] = static_cast<char>(value >> 8 * i & 255);
  }
  return file;
}

class ThreadedFramesTest : public ::testing::Test {
 protected:
  TemporaryDrive drive;
  std::shared_ptr<FaultyFiles> files = std::make_shared<FaultyFiles>(drive.DriveFiles());
  PostedCalls loop;
  std::optional<ThreadedFrames> frames{std::in_place, files, loop};
};

TEST_F(ThreadedFramesTest, FramesComeInTheOrderInWhichTheyWereAskedFor) {
  drive.Write("C:\\a.bmp", BmpPhoto(20, 10));
  drive.Write("C:\\b.bmp", BmpPhoto(10, 20));
  std::vector<std::string> came;
  const auto ask = [&](const std::string& path) {
    return frames->Make(path, FrameSize, {}, [&came, path](const PhotoFrame&) { came.push_back(path); });
  };
  const auto first = ask("C:\\b.bmp");
  const auto second = ask("C:\\none.bmp");
  const auto third = ask("C:\\a.bmp");
  for (int i = 0; i < 3; ++i) loop.RunNext();
  EXPECT_EQ(came, (std::vector<std::string>{"C:\\b.bmp", "C:\\none.bmp", "C:\\a.bmp"}));
}

TEST_F(ThreadedFramesTest, ADiskThatHangsHoldsUpNeitherTheProgramNorItsEnd) {
  drive.Write("C:\\a.bmp", BmpPhoto(20, 10));
  std::promise<void> hangs, goesOn, ended;
  files->BeforeNth(FileCall::OpenToRead, 1, [&] {
    hangs.set_value();
    goesOn.get_future().wait();
  });
  bool came = false;
  auto making = frames->Make("C:\\a.bmp", FrameSize, {}, [&](const PhotoFrame&) { came = true; });
  hangs.get_future().wait();
  making.reset();
  frames.reset();
  EXPECT_FALSE(came);
  // The thread holds the files until it ends.
  const std::weak_ptr<FaultyFiles> held = files;
  files.reset();
  goesOn.set_value();
  while (!held.expired()) std::this_thread::yield();
}

class FrameDecoderTest : public ::testing::Test {
 protected:
  static constexpr std::int64_t Gigabyte = std::int64_t{1024} * MiB;

  Bitmap Decoded(Files& from, const std::atomic<bool>& stop) {
    return DecodeFrame(*from.Open("C:\\photo.jpg", OpenMode::Read), FrameSize, stop);
  }
  int Raised() {
    const std::atomic<bool> stop = false;
    return ErrorOf([&] { Decoded(drive.DriveFiles(), stop); });
  }
  // As long as that, with nothing on the disk behind what was written.
  void MakeLong(std::int64_t bytes) {
    std::filesystem::resize_file(drive.HostPath("C:\\photo.jpg"), static_cast<std::uintmax_t>(bytes));
  }

  TemporaryDrive drive;
};

TEST_F(FrameDecoderTest, ADecodeThatIsNotWantedAnyMoreMakesNothing) {
  const std::atomic<bool> stop = true;
  for (const std::string& photo : {JpegPhoto(640, 480), BmpPhoto(640, 480)}) {
    drive.Write("C:\\photo.jpg", photo);
    EXPECT_TRUE(Decoded(drive.DriveFiles(), stop).IsEmpty());
  }
}

TEST_F(FrameDecoderTest, ALongBitmapIsNotReadToItsEndForNothing) {
  drive.Write("C:\\photo.jpg", BmpPhoto(1600, 1200));
  FaultyFiles files(drive.DriveFiles());
  std::atomic<bool> stop = false;
  files.BeforeNth(FileCall::Read, 3, [&] { stop = true; });
  EXPECT_TRUE(Decoded(files, stop).IsEmpty());
  EXPECT_LE(files.Count(FileCall::Read), 4);
}

TEST_F(FrameDecoderTest, AProgressivePhotoThatWouldTakeGigabytesIsRefused) {
  const std::string photo = JpegPhoto(64, 64, {.progressive = true});
  drive.Write("C:\\photo.jpg", WithJpegSize(photo, 30000, 30000) + std::string(4'000'000, '\0'));
  EXPECT_EQ(Raised(), error::OutOfMemory);
}

TEST_F(FrameDecoderTest, AFileThatIsNoPictureIsNotReadHoweverLongItIs) {
  drive.Write("C:\\photo.jpg", "no picture");
  MakeLong(Gigabyte * 3 / 2);
  WithinTwoGigabytes([&] { EXPECT_LT(MostTaken([&] { EXPECT_EQ(Raised(), error::BadPicture); }), 16 * MiB); });
}

TEST_F(FrameDecoderTest, APhotoWhoseFileAloneWouldTakeMoreThanAGigabyteIsRefusedUnread) {
  drive.Write("C:\\photo.jpg", JpegPhoto(64, 64));
  MakeLong(Gigabyte + 1);
  WithinTwoGigabytes([&] { EXPECT_LT(MostTaken([&] { EXPECT_EQ(Raised(), error::OutOfMemory); }), 16 * MiB); });
}

TEST_F(FrameDecoderTest, ABitmapTakesNoRoomForItsFile) {
  drive.Write("C:\\photo.jpg", WithBmpSize(BmpPhoto(64, 64), 8000, 8000));
  MakeLong(54 + std::int64_t{8000} * 8000 * 3);
  WithinTwoGigabytes(
      [&] { EXPECT_LT(MostTaken([&] { EXPECT_EQ(Raised(), error::None); }), 8000 * 8000 * 3 + 48 * MiB); });
}

TEST_F(FrameDecoderTest, ABitmapOfMoreThanAGigabyteIsRefused) {
  drive.Write("C:\\photo.jpg", WithBmpSize(BmpPhoto(64, 64), 17000, 16000));
  MakeLong(54 + std::int64_t{17000} * 16000 * 3);
  WithinTwoGigabytes([&] { EXPECT_LT(MostTaken([&] { EXPECT_EQ(Raised(), error::OutOfMemory); }), 16 * MiB); });
}

}  // namespace
}  // namespace pixorra
