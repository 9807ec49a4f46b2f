// The sums of a proof sheet that its page and its preview share.
#pragma once

#include "platform/runtime/Numbers.h"

namespace pixorra {

// How many pages so many photos take with `across` of them across and down.
inline int ProofPages(int photos, int across) {
  return (photos - 1) / (across * across) + 1;
}

// Cells have the shape of thumbnails.
inline int ProofCellWidth(int cellHeight) {
  return CLng(80.0 / 60.0 * cellHeight);
}

}  // namespace pixorra
