#include "platform/codecs/ThreadedFrames.h"

#include <utility>

#include "platform/codecs/FrameDecoder.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

class FrameMaking final : public PhotoFrames::Making {
 public:
  explicit FrameMaking(std::unique_ptr<TaskThread::Wish> wish) : wish_(std::move(wish)) {}

 private:
  std::unique_ptr<TaskThread::Wish> wish_;
};

bool Serves(const PhotoFrame& known, const FileStamp& stamp, PixelSize screen) {
  return known.Stamp == stamp &&
         (known.Shown.IsNothing() || (known.Shown.Width() == screen.Width && known.Shown.Height() == screen.Height));
}

void MakeFrame(Files& files, const std::string& path, PixelSize screen, PhotoFrame known, const std::atomic<bool>& stop,
               PhotoFrame& frame) {
  const std::unique_ptr<File> file = files.Open(path, OpenMode::Read);
  frame.Stamp = file->Stamp();
  if (Serves(known, frame.Stamp, screen)) {
    frame = std::move(known);
    return;
  }
  known = {};  // not held while another is made
  frame.Shown = Picture(DecodeFrame(*file, screen, stop));
}

}  // namespace

std::unique_ptr<PhotoFrames::Making> ThreadedFrames::Make(const std::string& path, PixelSize screen,
                                                          const PhotoFrame& known, Handler handler) {
  const auto frame = std::make_shared<PhotoFrame>();
  auto work = [files = files_, path, screen, had = PhotoFrame(known), frame](const std::atomic<bool>& stop) mutable {
    const int failure = ErrorsIgnored([&] { MakeFrame(*files, path, screen, std::exchange(had, {}), stop, *frame); });
    // What fails for anything but the file itself may do better another time.
    if (failure != error::None && failure != error::BadPicture) frame->Stamp = {};
  };
  auto then = [frame, handler = std::move(handler)] { handler(*frame); };
  return std::make_unique<FrameMaking>(thread_.Begin(std::move(work), std::move(then)));
}

}  // namespace pixorra
