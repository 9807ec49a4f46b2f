// The program's drawings as flat colours, one a name.
#pragma once

#include <map>
#include <tuple>
#include <vector>

#include "platform/services/Pictures.h"

namespace pixorra {

class HeadlessArtwork : public Artwork {
 public:
  // The same name and size give the same picture object.
  Picture Drawing(const std::string& name, int width, int height) override;
  static const std::vector<std::string>& Names();

 private:
  std::map<std::tuple<std::string, int, int>, Picture> drawn_;
};

}  // namespace pixorra
