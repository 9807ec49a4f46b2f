// The preview pane: the selected photo, its caption, and the timers that keep both fresh.
#pragma once

#include <string>

#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Timer.h"

namespace pixorra {

struct Host;

struct PreviewState {
 private:
  Form& window_;  // ahead of the controls, which lie on it

 public:
  PreviewState(Form& window, Host& host);

  bool bPicEdited = false;  // an outside editor has been started since the last click
  std::string sFullSizeFile;
  bool bPreviewNoButtons = false;

  Picture Logo;
  ImageBox PicPreview{window_, "PicPreview"};       // its Tag is the selected photo's path
  Label PicPreviewSize{window_, "PicPreviewSize"};  // its caption, shown for a while
  Timer AutoPicPreviewTimer{window_, "AutoPicPreviewTimer", 1000};
  Timer PicPreviewSizeAutoClrTimer{window_, "PicPreviewSizeAutoClrTimer", 2000};
};

// The full path of the selected photo; empty where none is selected.
inline const std::string& SelectedPhoto(const PreviewState& preview) {
  return preview.PicPreview.Tag();
}

}  // namespace pixorra
