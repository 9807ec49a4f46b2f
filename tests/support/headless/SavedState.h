// What the program keeps from one run to the next: the factory settings, but for what a test says.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

struct SavedState {
  // In the file's order. Options are numbers from 1.
  std::string Window = "11730,9090,300,300,0";  // twips: width, height, top, left; then the window's state
  std::string ShopTitle = "Pixorra - Kestrelia Corp";
  int Rename = 1;      // always, when the name exists, ask
  int Duplicates = 2;  // delete, ask, allow
  bool RememberFilmStrip = true;
  bool RememberFolders = true;
  bool EmptyTrashcan = true;
  bool Jpeg = true;
  bool Bitmap = true;
  bool Gif = true;
  bool KeepDate = true;
  bool AutoPreview = false;
  std::string CameraLocation;
  std::string FilmStrip;
  std::vector<std::string> Folders;  // of the Desktop, from slot 1; up to eight

  // The lines of the file; no earlier film strips.
  std::vector<std::string> Lines() const;
};

}  // namespace pixorra
