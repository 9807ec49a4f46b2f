// A picture as a page holds it: no finer than it is printed, and without what is not shown of it.
#pragma once

#include <QImage>
#include <QRectF>

#include "platform/pixels/Picture.h"

namespace pixorra {

struct PagePicture {
  QImage Image;          // RGB32; null where nothing is to be seen
  QRectF Place;          // of the whole image
  QRectF Shown;          // the part of the place that is printed
  bool IsPhoto = false;  // it has more colours than a drawing, or would be large exactly
};

// `part` of the picture in pixels is stretched into `place`, in twips. An image of more than 2 megabytes as a page
// holds it is reduced below what `dotsPerInch` asks for. Raises OutOfMemory.
PagePicture MakePagePicture(const Picture& picture, const QRectF& place, const QRectF& part, double dotsPerInch);

}  // namespace pixorra
