#include "tests/platform/session/FakeSaver.h"

#include <gtest/gtest.h>

namespace pixorra {

namespace {

constexpr const char* Interfaces = R"(<node>
  <interface name="org.freedesktop.ScreenSaver">
    <method name="Inhibit">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="u" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.portal.Inhibit">
    <method name="Inhibit">
      <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="a{sv}" direction="in"/>
      <arg type="o" direction="out"/>
    </method>
  </interface>
</node>)";

}  // namespace

FakeSaver::FakeSaver(At at) : daemon_(g_test_dbus_new(G_TEST_DBUS_NONE)) {
  g_test_dbus_up(daemon_.get());
  if (at == At::Nowhere) return;
  constexpr auto Flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                           G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  bus_.reset(g_dbus_connection_new_for_address_sync(g_test_dbus_get_bus_address(daemon_.get()), Flags, nullptr, nullptr,
                                                    nullptr));
  GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(Interfaces, nullptr);
  const bool portal = at == At::Portal;
  const char* path = portal                      ? "/org/freedesktop/portal/desktop"
                     : at == At::ScreenSaverPath ? "/org/freedesktop/ScreenSaver"
                                                 : "/ScreenSaver";
  static const GDBusInterfaceVTable calls = {Called, nullptr, nullptr, {}};
  g_dbus_connection_register_object(bus_.get(), path, node->interfaces[portal ? 1 : 0], &calls, this, nullptr, nullptr);
  g_dbus_node_info_unref(node);
  g_dbus_connection_signal_subscribe(bus_.get(), "org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                                     nullptr, nullptr, G_DBUS_SIGNAL_FLAGS_NONE, OwnerChanged, this, nullptr);
  const char* name = portal ? "org.freedesktop.portal.Desktop" : "org.freedesktop.ScreenSaver";
  GVariant* owned = g_dbus_connection_call_sync(bus_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                "org.freedesktop.DBus", "RequestName", g_variant_new("(su)", name, 0),
                                                nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
  EXPECT_NE(owned, nullptr);
  if (owned != nullptr) g_variant_unref(owned);
}

FakeSaver::~FakeSaver() {
  if (bus_) g_dbus_connection_close_sync(bus_.get(), nullptr, nullptr);
  bus_.reset();
  g_test_dbus_down(daemon_.get());
}

// The first number given is 0, which is as good as any other.
void FakeSaver::Called(GDBusConnection*, const char* sender, const char*, const char* interface, const char*,
                       GVariant* arguments, GDBusMethodInvocation* call, gpointer self) {
  auto& saver = *static_cast<FakeSaver*>(self);
  const bool portal = std::string(interface) == "org.freedesktop.portal.Inhibit";
  const char* why = "";
  if (portal) {
    GVariant* options = g_variant_get_child_value(arguments, 2);
    g_variant_lookup(options, "reason", "&s", &why);
    saver.wishes_.emplace(sender, why);
    g_variant_unref(options);
  } else {
    const char* program = nullptr;
    g_variant_get(arguments, "(&s&s)", &program, &why);
    EXPECT_STREQ(program, "pixorra");
    saver.wishes_.emplace(sender, why);
  }
  g_dbus_method_invocation_return_value(call, portal ? g_variant_new("(o)", "/request") : g_variant_new("(u)", 0));
}

void FakeSaver::OwnerChanged(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* arguments,
                             gpointer self) {
  const char* name = nullptr;
  const char* before = nullptr;
  const char* after = nullptr;
  g_variant_get(arguments, "(&s&s&s)", &name, &before, &after);
  if (*after == '\0') static_cast<FakeSaver*>(self)->wishes_.erase(name);
}

std::vector<std::string> FakeSaver::WishesOnce(std::size_t count) {
  constexpr gint64 Patience = 10'000'000;
  constexpr guint LookAgain = 20;  // milliseconds
  const gint64 end = g_get_monotonic_time() + Patience;
  while (wishes_.size() != count && g_get_monotonic_time() < end) {
    const guint alarm = g_timeout_add(
        LookAgain, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
    g_main_context_iteration(nullptr, TRUE);
    g_source_remove(alarm);
  }
  std::vector<std::string> reasons;
  for (const auto& [who, why] : wishes_) reasons.push_back(why);
  return reasons;
}

}  // namespace pixorra
