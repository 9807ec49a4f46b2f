// Short words for a window's definition: places in twips, drawings by name.
#pragma once

#include <string>

#include "base/Host.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/services/Pictures.h"

namespace pixorra {

// Twips become pixels.
inline void Place(Control& control, double left, double top, double width, double height) {
  control.Move(left / TwipsPerPixel, top / TwipsPerPixel, width / TwipsPerPixel, height / TwipsPerPixel);
}

// A drawing of the program's own, sized in pixels.
inline Picture Drawing(const Host& host, const std::string& name, int width, int height) {
  return host.artwork.Drawing(name, width, height);
}

}  // namespace pixorra
