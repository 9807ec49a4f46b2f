#include "platform/posix/Environment.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

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

std::vector<std::string> PathsIn(std::string_view list) {
  std::vector<std::string> paths;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(':'), list.size());
    if (list.starts_with('/')) paths.push_back(WithoutFinalSlash(list.substr(0, end)));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return paths;
}

std::string FolderOfProgram() {
  std::error_code failure;
  return std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
}

// Daemons start programs without the session's variables. Empty where that folder is not the user's own.
std::string UsualRuntimeDir() {
  std::string folder = "/run/user/" + std::to_string(getuid());
  struct stat entry {};
  const bool isOwn = lstat(folder.c_str(), &entry) == 0 && S_ISDIR(entry.st_mode) && entry.st_uid == getuid();
  return isOwn ? folder : std::string();
}

}  // namespace

Environment Environment::OfHome(const std::string& home) {
  Environment environment;
  environment.Home = WithoutFinalSlash(home);
  const std::string start = environment.Home == "/" ? "" : environment.Home;
  environment.DataHome = start + "/.local/share";
  environment.ConfigHome = start + "/.config";
  environment.CacheHome = start + "/.cache";
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
  environment.RuntimeDir = UsualRuntimeDir();
  TakePath("XDG_RUNTIME_DIR", environment.RuntimeDir);
  const std::string_view dataFolders = Variable("XDG_DATA_DIRS");
  environment.DataFolders = PathsIn(dataFolders.empty() ? "/usr/local/share:/usr/share" : dataFolders);
  environment.OwnFolder = FolderOfProgram();
  return environment;
}

}  // namespace pixorra
