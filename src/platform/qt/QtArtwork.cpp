#include "platform/qt/QtArtwork.h"

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

// Nothing is drawn yet: the screen asks the store itself, at its own scale, and most drawings are not seen at first.
Picture QtArtwork::Drawing(const std::string& name, int width, int height) {
  if (!store_.Has(name)) throw RuntimeError(error::FileNotFound);
  return Picture(width, height, name, [&store = store_, name, size = QSize(width, height)] {
    return ToAlphaBitmap(store.Render(name, size));
  });
}

}  // namespace pixorra
