#include "platform/pixels/Framing.h"

#include <algorithm>
#include <cmath>

#include "platform/pixels/Stretch.h"

namespace pixorra {

PixelSize FramedSize(PixelSize photo, PixelSize screen) {
  constexpr double MostEnlarged = 2;
  const double across = static_cast<double>(screen.Width) / photo.Width;
  const double down = static_cast<double>(screen.Height) / photo.Height;
  const double scale = std::min({across, down, MostEnlarged});
  const auto side = [scale](int own, int most) {
    return std::clamp(static_cast<int>(std::lround(own * scale)), 1, most);
  };
  return {side(photo.Width, screen.Width), side(photo.Height, screen.Height)};
}

Bitmap FrameOf(const Bitmap& pixels, PixelSize framed, PixelSize screen) {
  Bitmap frame(screen.Width, screen.Height, PixelFormat::Bgra32);
  frame.Fill(0);
  Stretch(pixels, frame, (screen.Width - framed.Width) / 2, (screen.Height - framed.Height) / 2, framed.Width,
          framed.Height);
  return frame;
}

}  // namespace pixorra
