#include "platform/posix/DesktopPrograms.h"

#include <array>
#include <unistd.h>
#include <utility>

#include "platform/posix/GlibPointers.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// What a version record says of a field that it does not have.
constexpr const char* missingField = "?";

std::string LastName(const std::string& hostPath) {
  return hostPath.substr(hostPath.rfind('/') + 1);
}

// The program's starter; empty where there is none, or it is marked as deleted.
std::string FileOf(GAppInfo* program) {
  if (program == nullptr || !G_IS_DESKTOP_APP_INFO(program)) return {};
  auto* starter = G_DESKTOP_APP_INFO(program);
  const char* file = g_desktop_app_info_get_is_hidden(starter) ? nullptr : g_desktop_app_info_get_filename(starter);
  return file == nullptr ? std::string() : file;
}

std::string StarterForType(const std::string& type) {
  const GlibObject<GAppInfo> first(g_app_info_get_default_for_type(type.c_str(), FALSE));
  std::string file = FileOf(first.get());
  if (!first || !file.empty()) return file;
  GList* all = g_app_info_get_all_for_type(type.c_str());
  for (GList* entry = all; entry != nullptr && file.empty(); entry = entry->next)
    file = FileOf(G_APP_INFO(entry->data));
  g_list_free_full(all, g_object_unref);
  return file;
}

// Types that are known on a host without a list of types, too.
std::string OwnType(const std::string& name) {
  constexpr std::array<std::pair<const char*, const char*>, 5> types{{{"*.jpg", "image/jpeg"},
                                                                      {"*.jpeg", "image/jpeg"},
                                                                      {"*.bmp", "image/bmp"},
                                                                      {"*.gif", "image/gif"},
                                                                      {"*.txt", "text/plain"}}};
  for (const auto& [pattern, type] : types)
    if (MatchesPattern(name, pattern)) return type;
  return {};
}

std::string TypeOf(const std::string& name) {
  const GlibText type(g_content_type_guess(name.c_str(), nullptr, 0, nullptr));
  return type && g_content_type_is_unknown(type.get()) == FALSE ? type.get() : OwnType(name);
}

std::string Field(GDesktopAppInfo* program, const char* key) {
  const GlibText text(g_desktop_app_info_get_locale_string(program, key));
  return text ? text.get() : missingField;
}

GlibObject<GDesktopAppInfo> ReadStarter(const std::string& file) {
  return GlibObject<GDesktopAppInfo>(g_desktop_app_info_new_from_filename(file.c_str()));
}

// The starter whose command begins with the program of this name; of several the one whose file comes first.
GlibObject<GDesktopAppInfo> StarterOfProgram(const std::string& name) {
  std::string first;
  GList* all = g_app_info_get_all();
  for (GList* entry = all; entry != nullptr; entry = entry->next) {
    const char* program = g_app_info_get_executable(G_APP_INFO(entry->data));
    const char* file = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(entry->data));
    if (program == nullptr || file == nullptr || LastName(program) != name) continue;
    if (first.empty() || file < first) first = file;
  }
  g_list_free_full(all, g_object_unref);
  return first.empty() ? nullptr : ReadStarter(first);
}

// Runs in the started process before its program does.
void LeaveSession(void* folder) {
  setsid();
  const auto* path = static_cast<const char*>(folder);
  if (path != nullptr && chdir(path) != 0) return;
}

}  // namespace

std::string StarterForFile(const std::string& hostPath) {
  const std::string type = TypeOf(LastName(hostPath));
  return type.empty() ? std::string() : StarterForType(type);
}

std::string StarterForFolders() {
  return StarterForType("inode/directory");
}

std::string StarterForScheme(const std::string& scheme) {
  return StarterForType("x-scheme-handler/" + scheme);
}

std::string FirstStarter(std::span<const char* const> names) {
  for (const char* name : names) {
    const GlibObject<GDesktopAppInfo> program(g_desktop_app_info_new(name));
    if (program && g_desktop_app_info_get_show_in(program.get(), nullptr)) return FileOf(G_APP_INFO(program.get()));
  }
  return {};
}

std::optional<Shell::VersionInfo> RecordOfProgram(const std::string& hostPath) {
  const std::string name = LastName(hostPath);
  const GlibObject<GDesktopAppInfo> program =
      name.ends_with(".desktop") ? ReadStarter(hostPath) : StarterOfProgram(name);
  if (!program) return std::nullopt;
  Shell::VersionInfo record;
  for (std::string* unknown :
       {&record.CompanyName, &record.FileVersion, &record.LegalCopyright, &record.ProductVersion})
    *unknown = missingField;
  record.ProductName = Field(program.get(), "Name");
  record.FileDescription = Field(program.get(), "Comment");
  if (record.FileDescription == missingField) record.FileDescription = Field(program.get(), "GenericName");
  const std::string starter = LastName(g_desktop_app_info_get_filename(program.get()));
  record.InternalName = starter.substr(0, starter.rfind('.'));
  const char* executable = g_app_info_get_executable(G_APP_INFO(program.get()));
  record.OriginalFileName = executable == nullptr ? missingField : LastName(executable);
  return record;
}

bool LaunchStarter(const std::string& starter, const std::string& target, const std::string& folder) {
  const GlibObject<GDesktopAppInfo> program = ReadStarter(starter);
  if (!program) return false;
  // A launch connects to the session's bus. Without this the program would end when that connection does.
  const GlibObject<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (bus) g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
  const GlibText address(target.starts_with('/') ? g_filename_to_uri(target.c_str(), nullptr, nullptr)
                                                 : g_strdup(target.c_str()));
  GList addresses{address.get(), nullptr, nullptr};
  const GlibText ownFolder(g_desktop_app_info_get_string(program.get(), "Path"));
  std::string path = folder;
  const bool moves = !path.empty() && (!ownFolder || *ownFolder == '\0');
  const auto flags =
      static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
  return g_desktop_app_info_launch_uris_as_manager(program.get(), target.empty() ? nullptr : &addresses, nullptr, flags,
                                                   LeaveSession, moves ? path.data() : nullptr, nullptr, nullptr,
                                                   nullptr) != FALSE;
}

}  // namespace pixorra
