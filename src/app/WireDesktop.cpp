// The events of the Desktop, of the open folder's view, and of their menus.
#include "app/Wiring.h"
#include "desktop/ChangeBackgroundForm.h"
#include "desktop/FolderCommands.h"
#include "desktop/FolderDelete.h"
#include "desktop/FolderRename.h"
#include "desktop/OpenFolder.h"
#include "desktop/OpenFolderView.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

namespace {

void ConnectFolders(MainForm& main) {
  DesktopState& desk = main.desk;
  for (Events* on : {&desk.DestFolder.On(), &desk.DestFolderName.On(), &desk.DestFolderPreview.On()}) {
    Connect(on->Click, [&main](Control& slot) { DestFolder_Click(main, slot.Index()); });
    Connect(on->MouseDown, EndingRename(main, [&main](Control& slot, const MouseArgs& args) {
              DestFolder_MouseDown(main, slot.Index(), args.Button);
            }));
  }
  Connect(desk.HideFolder.On().Click, EndingRename(main, [&main](Control&) { HideFolder_Click(main); }));
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
  Connect(desk.DestThumbnail.On().MouseDown, EndingRename(main, [&main](Control& cell, const MouseArgs& args) {
            DestThumbnail_MouseDown(main, cell.Index(), args.Button);
          }));
}

void ConnectRenameBox(MainForm& main) {
  DesktopState& desk = main.desk;
  FilmStripState& strip = main.strip;
  Events& box = desk.FolderRenameBox.On();
  Connect(box.GotFocus, [&main](Control&) { FolderRenameBox_GotFocus(main); });
  Connect(box.LostFocus, [&main](Control&) { EndFolderRename(main); });
  Connect(box.KeyPress, [&main](Control&, int& code) { FolderRenameBox_KeyPress(main, code); });
  // A press on these does not take the focus off the box, and mostly means nothing else.
  for (Events* on : {&main.Window.On(), &desk.DesktopImage.On(), &desk.ShowFolder.On(), &desk.HideFolder.On(),
                     &desk.DestPicsCount.On(), &desk.DestThumbsWindow.On(), &desk.DestCanvas.On(),
                     &desk.DestBackground.On(), &desk.DestThumbName.On(), &strip.SrcThumbsWindow.On(),
                     &strip.SrcCanvas.On(), &strip.SrcBackground.On(), &strip.SrcThumbName.On()}) {
    Connect(on->MouseDown, [&main](Control&, const MouseArgs&) { EndFolderRename(main); });
  }
}

void ConnectFolderMenus(MainForm& main) {
  MenuBar& menu = main.menu;
  const auto connect = [&main](MenuItem& item, auto operation) { Connect(item, EndingRename(main, operation)); };
  connect(menu.HideFolderMenuItem, [&main] { HideFolder_Click(main); });
  connect(menu.ChangeBackgroundMenuItem, [&main] { ShowChangeBackground(main); });
  Connect(menu.OpenFolderMenu, [&main] { OpenFolderMenu_Click(main); });
  connect(menu.RefreshOpenFolderMenuItem, [&main] { RefreshFolder(main, main.desk.OpenFolderIndex); });
  connect(menu.RenameOpenFolderMenuItem, [&main] { RenameFolderStart(main, main.desk.OpenFolderIndex); });
  connect(menu.DeleteOpenFolderMenuItem, [&main] { DeleteFolderAsked(main, main.desk.OpenFolderIndex); });

  connect(menu.OpenFolderPopupItem, [&main] { DestFolder_Click(main, main.desk.PopupFolderIndex); });
  connect(menu.RefreshFolderPopupItem, [&main] { RefreshFolder(main, main.desk.PopupFolderIndex); });
  connect(menu.HideFolderPopupItem, [&main] { HideFolderPopupItem_Click(main); });
  connect(menu.RenameFolderPopupItem, [&main] { RenameFolderStart(main, main.desk.PopupFolderIndex); });
  connect(menu.DeleteFolderPopupItem, [&main] { DeleteFolderAsked(main, main.desk.PopupFolderIndex); });
  connect(menu.OpenTrashcanPopupItem, [&main] { DestFolder_Click(main, TrashcanSlot); });
  connect(menu.RefreshTrashcanPopupItem, [&main] { RefreshFolder(main, TrashcanSlot); });
  connect(menu.EmptyTrashcanPopupItem, [&main] { DeleteFolderAsked(main, TrashcanSlot); });
}

}  // namespace

void ConnectDesktop(MainForm& main) {
  ConnectFolders(main);
  ConnectView(main);
  ConnectRenameBox(main);
  ConnectFolderMenus(main);
}

}  // namespace pixorra
