#include "platform/session/DesktopSession.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

#include "platform/posix/Environment.h"
#include "platform/posix/GlibPointers.h"
#include "platform/session/BusWish.h"
#include "platform/session/ServerWish.h"

namespace pixorra {

namespace {

struct Wish {
  explicit Wish(std::string reason) : Why(std::move(reason)) {}

  const std::string Why;
  std::mutex Mutex;
  std::condition_variable Changed;
  bool Over = false;  // of the mutex
};

// The connections are closed with the wish: both sides forget it then.
void Hold(const std::shared_ptr<Wish>& wish) {
  const ServerWish server;
  const BusWish bus(wish->Why);
  std::unique_lock lock(wish->Mutex);
  wish->Changed.wait(lock, [&] { return wish->Over; });
}

class HeldAwake final : public Session::Awake {
 public:
  explicit HeldAwake(const std::string& why) : wish_(std::make_shared<Wish>(why)) {
    try {
      std::thread([wish = wish_] { Hold(wish); }).detach();
    } catch (const std::system_error&) {
      return;  // the screen may sleep then
    }
  }
  ~HeldAwake() override {
    const std::lock_guard lock(wish_->Mutex);
    wish_->Over = true;
    wish_->Changed.notify_all();
  }
  HeldAwake(const HeldAwake&) = delete;
  HeldAwake& operator=(const HeldAwake&) = delete;

 private:
  std::shared_ptr<Wish> wish_;
};

// Only where the desktop's settings have the key: asking for one that is not there would end the process.
bool GnomeMovesNothing() {
  constexpr const char* Schema = "org.gnome.desktop.interface";
  constexpr const char* Key = "enable-animations";
  GSettingsSchemaSource* source = g_settings_schema_source_get_default();
  if (source == nullptr) return false;
  GSettingsSchema* schema = g_settings_schema_source_lookup(source, Schema, TRUE);
  if (schema == nullptr) return false;
  bool still = false;
  if (g_settings_schema_has_key(schema, Key) != FALSE) {
    const GlibObject<GSettings> settings(g_settings_new(Schema));
    still = g_settings_get_boolean(settings.get(), Key) == FALSE;
  }
  g_settings_schema_unref(schema);
  return still;
}

bool KdeMovesNothing(const std::string& file) {
  const GlibKeyFile settings(g_key_file_new());
  if (g_key_file_load_from_file(settings.get(), file.c_str(), G_KEY_FILE_NONE, nullptr) == FALSE) return false;
  GError* failed = nullptr;
  const double factor = g_key_file_get_double(settings.get(), "KDE", "AnimationDurationFactor", &failed);
  if (failed == nullptr) return factor == 0;
  g_error_free(failed);
  return false;
}

}  // namespace

DesktopSession::DesktopSession(const Environment& environment) : kdeSettings_(environment.ConfigHome + "/kdeglobals") {}

std::unique_ptr<Session::Awake> DesktopSession::KeepAwake(const std::string& why) {
  return std::make_unique<HeldAwake>(why);
}

bool DesktopSession::WantsLessMotion() {
  return GnomeMovesNothing() || KdeMovesNothing(kdeSettings_);
}

}  // namespace pixorra
