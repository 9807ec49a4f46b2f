// The wish that the screen stay on, at the session's bus.
#pragma once

#include <string>

#include "platform/posix/GlibPointers.h"

namespace pixorra {

// Held by a connection of its own, and forgotten when that is closed. Made and ended in one thread; it may wait for a
// service for some seconds.
class BusWish {
 public:
  explicit BusWish(const std::string& why);
  ~BusWish();
  BusWish(const BusWish&) = delete;
  BusWish& operator=(const BusWish&) = delete;

 private:
  GlibObject<GDBusConnection> bus_;
};

}  // namespace pixorra
