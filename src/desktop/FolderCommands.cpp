#include "desktop/FolderCommands.h"

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/Listing.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

namespace {

void BlankFilmStrip(MainForm& main) {
  main.strip.SrcLoadedPath.clear();
  main.strip.NoFilmStrip = true;
  ShowNoFilmStrip(main.strip);
}

bool ShowsTrashcan(const MainForm& main) {
  return IsFilmStrip(main.strip, main.desk.DestFolderFiles(TrashcanSlot).Path());
}

}  // namespace

void DestFolder_Click(MainForm& main, int slot) {
  if (slot == TrashcanSlot && ShowsTrashcan(main)) BlankFilmStrip(main);
  Select_a_Folder(main, main.desk.OpenFolderIndex == slot ? 0 : slot);
}

void DestFolder_MouseDown(MainForm& main, int slot, int mouseButton) {
  if (mouseButton != button::Right) return;
  main.desk.PopupFolderIndex = slot;
  MenuBar& menu = main.menu;
  MenuItem& first = slot == TrashcanSlot ? menu.OpenTrashcanPopupItem : menu.OpenFolderPopupItem;
  first.SetCaption(main.desk.OpenFolderIndex == slot ? "Close" : "Open");
  main.Window.PopupMenu(slot == TrashcanSlot ? menu.TrashcanPopupMenu : menu.FolderPopupMenu);
}

void HideFolder_Click(MainForm& main) {
  Remove_Open_Folder(main);
}

void HideFolderPopupItem_Click(MainForm& main) {
  const int before = main.desk.OpenFolderIndex;
  const int slot = main.desk.PopupFolderIndex;
  Select_a_Folder(main, slot);
  // A folder that no longer exists has been taken off by the selection already.
  if (main.desk.OpenFolderIndex == slot) Remove_Open_Folder(main);
  Select_a_Folder(main, before);
}

void OpenFolderMenu_Click(MainForm& main) {
  const int slot = main.desk.OpenFolderIndex;
  main.menu.RenameOpenFolderMenuItem.SetEnabled(slot != 0 && slot != TrashcanSlot);
  main.menu.DeleteOpenFolderMenuItem.SetEnabled(slot != 0);
  main.menu.SwapOpenFolderMenuItem.SetEnabled(slot != 0);
  if (slot == 0) return;
  main.menu.DeleteOpenFolderMenuItem.SetCaption(slot == TrashcanSlot ? "Empty Trashcan" : "Delete");
}

}  // namespace pixorra
