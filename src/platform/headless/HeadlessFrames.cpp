#include "platform/headless/HeadlessFrames.h"

#include <utility>

#include "platform/pixels/Framing.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

// Whoever asked holds the request; it ends with that.
class HeadlessFrames::Held : public Making {
 public:
  explicit Held(std::shared_ptr<Request> request) : request_(std::move(request)) {}
  ~Held() override { request_->Then = {}; }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

 private:
  std::shared_ptr<Request> request_;
};

std::unique_ptr<PhotoFrames::Making> HeadlessFrames::Make(const std::string& path, PixelSize screen,
                                                          const PhotoFrame& known, Handler handler) {
  const auto request = std::make_shared<Request>(Request{path, screen, known, std::move(handler)});
  if (hold_) {
    waiting_.push_back(request);
  } else {
    AnswerSoon(request);
  }
  return std::make_unique<Held>(request);
}

PhotoFrame HeadlessFrames::FrameFor(const Request& request) {
  PhotoFrame frame;
  const std::unique_ptr<File> file = files_.Open(request.Path, OpenMode::Read);
  frame.Stamp = file->Stamp();
  const Picture& known = request.Known.Shown;
  const bool fits = known.IsNothing() || PixelSize{known.Width(), known.Height()} == request.Screen;
  if (request.Known.Stamp == frame.Stamp && fits) return request.Known;
  ++decoded_;
  ErrorsIgnored([&] {
    const Picture photo = pictures_.Load(*file);
    const PixelSize framed = FramedSize({photo.Width(), photo.Height()}, request.Screen);
    frame.Shown = Picture(FrameOf(photo.Pixels(), framed, request.Screen));
  });
  return frame;
}

void HeadlessFrames::AnswerSoon(const std::shared_ptr<Request>& request) {
  posting_.Post([this, request] {
    const Handler then = std::exchange(request->Then, {});
    if (!then) return;
    PhotoFrame frame;
    ErrorsIgnored([&] { frame = FrameFor(*request); });
    request->Known = {};
    then(frame);
  });
}

std::vector<std::string> HeadlessFrames::Waiting() const {
  std::vector<std::string> paths;
  for (const auto& request : waiting_) {
    if (const auto held = request.lock()) paths.push_back(held->Path);
  }
  return paths;
}

bool HeadlessFrames::Finish() {
  while (!waiting_.empty()) {
    const auto held = waiting_.front().lock();
    waiting_.pop_front();
    if (held == nullptr) continue;
    AnswerSoon(held);
    return true;
  }
  return false;
}

}  // namespace pixorra
