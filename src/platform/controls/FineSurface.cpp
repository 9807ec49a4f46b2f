#include "platform/controls/FineSurface.h"

#include <algorithm>
#include <cmath>

#include "platform/pixels/Stretch.h"

namespace pixorra {

int FinePixel(double place) {
  return static_cast<int>(std::clamp(std::floor(place + 0.5), -1e9, 1e9));
}

Rect FineRect(const Rect& at, double fineness) {
  const auto edge = [fineness](double pixel) { return FinePixel(pixel * fineness); };
  const int left = edge(at.Left);
  const int top = edge(at.Top);
  return {left, top, edge(static_cast<double>(at.Left) + at.Width) - left,
          edge(static_cast<double>(at.Top) + at.Height) - top};
}

void StretchFine(const Picture& picture, Bitmap& fine, const Rect& at, double fineness) {
  const Rect part = FineRect(at, fineness);
  Stretch(picture, fine, part.Left, part.Top, part.Width, part.Height);
}

}  // namespace pixorra
