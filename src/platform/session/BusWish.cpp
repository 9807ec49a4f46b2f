#include "platform/session/BusWish.h"

namespace pixorra {

namespace {

constexpr int Patience = 5000;  // milliseconds

// Programs name themselves by their desktop entry.
constexpr const char* ProgramName = "pixorra";

GlibObject<GDBusConnection> ConnectionOfItsOwn() {
  const GlibText address(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (!address) return nullptr;
  constexpr auto Flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                           G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  return GlibObject<GDBusConnection>(
      g_dbus_connection_new_for_address_sync(address.get(), Flags, nullptr, nullptr, nullptr));
}

bool Call(GDBusConnection* bus, const char* name, const char* path, const char* interface, GVariant* arguments) {
  GVariant* answer = g_dbus_connection_call_sync(bus, name, path, interface, "Inhibit", arguments, nullptr,
                                                 G_DBUS_CALL_FLAGS_NONE, Patience, nullptr, nullptr);
  if (answer == nullptr) return false;
  g_variant_unref(answer);
  return true;
}

bool AskScreenSaver(GDBusConnection* bus, const char* path, const std::string& why) {
  constexpr const char* Name = "org.freedesktop.ScreenSaver";
  return Call(bus, Name, path, Name, g_variant_new("(ss)", ProgramName, why.c_str()));
}

bool AskPortal(GDBusConnection* bus, const std::string& why) {
  constexpr guint32 Idle = 8;
  GVariantBuilder options;
  g_variant_builder_init(&options, G_VARIANT_TYPE("a{sv}"));
  g_variant_builder_add(&options, "{sv}", "reason", g_variant_new_string(why.c_str()));
  return Call(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
              "org.freedesktop.portal.Inhibit", g_variant_new("(sua{sv})", "", Idle, &options));
}

}  // namespace

BusWish::BusWish(const std::string& why) : bus_(ConnectionOfItsOwn()) {
  if (!bus_) return;
  g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);
  // Savers differ in the path that they answer at.
  if (AskScreenSaver(bus_.get(), "/org/freedesktop/ScreenSaver", why)) return;
  if (AskScreenSaver(bus_.get(), "/ScreenSaver", why)) return;
  AskPortal(bus_.get(), why);
}

BusWish::~BusWish() {
  if (bus_) g_dbus_connection_close_sync(bus_.get(), nullptr, nullptr);
}

}  // namespace pixorra
