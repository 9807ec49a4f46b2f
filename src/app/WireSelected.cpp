// The menu's commands that change the selected photo.
#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "selected/EditSelectedPhoto.h"
#include "selected/RenameSelectedPhoto.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

void ConnectSelected(MainForm& main) {
  Connect(main.menu.RenameMenuItem, EndingRename(main, [&main] { RenameMenuItem_Click(main); }));
  Connect(main.menu.SelectedEditMenuItem, EndingRename(main, [&main] { SelectedEditMenuItem_Click(main); }));
}

}  // namespace pixorra
