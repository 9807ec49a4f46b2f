// Deleting photos: the button below the film strip, and the menu's command for the selected photo.
#include "app/Wiring.h"
#include "delete/DeletePhotosForm.h"
#include "delete/DeleteSelectedForm.h"
#include "desktop/FolderRename.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

void ConnectDelete(MainForm& main) {
  Connect(main.strip.DeleteButton.On().Click, [&main](Control&) { DeleteButton_Click(main); });
  Connect(main.menu.DeleteMenuItem, EndingRename(main, [&main] { DeleteMenuItem_Click(main); }));
}

}  // namespace pixorra
