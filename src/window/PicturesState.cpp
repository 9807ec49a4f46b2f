#include "window/PicturesState.h"

#include "base/Definition.h"
#include "base/Host.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

PicturesState::PicturesState(Form& window, Host& host)
    : window_(window),
      InvalidPicture(Drawing(host, "InvalidPicture", ThumbnailWidth, ThumbnailHeight)),
      jpegBridge{host.jpeg, host.files, host.dialogs} {}

}  // namespace pixorra
