// Where the program's own files and the user's special folders are. Paths are the program's, with no trailing
// backslash.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

class Places {
 public:
  virtual ~Places() = default;
  // Home of the Trashcan, the background picture and the temporary pictures. Made when missing.
  virtual std::string ProgramFolder() = 0;
  // Home of the saved state file. Made when missing.
  virtual std::string WindowsFolder() = 0;
  // Home of the picture loader's one fixed temporary file. Made when missing.
  virtual std::string TemporaryFolder() = 0;
  // A shell folder by its number: 0 and 16 desktop, 2 programs, 3 controls, 5 documents, 6 favourites, 8 recent,
  // 11 start menu, 39 pictures. Empty where the host has none.
  virtual std::string SpecialFolder(int number) = 0;
  // Folders beside those above that no command may delete or rename: the system's, the user's home and what the user
  // has set aside for documents, pictures and the like. Not all of them need be there.
  virtual std::vector<std::string> KeptFolders() = 0;

  // The user's home folder; empty where the host has none.
  virtual std::string HomeFolder() = 0;
  // The user's desktop, documents, pictures and downloads, in this order: those that are there, and are not the home
  // folder itself. No folder is entered.
  virtual std::vector<std::string> UserFolders() = 0;
  // A place that the user has marked in the file manager.
  struct Bookmark {
    std::string Path;
    std::string Label;  // what the user calls it; empty for the folder's name
  };
  // In the file manager's order. None of them is looked at: they may be far away, or gone.
  virtual std::vector<Bookmark> Bookmarks() = 0;
};

}  // namespace pixorra
