#include "pictures/DotScreen.h"

#include <cstdint>
#include <utility>

#include "platform/controls/ImageBox.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

void DotScreen(Bitmap& picture) {
  const int bytes = picture.BytesPerPixel();
  for (int y = 0; y < picture.Height(); ++y) {
    std::uint8_t* row = picture.Row(y);
    for (int x = 0; x < picture.Width(); ++x) {
      if (x % 2 == 1 && y % 2 == 1) continue;
      std::uint8_t* pixel = row + x * bytes;
      pixel[0] = pixel[1] = pixel[2] = 0;
      if (bytes == 4) pixel[3] = 255;
    }
  }
}

void ShadeThumbnail(ImageBox& thumbnail) {
  if (thumbnail.GetPicture().IsNothing()) return;
  Bitmap shaded = thumbnail.GetPicture().Pixels().Clone();
  DotScreen(shaded);
  thumbnail.SetPicture(Picture(std::move(shaded)));
}

}  // namespace pixorra
