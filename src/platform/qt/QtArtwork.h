// The program's own drawings as picture objects.
#pragma once

#include "platform/qt/ArtStore.h"
#include "platform/services/Pictures.h"

namespace pixorra {

class QtArtwork final : public Artwork {
 public:
  explicit QtArtwork(ArtStore& store) : store_(store) {}
  Picture Drawing(const std::string& name, int width, int height) override;

 private:
  ArtStore& store_;
};

}  // namespace pixorra
