// Per-user settings in one file that the program and its companion share.
#pragma once

#include <string>

#include "platform/services/Settings.h"

namespace pixorra {

// Each call reads the file anew, since two programs write it.
class PosixSettings : public Settings {
 public:
  // A host path; its folder is made when something is saved.
  explicit PosixSettings(std::string file) : file_(std::move(file)) {}

  std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                         const std::string& otherwise) override;
  // Raises PathAccess, too, where a file is there that cannot be read or is no file of settings, and leaves it alone.
  void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& text) override;

 private:
  std::string file_;
};

}  // namespace pixorra
