// The files that come with the program: "Clouds.jpg", the default scene of the Desktop, and "Readme.txt".
#pragma once

#include <string>

namespace pixorra {

class Shipped {
 public:
  virtual ~Shipped() = default;
  // The whole file. Raises FileNotFound for a name that none has.
  virtual std::string Bytes(const std::string& name) = 0;
};

}  // namespace pixorra
