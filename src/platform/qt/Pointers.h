// Mouse pointers: the system's own, and pictures.
#pragma once

#include <QCursor>

#include "platform/controls/Toolkit.h"

namespace pixorra {

class ArtStore;

QCursor ToCursor(const Toolkit::PointerShown& pointer, ArtStore& art, double devicePixelRatio);

}  // namespace pixorra
