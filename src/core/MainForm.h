// The main window: what the program owns, put together. Data only: operations are free functions in the folders of
// their subjects that take a MainForm&.
//
//   +--------------------------------------------------------------------------------------------+
//   | menu bar                                                                                   |
//   | +------------+  SrcPicsTotal        SrcFolderPath                            SrcPicsCount   |
//   | | PicPreview |  SrcThumbsWindow [ SrcCanvas: SrcBackground SrcThumbnail SrcThumbName ... ] |
//   | |            |  SrcScrollbar                                                              |
//   | +------------+  CameraButton Browse Swap Delete Undo All Print        FilmStripModeFrame   |
//   | +----------- DesktopImage -----------------+  DestContentsLabel            DestCountLabel  |
//   | | DestFolder(1)   (2)          (3)         |  +- DestThumbsWindow [DestCanvas] -+ D S       |
//   | | DestFolder(4)   (5)          (6)         |  | DestBackground DestThumbnail    | e c       |
//   | | DestFolder(7)   (8)  Show/   Trashcan(9) |  | DestThumbName ...               | s r       |
//   | |                      HideFolder          |  |                                 | t o...    |
//   | +------------------------------------------+  +---------------------------------+           |
//   +--------------------------------------------------------------------------------------------+
#pragma once

#include "core/CoreState.h"
#include "core/Host.h"
#include "core/MenuBar.h"
#include "core/PreferencesForm.h"
#include "desktop/DesktopState.h"
#include "drop/DropState.h"
#include "filmstrip/FilmStripState.h"
#include "pictures/PicturesState.h"
#include "platform/controls/Form.h"
#include "preview/PreviewState.h"

namespace pixorra {

struct MainForm {
  // Not loaded: Startup connects events and runs the start-up.
  explicit MainForm(Host& services);

  Host& host;
  Form Window;
  MenuBar menu;
  CoreState core;
  PreviewState preview;
  FilmStripState strip;
  DesktopState desk;
  DropState drop;
  PicturesState pictures;
  PreferencesForm preferences;
};

}  // namespace pixorra
