// The thumbnail of the photo that is selected in the browser. Photos are decoded ahead of it, so that a person who
// holds an arrow key down is not held up: one that is not ready is shown when it is, unless another has been selected
// by then.
#pragma once

#include <string>

#include "platform/controls/FileListBox.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"

namespace pixorra {

struct MainForm;

class PhotoGlance {
 public:
  PhotoGlance(MainForm& main, FileListBox& files, ImageBox& preview, Label& name);
  PhotoGlance(const PhotoGlance&) = delete;
  PhotoGlance& operator=(const PhotoGlance&) = delete;

  // The entry of the list is to be shown.
  void Show(int index);
  // The entry that is to be shown is not ready yet; what is seen is another's, or nobody's.
  bool IsAwaited() const { return waiting_.Enabled(); }
  // None is. What has been decoded ahead is given up.
  void Stop();

 private:
  bool IsPrepared();
  void ShowNow();

  MainForm& main_;
  FileListBox& files_;
  ImageBox& preview_;
  Label& name_;
  Timer waiting_;
  int index_ = -1;
  int step_ = 1;  // towards the entry that is likely to be next
  std::string path_;
};

}  // namespace pixorra
