// The menu of the slide show, and the box in the preferences for its command in the file manager.
#include <memory>

#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "platform/runtime/AtExit.h"
#include "shell/FolderShortcut.h"
#include "shell/SlideShow.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {

void ConnectShell(MainForm& main) {
  MenuBar& menu = main.menu;
  const auto connect = [&main](MenuItem& item, auto operation) { Connect(item, EndingRename(main, operation)); };
  Connect(menu.SlideShowMenu, [&main] { SlideShowMenu_Click(main); });
  Connect(menu.SlideShowPlayMenuItem, [&main] { SlideShowPlayMenuItem_Click(main); });
  connect(menu.SlideShowPlayFilmStripMenuItem, [&main] { SlideShowPlayFilmStripMenuItem_Click(main); });
  connect(menu.SlideShowPlayOpenFolderMenuItem, [&main] { SlideShowPlayOpenFolderMenuItem_Click(main); });
  connect(menu.SlideShowSpeedFastMenuItem, [&menu] { SlideShowSpeedFastMenuItem_Click(menu); });
  connect(menu.SlideShowSpeedMediumMenuItem, [&menu] { SlideShowSpeedMediumMenuItem_Click(menu); });
  connect(menu.SlideShowSpeedSlowMenuItem, [&menu] { SlideShowSpeedSlowMenuItem_Click(menu); });
  connect(menu.SlideShowTitleCounterMenuItem, [&menu] { SlideShowTitleCounterMenuItem_Click(menu); });
  // It waits for the desktop's window, while the menu and its shortcut work on.
  connect(menu.SlideShowScreenSaverMenuItem, [&main, waiting = std::make_shared<bool>(false)] {
    if (*waiting) return;
    *waiting = true;
    const AtExit done([waiting] { *waiting = false; });
    SlideShowScreenSaverMenuItem_Click(main);
  });
  Connect(main.preferences.AddFolderShortcutCheckbox.On().MouseUp,
          [&main](Control&, const MouseArgs&) { AddFolderShortcutCheckbox_MouseUp(main); });
}

}  // namespace pixorra
