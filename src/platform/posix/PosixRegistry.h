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
//
// A package may bring some of these files for everybody. They count as the user's own, which are not written beside
// them; a command that is deleted is hidden from this user by files in their place.
class PosixRegistry : public Registry {
 public:
  // The host paths of the user's data and configuration folders, and of those with everybody's data.
  PosixRegistry(std::string dataHome, std::string configHome, std::shared_ptr<MappingSource> mapping,
                std::vector<std::string> dataFolders = {});

  bool KeyExists(std::uint32_t root, const std::string& key) override;
  void SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                   const std::string& text) override;
  void DeleteKey(std::uint32_t root, const std::string& key) override;

 private:
  // The user's own files, those that hide one as well.
  std::vector<std::string> FilesOfKey(std::uint32_t root, const std::string& key) const;
  // Where a file of the user's would hide one that is there for everybody, and none is.
  std::vector<std::string> PathsToHide(std::uint32_t root, const std::string& key) const;
  void RemoveOwnFiles(std::uint32_t root, const std::string& key);
  std::string PathOf(const VerbFile& file) const;
  std::string dataHome_;
  std::string configHome_;
  std::shared_ptr<MappingSource> mapping_;
  std::vector<std::string> dataFolders_;
};

}  // namespace pixorra
