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
  PreviewState(Form& window, Host& host);

  bool bPicEdited = false;  // an outside editor has been started since the last click
  std::string sFullSizeFile;
  bool bPreviewNoButtons = false;

  Picture Logo;
  ImageBox PicPreview;   // its Tag is the selected photo's path
  Label PicPreviewSize;  // its caption, shown for a while
  Timer AutoPicPreviewTimer;
  Timer PicPreviewSizeAutoClrTimer;
};

}  // namespace pixorra
