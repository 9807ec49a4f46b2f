// The registry's keys as far as this desktop has something for them: commands in the menu of every folder.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/posix/MappingSource.h"
#include "platform/services/Registry.h"

namespace pixorra {

// "Folder\Shell\<verb>\Command" under the classes root is such a command, kept in the files that FolderVerb.h lists;
// "%L" in its text is the folder. All other keys, and those of the machine, which a user may not set, are missing, and
// setting and deleting them does nothing. Files of somebody else's under the same names are left alone.
class PosixRegistry : public Registry {
 public:
  // `dataHome` is the host path of the user's data folder.
  PosixRegistry(std::string dataHome, std::shared_ptr<MappingSource> mapping);

  bool KeyExists(std::uint32_t root, const std::string& key) override;
  void SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                   const std::string& text) override;
  void DeleteKey(std::uint32_t root, const std::string& key) override;

 private:
  std::vector<std::string> FilesOfKey(std::uint32_t root, const std::string& key);
  std::string dataHome_;
  std::shared_ptr<MappingSource> mapping_;
};

}  // namespace pixorra
