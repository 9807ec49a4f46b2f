#include "platform/codecs/ThreadedTwins.h"

#include "platform/codecs/TwinDecoder.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

class TwinMaking final : public ThumbnailTwins::Making {
 public:
  explicit TwinMaking(std::unique_ptr<TaskThread::Wish> wish) : wish_(std::move(wish)) {}

 private:
  std::unique_ptr<TaskThread::Wish> wish_;
};

}  // namespace

std::unique_ptr<ThumbnailTwins::Making> ThreadedTwins::Make(const std::string& photo, const Picture& thumbnail,
                                                            PixelSize size, Handler handler) {
  const std::string path = OrElse(std::string(), [&] { return spelling_(photo); });
  thumbnail.Pixels();  // made here, if they are not yet: the thread only reads them
  const auto twin = std::make_shared<Picture>();
  auto work = [files = files_, path, thumbnail, size, twin](const std::atomic<bool>& stop) {
    const std::unique_ptr<File> file = files->Open(path, OpenMode::Read);
    *twin = Picture(DecodeTwin(*file, thumbnail.Pixels(), size, stop));
  };
  auto then = [twin, handler = std::move(handler)] { handler(*twin); };
  return std::make_unique<TwinMaking>(thread_.Begin(std::move(work), std::move(then)));
}

}  // namespace pixorra
