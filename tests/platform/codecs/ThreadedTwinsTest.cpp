// Twins of thumbnails made by a thread.
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/codecs/ThreadedTwins.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/codecs/PostedCalls.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr PixelSize Fine{160, 120};

class ThreadedTwinsTest : public ::testing::Test {
 protected:
  // Of a photo that is written here.
  Picture ThumbnailOf(const std::string& path) {
    drive.Write(path, JpegPhoto(800, 600));
    Bitmap thumbnail(80, 60, PixelFormat::Bgr24);
    Stretch(SmoothBitmap(800, 600), thumbnail, 0, 0, 80, 60);
    return Picture(std::move(thumbnail));
  }

  TemporaryDrive drive;
  PostedCalls loop;
  std::vector<std::string> spelled;
  std::optional<ThreadedTwins> twins{std::in_place, std::make_shared<FaultyFiles>(drive.DriveFiles()), loop,
                                     [this](const std::string& path) {
                                       spelled.push_back(path);
                                       if (path.starts_with("Z:")) throw RuntimeError(error::PathNotFound);
                                       return "C:" + path.substr(2);
                                     }};
};

TEST_F(ThreadedTwinsTest, ATwinComesFromThePathThatTheThreadKnows) {
  const Picture thumbnail = ThumbnailOf("C:\\a.jpg");
  Picture twin;
  const auto making = twins->Make("D:\\a.jpg", thumbnail, Fine, [&](const Picture& made) { twin = made; });
  EXPECT_EQ(spelled, (std::vector<std::string>{"D:\\a.jpg"}));
  EXPECT_TRUE(twin.IsNothing());
  loop.RunNext();
  EXPECT_EQ(twin.Width(), Fine.Width);
  EXPECT_EQ(twin.Height(), Fine.Height);
}

TEST_F(ThreadedTwinsTest, APhotoThatIsNotThereHasNone) {
  const Picture thumbnail = ThumbnailOf("C:\\a.jpg");
  for (const char* path : {"C:\\none.jpg", "Z:\\a.jpg", "C:\\"}) {
    bool came = false;
    const auto making = twins->Make(path, thumbnail, Fine, [&](const Picture& made) { came = made.IsNothing(); });
    loop.RunNext();
    EXPECT_TRUE(came) << path;
  }
}

TEST_F(ThreadedTwinsTest, AMakingThatHasEndedIsNotHeardOf) {
  const Picture thumbnail = ThumbnailOf("C:\\a.jpg");
  std::vector<std::string> came;
  auto ended = twins->Make("C:\\a.jpg", thumbnail, Fine, [&](const Picture&) { came.emplace_back("ended"); });
  const auto other = twins->Make("C:\\a.jpg", thumbnail, Fine, [&](const Picture&) { came.emplace_back("other"); });
  ended.reset();
  while (came.empty()) loop.RunNext();
  EXPECT_EQ(came, (std::vector<std::string>{"other"}));
}

}  // namespace
}  // namespace pixorra
