// Files that come with the program, small ones: a picture of 16 by 12 grey pixels, and a text of two lines.
#pragma once

#include <map>

#include "platform/services/Shipped.h"

namespace pixorra {

class HeadlessShipped : public Shipped {
 public:
  HeadlessShipped();
  std::string Bytes(const std::string& name) override;

  // What Bytes gives, by name; a test may change it.
  std::map<std::string, std::string> Files;
};

}  // namespace pixorra
