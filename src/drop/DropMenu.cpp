#include "drop/DropMenu.h"

#include "platform/services/Clipboard.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

void DropMenu_Click(MainForm& main) {
  main.menu.UndoMenuItem.SetEnabled(!main.drop.LastDropFile.empty());
  main.menu.PasteMenuItem.SetEnabled(main.desk.OpenFolderIndex != 0 && main.host.clipboard.HasBitmap());
}

}  // namespace pixorra
