// Thumbnails' twins made by a thread of this back end, one after the other.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/codecs/TaskThread.h"
#include "platform/services/Files.h"
#include "platform/services/Posting.h"
#include "platform/services/ThumbnailTwins.h"

namespace pixorra {

// The thread begins with the first twin. One whose disk does not answer is left to itself at the program's end.
class ThreadedTwins final : public ThumbnailTwins {
 public:
  using Spelling = std::function<std::string(const std::string& path)>;

  // The files are the thread's alone from here on: nobody else may use them, or what they are made of. `spelling` is
  // asked in the program's thread for the path by which they know a photo; it may raise.
  ThreadedTwins(std::shared_ptr<Files> files, Posting& posting, Spelling spelling)
      : files_(std::move(files)), thread_(posting), spelling_(std::move(spelling)) {}

  std::unique_ptr<Making> Make(const std::string& photo, const Picture& thumbnail, PixelSize size,
                               Handler handler) override;

 private:
  std::shared_ptr<Files> files_;
  TaskThread thread_;
  Spelling spelling_;
};

}  // namespace pixorra
