#include "platform/session/ServerWish.h"

#include <X11/Xlib.h>
#include <X11/extensions/scrnsaver.h>

namespace pixorra {

ServerWish::ServerWish() : display_(XOpenDisplay(nullptr)) {
  auto* const display = static_cast<Display*>(display_);
  int events = 0, errors = 0;
  if (display == nullptr || XScreenSaverQueryExtension(display, &events, &errors) == 0) return;
  XScreenSaverSuspend(display, True);
  XSync(display, False);
}

ServerWish::~ServerWish() {
  if (display_ != nullptr) XCloseDisplay(static_cast<Display*>(display_));
}

}  // namespace pixorra
