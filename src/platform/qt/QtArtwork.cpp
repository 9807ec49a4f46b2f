#include "platform/qt/QtArtwork.h"

#include <QImageReader>

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// A scene too rich for a drawing ships as a photograph; it has no sharper form than its pixels.
Picture Photograph(const std::string& name, int width, int height) {
  QImageReader reader(QStringLiteral(":/") + ToQString(name) + QStringLiteral(".jpg"));
  reader.setScaledSize(QSize(width, height));
  return ToPicture(reader.read());
}

}  // namespace

Picture QtArtwork::Drawing(const std::string& name, int width, int height) {
  if (!store_.Has(name)) {
    Picture photograph = Photograph(name, width, height);
    if (photograph.IsNothing()) throw RuntimeError(error::FileNotFound);
    return photograph;
  }
  return Picture(ToAlphaBitmap(store_.Render(name, {width, height})), name);
}

}  // namespace pixorra
