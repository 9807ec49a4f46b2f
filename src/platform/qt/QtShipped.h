// Files that come with the program, from its resources.
#pragma once

#include "platform/qt/ArtStore.h"
#include "platform/services/Shipped.h"

namespace pixorra {

class QtShipped final : public Shipped {
 public:
  // The store is what makes the resources known.
  explicit QtShipped(const ArtStore&) {}
  std::string Bytes(const std::string& name) override;
};

}  // namespace pixorra
