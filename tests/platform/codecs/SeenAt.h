// Photos on their side, as the Exif standard describes them.
#pragma once

#include <utility>

namespace pixorra {

// Where the standard says that the stored pixel at x, y is to be seen.
inline std::pair<int, int> SeenAt(int orientation, int x, int y, int width, int height) {
  const int right = width - 1 - x;
  const int below = height - 1 - y;
  switch (orientation) {
    case 2:
      return {right, y};
    case 3:
      return {right, below};
    case 4:
      return {x, below};
    case 5:
      return {y, x};
    case 6:
      return {below, x};
    case 7:
      return {below, right};
    case 8:
      return {y, right};
    default:
      return {x, y};
  }
}

}  // namespace pixorra
