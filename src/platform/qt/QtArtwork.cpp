#include "platform/qt/QtArtwork.h"

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

Picture QtArtwork::Drawing(const std::string& name, int width, int height) {
  if (!store_.Has(name)) throw RuntimeError(error::FileNotFound);
  return Picture(ToAlphaBitmap(store_.Render(name, {width, height})), name);
}

}  // namespace pixorra
