// Frames that come when a test wants them. The photos are those of real Files.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "platform/services/Files.h"
#include "platform/services/PhotoFrames.h"
#include "platform/services/Pictures.h"
#include "platform/services/Posting.h"

namespace pixorra {

class HeadlessFrames : public PhotoFrames {
 public:
  HeadlessFrames(Files& files, Pictures& pictures, Posting& posting)
      : files_(files), pictures_(pictures), posting_(posting) {}

  std::unique_ptr<Making> Make(const std::string& path, PixelSize screen, const PhotoFrame& known,
                               Handler handler) override;

  // From here on no frame is ready by itself, or each one is in the next turn of the loop, as at first.
  void Hold(bool hold) { hold_ = hold; }
  // The photos that are being made, in their order.
  std::vector<std::string> Waiting() const;
  // The first that waits is ready in the next turn, from the file as it is then; false where none waits.
  bool Finish();
  // Photos that were read and decoded since the start; a known one that served again is none.
  int Decoded() const { return decoded_; }

 private:
  class Held;
  struct Request {
    std::string Path;
    PixelSize Screen;
    PhotoFrame Known;
    Handler Then;
  };
  PhotoFrame FrameFor(const Request& request);
  void AnswerSoon(const std::shared_ptr<Request>& request);

  Files& files_;
  Pictures& pictures_;
  Posting& posting_;
  std::list<std::weak_ptr<Request>> waiting_;
  int decoded_ = 0;
  bool hold_ = false;
};

}  // namespace pixorra
