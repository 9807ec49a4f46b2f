// Taking a drop back, and the clipboard: the menus and the button.
#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "drop/CopyPhoto.h"
#include "drop/DropMenu.h"
#include "drop/Paste.h"
#include "drop/UndoLastDrop.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

void ConnectUndoButton(MainForm& main) {
  ImageBox& button = main.strip.UndoButton;
  // Deliberate: the undo acts on the press, with any button.
  Connect(button.On().MouseDown, EndingRename(main, [&main](Control& control, const MouseArgs& mouse) {
            if (mouse.Button == button::Left) static_cast<ImageBox&>(control).SetBorderStyle(1);
            main.preview.bPicEdited = false;
            UndoLastDrop(main);
          }));
  Connect(button.On().MouseUp,
          [](Control& control, const MouseArgs&) { static_cast<ImageBox&>(control).SetBorderStyle(0); });
  Connect(button.On().MouseMove, [&main](Control& control, const MouseArgs& mouse) {
    // Where the undo has brought up a message, that has taken the mouse, and the button is not told when it is let go.
    if (mouse.Button == 0) static_cast<ImageBox&>(control).SetBorderStyle(0);
    UndoButton_MouseMove(main);
  });
}

}  // namespace

void ConnectClipboard(MainForm& main) {
  ConnectUndoButton(main);
  MenuBar& menu = main.menu;
  const auto connect = [&main](MenuItem& item, auto operation) { Connect(item, EndingRename(main, operation)); };
  Connect(menu.DropMenu, [&main] { DropMenu_Click(main); });
  connect(menu.UndoMenuItem, [&main] { UndoLastDrop(main); });
  connect(menu.CopyMenuItem, [&main] { CopyMenuItem_Click(main); });
  connect(menu.PasteMenuItem, [&main] { PasteMenuItem_Click(main); });
}

}  // namespace pixorra
