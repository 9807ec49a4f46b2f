// The program's and the user's folders by the desktop's base directories. The user's are those of the desktop's list,
// which GLib reads for the session that this process was started in, whatever `environment` says.
#pragma once

#include <memory>

#include "platform/posix/Environment.h"
#include "platform/posix/MappingSource.h"
#include "platform/services/Places.h"

namespace pixorra {

class PosixPlaces : public Places {
 public:
  PosixPlaces(Environment environment, std::shared_ptr<MappingSource> mapping);

  // "pixorra" in the data, configuration and cache folder. Made for the user alone; where that fails, what is done in
  // the folder raises why.
  std::string ProgramFolder() override;
  std::string WindowsFolder() override;
  std::string TemporaryFolder() override;

  // 0, 16  the desktop
  // 2, 11  the starters of the user's own programs: "applications" of the data folder
  // 3      the home folder: there is no folder of controls, and what these numbers name is kept from deletion
  // 5      documents; 39 pictures; the home folder where the user has set none aside
  // 6      the file manager's bookmarks: "gtk-3.0" of the configuration folder
  // 8      the list of recent documents: the data folder
  // Not all of them need be there.
  std::string SpecialFolder(int number) override;
  // The top folders of the system, the home folder, and all that the desktop's list names.
  std::vector<std::string> KeptFolders() override;
  std::string HomeFolder() override { return Program(environment_.Home); }
  std::vector<std::string> UserFolders() override;
  // Those of "gtk-3.0/bookmarks" in the configuration folder that are folders of the file system or of a mounted share.
  std::vector<Bookmark> Bookmarks() override;

 private:
  std::string Own(const std::string& base);
  std::string ListedFolder(int directory, const char* usual);
  std::string Program(const std::string& hostPath);

  Environment environment_;
  std::shared_ptr<MappingSource> mapping_;
};

}  // namespace pixorra
