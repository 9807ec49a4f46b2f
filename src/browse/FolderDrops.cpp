#include "browse/FolderDrops.h"

#include "browse/FindFolder.h"
#include "browse/FolderChoices.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/Files.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// Those that are folders, in their order, as the disk spells them.
std::vector<std::string> FoldersAmong(MainForm& main, const std::vector<std::string>& paths) {
  std::vector<std::string> asked;
  for (const std::string& path : paths) asked.push_back(main.host.files.ProgramPath(path));
  std::vector<std::string> folders;
  for (const std::optional<std::string>& folder : FindFolders(main.host, asked)) {
    if (folder) folders.push_back(*folder);
  }
  return folders;
}

}  // namespace

void DropOnFilmStrip(MainForm& main, const std::vector<std::string>& paths) {
  main.preview.bPicEdited = false;
  const std::vector<std::string> folders = FoldersAmong(main, paths);
  if (!folders.empty() && MaySelectFilmStrip(main, folders.front())) SelectFilmStrip(main, folders.front());
}

void DropOnDesktop(MainForm& main, const std::vector<std::string>& paths) {
  for (const std::string& folder : FoldersAmong(main, paths)) {
    if (main.host.toolkit.Ended() || IsDesktopFull(main)) return;
    if (MayShowFolder(main, folder)) ShowFolderOnDesktop(main, folder);
  }
}

}  // namespace pixorra
