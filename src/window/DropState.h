// Drops: the run of a whole film strip, the memory of the last drop, and the icons of a drag.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/controls/ImageBox.h"
#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"

namespace pixorra {

struct Host;

// Lengths of a folder's files as one run of the whole strip has seen them, in the order of the folder's list. Each drop
// looks for an equal file among all that the folder lists; only those that are new to the run are looked at.
struct SeenLengths {
  struct File {
    std::string Name;
    std::int64_t Length = 0;  // bytes
  };
  std::string Folder;
  std::vector<File> Of;
};

struct DropState {
  explicit DropState(Host& host);

  bool DropRunning = false;     // of one photo or of the whole strip, until it is done
  bool DropAllRunning = false;  // of the whole strip
  bool DropAllAbort = false;
  std::int16_t LastDropSrcIndex = 0;  // -1 after a paste
  std::int16_t LastDropFolder = 0;    // 0 none
  std::string LastDropFile;
  // What the file was when it was made: an undo deletes no other one.
  FileStamp LastDropStamp;
  // The photo that the file is a copy of, what it was then, and its thumbnail while that is loaded. Empty after a
  // paste.
  std::string LastDropPhoto;
  FileStamp LastDropPhotoStamp;
  Watch<ImageBox> LastDropSource;

  // A file was made in the folder of that slot: there is no other one to undo.
  void RememberDrop(std::int16_t srcIndex, int slot, const std::string& file, const FileStamp& made) {
    LastDropSrcIndex = srcIndex;
    LastDropFolder = static_cast<std::int16_t>(slot);
    LastDropFile = file;
    LastDropStamp = made;
    LastDropPhoto.clear();
    LastDropPhotoStamp = {};
    LastDropSource = {};
  }
  // It is a copy of that thumbnail's photo, as that was when it was copied.
  void RememberSource(const std::string& photo, const FileStamp& copied, ImageBox& thumbnail) {
    LastDropPhoto = photo;
    LastDropPhotoStamp = copied;
    LastDropSource = Watch<ImageBox>(thumbnail);
  }
  // There is nothing to undo any more.
  void ForgetLastDrop() {
    LastDropSrcIndex = 0;
    LastDropFolder = 0;
    LastDropFile.clear();
    LastDropStamp = {};
    LastDropPhoto.clear();
    LastDropPhotoStamp = {};
    LastDropSource = {};
  }

  Picture DropIcon;
  Picture ReelDragIcon;
  Picture NotReadyIcon;

  std::unordered_set<std::string> KnownFolders;  // into which photos have been dropped in this run of the program
  SeenLengths seenLengths;                       // begun anew by each gesture that is not part of a run
  bool dragQuestionUp = false;                   // a box that a drag of AllButton has brought up is shown
};

}  // namespace pixorra
