#include "window/DropState.h"

#include "base/Definition.h"

namespace pixorra {

DropState::DropState(Host& host)
    : DropIcon(Drawing(host, "DropIcon", 32, 32)),
      ReelDragIcon(Drawing(host, "ReelDragIcon", 32, 32)),
      NotReadyIcon(Drawing(host, "NotReadyIcon", 32, 32)) {}

}  // namespace pixorra
