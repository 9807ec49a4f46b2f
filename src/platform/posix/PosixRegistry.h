// The registry's keys as far as this desktop has something for them: commands in the menu of every folder.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/posix/MappingSource.h"
#include "platform/services/Registry.h"

namespace pixorra {

struct VerbFile;

// "Folder\Shell\<verb>\Command" under the classes root is such a command, kept in the files that FolderVerb.h lists;
// "%L" in its text is the folder. All other keys, and those of the machine, which a user may not set, are missing, and
// setting and deleting them does nothing. Files of somebody else's under the same names are left alone. With a command
// go the folders that were made for it, as far as nothing else is in them by then.
class PosixRegistry : public Registry {
 public:
  // The host paths of the user's data and configuration folders.
  PosixRegistry(std::string dataHome, std::string configHome, std::shared_ptr<MappingSource> mapping);

  bool KeyExists(std::uint32_t root, const std::string& key) override;
  void SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                   const std::string& text) override;
  void DeleteKey(std::uint32_t root, const std::string& key) override;

 private:
  std::vector<std::string> FilesOfKey(std::uint32_t root, const std::string& key);
  std::string PathOf(const VerbFile& file) const;
  std::string dataHome_;
  std::string configHome_;
  std::shared_ptr<MappingSource> mapping_;
};

}  // namespace pixorra
