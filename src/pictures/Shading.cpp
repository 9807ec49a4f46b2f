#include "pictures/Shading.h"

#include <utility>

#include "platform/controls/ImageBox.h"
#include "platform/pixels/DotScreen.h"

namespace pixorra {

void ShadeThumbnail(ImageBox& thumbnail) {
  if (thumbnail.GetPicture().IsNothing()) return;
  Bitmap shaded = thumbnail.GetPicture().Pixels().Clone();
  DotScreen(shaded);
  thumbnail.SetPicture(Picture(std::move(shaded)));
}

}  // namespace pixorra
