// The wish that the screen stay on, at the X server: it blanks by itself where no desktop does.
#pragma once

namespace pixorra {

// Held by a connection of its own, and forgotten when that is closed. Nothing where there is no such server.
class ServerWish {
 public:
  ServerWish();
  ~ServerWish();
  ServerWish(const ServerWish&) = delete;
  ServerWish& operator=(const ServerWish&) = delete;

 private:
  void* display_;
};

}  // namespace pixorra
