#include "window/PicturesState.h"

#include "base/Definition.h"
#include "base/Host.h"

namespace pixorra {

PicturesState::PicturesState(Form& window, Host& host)
    : TempImage(window, "TempImage"),
      TempPic(window, "TempPic"),
      InvalidPicture(Drawing(host, "InvalidPicture", 80, 60)),
      jpegBridge{host.jpeg, host.files, host.dialogs} {}

}  // namespace pixorra
