#include "platform/pixels/DotScreen.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace pixorra {

namespace {

constexpr bool IsInDot(int x, int y) {
  return x % 2 == 1 && y % 2 == 1;
}

constexpr int WholeShare = 256;

// Which part of each of `pixels` lies in an odd one of `shaded` places along the same side.
std::vector<int> Shares(int pixels, int shaded) {
  std::vector<int> shares;
  for (std::int64_t i = 0; i < pixels; ++i) {
    // In parts of which a place has `pixels` and a pixel has `shaded`.
    const std::int64_t from = i * shaded;
    const std::int64_t to = from + shaded;
    std::int64_t covered = 0;
    for (std::int64_t place = from / pixels; place * pixels < to; ++place) {
      if (place % 2 == 1) covered += std::min(to, (place + 1) * pixels) - std::max(from, place * pixels);
    }
    shares.push_back(static_cast<int>((covered * WholeShare + shaded / 2) / shaded));
  }
  return shares;
}

}  // namespace

void DotScreen(Bitmap& picture) {
  const int bytes = picture.BytesPerPixel();
  for (int y = 0; y < picture.Height(); ++y) {
    std::uint8_t* row = picture.Row(y);
    for (int x = 0; x < picture.Width(); ++x) {
      if (IsInDot(x, y)) continue;
      std::uint8_t* pixel = row + x * bytes;
      pixel[0] = pixel[1] = pixel[2] = 0;
      if (bytes == 4) pixel[3] = 255;
    }
  }
}

bool IsDotScreened(const Bitmap& picture) {
  const int bytes = picture.BytesPerPixel();
  for (int y = 0; y < picture.Height(); ++y) {
    const std::uint8_t* row = picture.Row(y);
    for (int x = 0; x < picture.Width(); ++x) {
      const std::uint8_t* pixel = row + x * bytes;
      if (!IsInDot(x, y) && (pixel[0] | pixel[1] | pixel[2]) != 0) return false;
    }
  }
  return true;
}

void DotScreenAs(Bitmap& picture, PixelSize shaded) {
  const int bytes = picture.BytesPerPixel();
  const std::vector<int> across = Shares(picture.Width(), shaded.Width);
  const std::vector<int> down = Shares(picture.Height(), shaded.Height);
  for (int y = 0; y < picture.Height(); ++y) {
    std::uint8_t* row = picture.Row(y);
    for (int x = 0; x < picture.Width(); ++x) {
      const int share = across[static_cast<std::size_t>(x)] * down[static_cast<std::size_t>(y)];
      std::uint8_t* pixel = row + x * bytes;
      for (int i = 0; i < 3; ++i) pixel[i] = static_cast<std::uint8_t>(pixel[i] * share / (WholeShare * WholeShare));
      if (bytes == 4) pixel[3] = 255;
    }
  }
}

}  // namespace pixorra
