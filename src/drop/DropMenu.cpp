#include "drop/DropMenu.h"

#include "platform/controls/Toolkit.h"
#include "platform/services/Clipboard.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

void DropMenu_Click(MainForm& main) {
  main.menu.UndoMenuItem.SetEnabled(!main.drop.LastDropFile.empty());
  // What is on the clipboard is asked of the program that has put it there, which may take its time.
  if (main.host.toolkit.ShortcutSought() == &main.menu.UndoMenuItem) return;
  main.menu.PasteMenuItem.SetEnabled(main.desk.OpenFolderIndex != 0 && main.host.clipboard.HasBitmap());
}

}  // namespace pixorra
