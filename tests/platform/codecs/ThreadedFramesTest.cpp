// Frames that a thread makes: what their users share is in FramesContract.
#include <condition_variable>
#include <deque>
#include <future>
#include <gtest/gtest.h>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/codecs/FrameDecoder.h"
#include "platform/codecs/ThreadedFrames.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr PixelSize FrameSize{64, 48};

// A loop that runs what was posted when the test says so.
class PostedCalls : public Posting {
 public:
  void Post(std::function<void()> call) override {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
    came_.notify_all();
  }
  void RunNext() {
    std::unique_lock lock(mutex_);
    came_.wait(lock, [this] { return !calls_.empty(); });
    const std::function<void()> call = std::move(calls_.front());
    calls_.pop_front();
    lock.unlock();
    call();
  }

 private:
  std::mutex mutex_;
  std::condition_variable came_;
  std::deque<std::function<void()>> calls_;
};

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

TEST(FrameDecoderTest, ADecodeThatIsNotWantedAnyMoreMakesNothing) {
  const std::string photo = JpegPhoto(640, 480);
  const std::atomic<bool> stop = true;
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(photo.data()), photo.size());
  EXPECT_TRUE(DecodeFrame(bytes, FrameSize, stop).IsEmpty());
}

TEST(FrameDecoderTest, AProgressivePhotoThatWouldTakeGigabytesIsRefused) {
  std::string photo = JpegPhoto(64, 64, {.progressive = true});
  photo = WithJpegSize(photo, 30000, 30000) + std::string(4'000'000, '\0');
  const std::atomic<bool> stop = false;
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(photo.data()), photo.size());
  EXPECT_EQ(ErrorOf([&] { DecodeFrame(bytes, FrameSize, stop); }), error::OutOfMemory);
}

}  // namespace
}  // namespace pixorra
