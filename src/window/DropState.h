// Drops: the run of a whole film strip, the memory of the last drop, and the icons of a drag.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "platform/pixels/Picture.h"

namespace pixorra {

struct Host;

// Lengths of a folder's files, by their names, as one run of the whole strip has seen them. Each drop looks for an
// equal file among all that the folder lists; only those that are new to the run are looked at.
struct SeenLengths {
  std::string Folder;
  std::unordered_map<std::string, std::int64_t> Of;  // bytes
};

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

  std::unordered_set<std::string> KnownFolders;  // into which photos have been dropped in this run of the program
  SeenLengths seenLengths;                       // begun anew by each gesture that is not part of a run
  bool dragQuestionUp = false;                   // a box that a drag of AllButton has brought up is shown
};

}  // namespace pixorra
