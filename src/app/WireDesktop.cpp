// The events of the Desktop, of the open folder's view, and of their menus.
#include "app/Wiring.h"
#include "desktop/FolderCommands.h"
#include "desktop/OpenFolder.h"
#include "desktop/OpenFolderView.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

namespace {

void ConnectFolders(MainForm& main) {
  DesktopState& desk = main.desk;
  for (Events* on : {&desk.DestFolder.On(), &desk.DestFolderName.On(), &desk.DestFolderPreview.On()}) {
    on->Click = [&main](Control& slot) { DestFolder_Click(main, slot.Index()); };
    on->MouseDown = [&main](Control& slot, const MouseArgs& args) {
      DestFolder_MouseDown(main, slot.Index(), args.Button);
    };
  }
  desk.DesktopImage.On().Click = [&main](Control&) { ShowFolder_Click(main); };
  desk.ShowFolder.On().Click = [&main](Control&) { ShowFolder_Click(main); };
  desk.HideFolder.On().Click = [&main](Control&) { HideFolder_Click(main); };
}

void ConnectView(MainForm& main) {
  DesktopState& desk = main.desk;
  desk.DestScrollbar.On().Change = [&main](Control&) { DestScrollbar_Change(main); };
  desk.DestScrollbar.On().Scroll = [&main](Control&) { DestScrollbar_Scroll(main); };
  desk.DestThumbnail.On().MouseDown = [&main](Control& cell, const MouseArgs& args) {
    DestThumbnail_MouseDown(main, cell.Index(), args.Button);
  };
}

void ConnectMenus(MainForm& main) {
  MenuBar& menu = main.menu;
  menu.HideFolderMenuItem.On().Click = [&main](Control&) { HideFolder_Click(main); };
  menu.OpenFolderMenu.On().Click = [&main](Control&) { OpenFolderMenu_Click(main); };
  menu.RefreshOpenFolderMenuItem.On().Click = [&main](Control&) { RefreshFolder(main, main.desk.OpenFolderIndex); };

  menu.OpenFolderPopupItem.On().Click = [&main](Control&) { DestFolder_Click(main, main.desk.PopupFolderIndex); };
  menu.RefreshFolderPopupItem.On().Click = [&main](Control&) { RefreshFolder(main, main.desk.PopupFolderIndex); };
  menu.HideFolderPopupItem.On().Click = [&main](Control&) { HideFolderPopupItem_Click(main); };
  menu.OpenTrashcanPopupItem.On().Click = [&main](Control&) { DestFolder_Click(main, TrashcanSlot); };
  menu.RefreshTrashcanPopupItem.On().Click = [&main](Control&) { RefreshFolder(main, TrashcanSlot); };
}

}  // namespace

void ConnectDesktop(MainForm& main) {
  ConnectFolders(main);
  ConnectView(main);
  ConnectMenus(main);
}

}  // namespace pixorra
