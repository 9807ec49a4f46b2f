// A screen saver's service on a session bus of its own: it keeps the wishes of programs until they take them back or
// leave the bus.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/posix/GlibPointers.h"

namespace pixorra {

class FakeSaver {
 public:
  // Where it answers. `Portal` stands for the desktop's portal, which has an interface of its own.
  enum class At { ScreenSaverPath, ShortPath, Portal, Nowhere };

  explicit FakeSaver(At at);
  ~FakeSaver();
  FakeSaver(const FakeSaver&) = delete;
  FakeSaver& operator=(const FakeSaver&) = delete;

  // Lets the bus work until there are so many wishes, for ten seconds at the most.
  std::vector<std::string> WishesOnce(std::size_t count);

 private:
  static void Called(GDBusConnection* bus, const char* sender, const char* path, const char* interface,
                     const char* method, GVariant* arguments, GDBusMethodInvocation* call, gpointer self);
  static void OwnerChanged(GDBusConnection* bus, const char* sender, const char* path, const char* interface,
                           const char* signal, GVariant* arguments, gpointer self);

  GlibObject<GTestDBus> daemon_;
  GlibObject<GDBusConnection> bus_;
  std::multimap<std::string, std::string> wishes_;  // by who asked
};

}  // namespace pixorra
