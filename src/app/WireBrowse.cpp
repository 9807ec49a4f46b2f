// The ways to choose a film strip and to show a folder: buttons, menus, and folders dropped from the file manager.
#include <memory>

#include "app/Wiring.h"
#include "browse/BrowseFolderLocationForm.h"
#include "browse/ChooseFilmStrip.h"
#include "browse/FolderChoices.h"
#include "browse/FolderDrops.h"
#include "desktop/FolderRename.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

void Browse(MainForm& main, BrowseMode mode) {
  main.preview.bPicEdited = false;
  ShowBrowser(main, mode);
}

void ShowFolder_Click(MainForm& main) {
  if (!IsDesktopFull(main)) ShowBrowser(main, BrowseMode::Show);
}

void ConnectButtons(MainForm& main) {
  FilmStripState& strip = main.strip;
  Connect(strip.CameraButton.On().Click, [&main](Control&) { CameraButton_Click(main); });
  Connect(strip.CameraButton.On().MouseMove,
          [look = std::make_shared<CameraLook>(main)](Control&, const MouseArgs&) { look->CameraButton_MouseMove(); });
  // Deliberate: the swap acts on the press, with any button.
  Connect(strip.SwapButton.On().MouseDown, EndingRename(main, [&main](Control& control, const MouseArgs& mouse) {
            if (mouse.Button == button::Left) static_cast<ImageBox&>(control).SetBorderStyle(1);
            SwapButton_MouseDown(main);
          }));
  // Where the swap has brought up a message, that has taken the mouse, and the button is not told when it is let go.
  Connect(strip.SwapButton.On().MouseMove, [](Control& control, const MouseArgs& mouse) {
    if (mouse.Button == 0) static_cast<ImageBox&>(control).SetBorderStyle(0);
  });
  Connect(strip.SwapButton.On().MouseUp,
          [](Control& control, const MouseArgs&) { static_cast<ImageBox&>(control).SetBorderStyle(0); });
  Connect(strip.BrowseButton.On().Click, [&main](Control&) { Browse(main, BrowseMode::FilmStrip); });
  DesktopState& desk = main.desk;
  for (Events* on : {&desk.DesktopImage.On(), &desk.ShowFolder.On(), &desk.NoFolderHint.On()})
    Connect(on->Click, EndingRename(main, [&main](Control&) { ShowFolder_Click(main); }));
}

void ConnectBrowseMenus(MainForm& main) {
  MenuBar& menu = main.menu;
  const auto connect = [&main](MenuItem& item, auto operation) { Connect(item, EndingRename(main, operation)); };
  connect(menu.OpenFilmStripMenuItem, [&main] { Browse(main, BrowseMode::FilmStrip); });
  connect(menu.SetCameraLocationMenuItem, [&main] { Browse(main, BrowseMode::Camera); });
  for (MenuItem* item : {&menu.ShowFolderMenuItem, &menu.ShowFolderPopupItem})
    connect(*item, [&main] { ShowFolder_Click(main); });
  connect(menu.SwapOpenFolderMenuItem, [&main] { SwapOpenFolderMenuItem_Click(main); });
  for (MenuItem* item : {&menu.SwapFolderMenuItem, &menu.SwapTrashcanMenuItem})
    connect(*item, [&main] { SwapFolderMenuItem_Click(main); });
}

void ConnectDrops(MainForm& main) {
  FilmStripState& strip = main.strip;
  DesktopState& desk = main.desk;
  Connect(strip.SrcThumbsWindow.On().FilesDropped,
          EndingRename(main, [&main](Control&, const FilesArgs& files) { DropOnFilmStrip(main, files.Paths); }));
  for (Events* on :
       {&desk.DesktopImage.On(), &desk.DestFolder.On(), &desk.DestFolderName.On(), &desk.DestFolderPreview.On(),
        &desk.DestPicsCount.On(), &desk.ShowFolder.On(), &desk.HideFolder.On(), &desk.NoFolderHint.On()})
    Connect(on->FilesDropped,
            EndingRename(main, [&main](Control&, const FilesArgs& files) { DropOnDesktop(main, files.Paths); }));
}

}  // namespace

void ConnectBrowse(MainForm& main) {
  ConnectButtons(main);
  ConnectBrowseMenus(main);
  ConnectDrops(main);
}

}  // namespace pixorra
