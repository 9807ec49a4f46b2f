// The session's environment variables.
#include "platform/posix/Environment.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

std::string_view Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : std::string_view(value);
}

std::string WithoutFinalSlash(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return std::string(path);
}

// Leaves `path` alone where the variable holds no absolute path.
void TakePath(const char* variable, std::string& path) {
  const std::string_view value = Variable(variable);
  if (value.starts_with('/')) path = WithoutFinalSlash(value);
}

std::vector<std::string> Parts(std::string_view list) {
  std::vector<std::string> parts;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(':'), list.size());
    if (end > 0) parts.emplace_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return parts;
}

void TakePaths(const char* variable, std::vector<std::string>& paths) {
  std::vector<std::string> taken;
  for (const std::string& part : Parts(Variable(variable)))
    if (part.starts_with('/')) taken.push_back(WithoutFinalSlash(part));
  if (!taken.empty()) paths = taken;
}

// "de_DE.UTF-8@euro" without what follows the country.
std::string MessageLanguage() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string_view value = Variable(name);
    if (value.empty()) continue;
    const std::string_view language = value.substr(0, value.find_first_of(".@"));
    return language == "C" || language == "POSIX" ? std::string() : std::string(language);
  }
  return {};
}

}  // namespace

Environment Environment::OfHome(const std::string& home) {
  Environment environment;
  environment.Home = WithoutFinalSlash(home);
  const std::string start = environment.Home == "/" ? "" : environment.Home;
  environment.DataHome = start + "/.local/share";
  environment.ConfigHome = start + "/.config";
  environment.CacheHome = start + "/.cache";
  environment.DataDirs = {"/usr/local/share", "/usr/share"};
  environment.ConfigDirs = {"/etc/xdg"};
  environment.Path = {"/usr/local/bin", "/usr/bin", "/bin"};
  return environment;
}

Environment Environment::OfProcess() {
  const passwd* user = getpwuid(getuid());
  std::string home = user == nullptr || user->pw_dir[0] != '/' ? "/" : user->pw_dir;
  TakePath("HOME", home);
  Environment environment = OfHome(home);
  if (user != nullptr) environment.User = user->pw_name;
  TakePath("XDG_DATA_HOME", environment.DataHome);
  TakePath("XDG_CONFIG_HOME", environment.ConfigHome);
  TakePath("XDG_CACHE_HOME", environment.CacheHome);
  TakePath("XDG_RUNTIME_DIR", environment.RuntimeDir);
  TakePaths("XDG_DATA_DIRS", environment.DataDirs);
  TakePaths("XDG_CONFIG_DIRS", environment.ConfigDirs);
  TakePaths("PATH", environment.Path);
  for (const std::string& desktop : Parts(Variable("XDG_CURRENT_DESKTOP")))
    environment.Desktops.push_back(LCase(desktop));
  environment.Language = MessageLanguage();
  return environment;
}

}  // namespace pixorra
