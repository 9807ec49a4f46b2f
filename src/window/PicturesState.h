// What the picture pipeline keeps between calls: scratch elements, the loader's reduction and guard, the cache's index.
#pragma once

#include <memory>

#include "base/QuickThumbsIndex.h"
#include "base/cDIBsection.h"
#include "base/mIntelJpgHelper.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/PictureBox.h"

namespace pixorra {

struct Host;

struct PicturesState {
 private:
  Form& window_;  // ahead of the controls, which lie on it

 public:
  PicturesState(Form& window, Host& host);

  // Scratch elements: a routine makes its own at the highest index plus 1, and gives it back.
  ControlArray<ImageBox> TempImage{window_, "TempImage"};
  ControlArray<PictureBox> TempPic{window_, "TempPic"};
  Picture InvalidPicture;  // in place of a photo that cannot be shown

  int lDecodeScale = 4;  // the JPEG reduction for the next fast decode: 1, 2, 4 or 8
  bool bLoaderBusy = false;
  std::unique_ptr<cDIBsection> gLoaderDib;  // the surface of the last fast decode
  JpegBridge jpegBridge;

  QuickThumbsIndex quickThumbs;
};

}  // namespace pixorra
