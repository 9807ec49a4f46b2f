#include "browse/FolderDrops.h"

#include "browse/FindFolder.h"
#include "browse/FolderChoices.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/Files.h"
#include "window/MainForm.h"

namespace pixorra {

void DropOnFilmStrip(MainForm& main, const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    const std::optional<std::string> folder = FindFolder(main.host, main.host.files.ProgramPath(path));
    if (!folder) continue;
    if (MaySelectFilmStrip(main, *folder)) SelectFilmStrip(main, *folder);
    return;
  }
}

void DropOnDesktop(MainForm& main, const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    const std::optional<std::string> folder = FindFolder(main.host, main.host.files.ProgramPath(path));
    if (main.host.toolkit.Ended()) return;
    if (!folder) continue;
    if (IsDesktopFull(main)) return;
    if (MayShowFolder(main, *folder)) ShowFolderOnDesktop(main, *folder);
  }
}

}  // namespace pixorra
