// Texts that outlive the program, for each user: what this program leaves for its companion and for its next run.
#pragma once

#include <string>

namespace pixorra {

// Application, section and key ignore letter case and may hold any characters. A text comes back as it was saved, an
// empty one too.
class Settings {
 public:
  virtual ~Settings() = default;
  // `otherwise` where nothing is saved under these names, or it cannot be read.
  virtual std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                                 const std::string& otherwise) = 0;
  // Raises DiskFull, PathAccess and what else writing a file raises; what was saved before is kept then.
  virtual void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& text) = 0;
};

}  // namespace pixorra
