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

#include <memory>

#include "base/Host.h"
#include "platform/controls/Form.h"

namespace pixorra {

class MenuBar;
class ModelessForms;
struct CoreState;
struct DesktopState;
struct DropState;
struct FilmStripState;
struct PicturesState;
struct PreferencesForm;
struct PreviewState;

// The regions are declared only: a file includes the headers of those it uses, and a field added to one rebuilds no
// more than that.
struct MainForm {
  // Not loaded: Startup connects events and runs the start-up.
  explicit MainForm(Host& services);
  ~MainForm();
  MainForm(const MainForm&) = delete;
  MainForm& operator=(const MainForm&) = delete;

  Host& host;
  Form Window;

 private:
  struct Regions;
  std::unique_ptr<Regions> regions_;

 public:
  MenuBar& menu;
  CoreState& core;
  PreviewState& preview;
  FilmStripState& strip;
  DesktopState& desk;
  DropState& drop;
  PicturesState& pictures;
  PreferencesForm& preferences;
  ModelessForms& modeless;
};

}  // namespace pixorra
