// The base directories of the desktop's conventions for the user of this session.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

// Host paths without a final slash, all absolute, the folders not necessarily there.
struct Environment {
  std::string Home;
  std::string DataHome;                    // $XDG_DATA_HOME
  std::string ConfigHome;                  // $XDG_CONFIG_HOME
  std::string CacheHome;                   // $XDG_CACHE_HOME
  std::vector<std::string> DataFolders{};  // $XDG_DATA_DIRS, everybody's; none in OfHome
  std::string RuntimeDir;                  // $XDG_RUNTIME_DIR, else the usual one if it is there; may be empty
  std::string User;
  std::string OwnFolder;  // of the program that runs; empty where it is not known

  // The usual directories of a home folder, with nothing from the session.
  static Environment OfHome(const std::string& home);
  // Of this process. Values that are no absolute paths are passed over, as the conventions ask.
  static Environment OfProcess();
};

}  // namespace pixorra
