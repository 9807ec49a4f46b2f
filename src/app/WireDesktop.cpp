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
    Connect(on->Click, [&main](Control& slot) { DestFolder_Click(main, slot.Index()); });
    Connect(on->MouseDown,
            [&main](Control& slot, const MouseArgs& args) { DestFolder_MouseDown(main, slot.Index(), args.Button); });
  }
  Connect(desk.DesktopImage.On().Click, [&main](Control&) { ShowFolder_Click(main); });
  Connect(desk.ShowFolder.On().Click, [&main](Control&) { ShowFolder_Click(main); });
  Connect(desk.NoFolderHint.On().Click, [&main](Control&) { ShowFolder_Click(main); });
  Connect(desk.HideFolder.On().Click, [&main](Control&) { HideFolder_Click(main); });
}

void ConnectView(MainForm& main) {
  DesktopState& desk = main.desk;
  Connect(desk.DestScrollbar.On().Change, [&main](Control&) { DestScrollbar_Change(main); });
  Connect(desk.DestScrollbar.On().Scroll, [&main](Control&) { DestScrollbar_Scroll(main); });
  // A notch is one row.
  for (Control* control : {static_cast<Control*>(&desk.DestThumbsWindow), static_cast<Control*>(&desk.DestScrollbar)}) {
    Connect(control->On().MouseWheel, [&main](Control&, const WheelArgs& turn) {
      ScrollDestBy(main, turn.NotchesY * CellHeight + turn.PixelsY);
    });
  }
  Connect(desk.DestThumbnail.On().MouseDown,
          [&main](Control& cell, const MouseArgs& args) { DestThumbnail_MouseDown(main, cell.Index(), args.Button); });
}

void ConnectMenus(MainForm& main) {
  MenuBar& menu = main.menu;
  Connect(menu.HideFolderMenuItem, [&main] { HideFolder_Click(main); });
  Connect(menu.OpenFolderMenu, [&main] { OpenFolderMenu_Click(main); });
  Connect(menu.RefreshOpenFolderMenuItem, [&main] { RefreshFolder(main, main.desk.OpenFolderIndex); });

  Connect(menu.OpenFolderPopupItem, [&main] { DestFolder_Click(main, main.desk.PopupFolderIndex); });
  Connect(menu.RefreshFolderPopupItem, [&main] { RefreshFolder(main, main.desk.PopupFolderIndex); });
  Connect(menu.HideFolderPopupItem, [&main] { HideFolderPopupItem_Click(main); });
  Connect(menu.OpenTrashcanPopupItem, [&main] { DestFolder_Click(main, TrashcanSlot); });
  Connect(menu.RefreshTrashcanPopupItem, [&main] { RefreshFolder(main, TrashcanSlot); });
}

}  // namespace

void ConnectDesktop(MainForm& main) {
  ConnectFolders(main);
  ConnectView(main);
  ConnectMenus(main);
}

}  // namespace pixorra
