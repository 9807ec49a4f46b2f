// Drops: the run of a whole film strip, the memory of the last drop, and the icons of a drag.
#pragma once

#include <cstdint>
#include <string>

#include "platform/pixels/Picture.h"

namespace pixorra {

struct Host;

struct DropState {
  explicit DropState(Host& host);

  bool DropAllRunning = false;
  bool DropAllAbort = false;
  std::int16_t LastDropSrcIndex = 0;  // -1 after a paste
  std::int16_t LastDropFolder = 0;    // 0 none
  std::string LastDropFile;

  // There is nothing to undo any more.
  void ForgetLastDrop() {
    LastDropSrcIndex = 0;
    LastDropFolder = 0;
    LastDropFile.clear();
  }

  Picture DropIcon;
  Picture ReelDragIcon;
  Picture NotReadyIcon;

  bool dragQuestionUp = false;  // a box that a drag of AllButton has brought up is shown
};

}  // namespace pixorra
