// Frames made by a thread of this back end, one after the other.
#pragma once

#include <memory>
#include <string>

#include "platform/codecs/TaskThread.h"
#include "platform/services/Files.h"
#include "platform/services/PhotoFrames.h"
#include "platform/services/Posting.h"

namespace pixorra {

// The thread begins with the first frame. One whose disk does not answer is left to itself at the program's end.
class ThreadedFrames final : public PhotoFrames {
 public:
  // The files are the thread's alone from here on: nobody else may use them, or what they are made of.
  ThreadedFrames(std::shared_ptr<Files> files, Posting& posting) : files_(std::move(files)), thread_(posting) {}

  std::unique_ptr<Making> Make(const std::string& path, PixelSize screen, const PhotoFrame& known,
                               Handler handler) override;

 private:
  std::shared_ptr<Files> files_;
  TaskThread thread_;
};

}  // namespace pixorra
