// The Desktop: eight folder slots and the Trashcan, and the view of the open folder's photos beside it.
#pragma once

#include <algorithm>
#include <string>

#include "base/Bars.h"
#include "base/Host.h"
#include "base/LoadedPaths.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/Shape.h"
#include "platform/controls/TextBox.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

inline constexpr int FolderSlots = 8;
inline constexpr int TrashcanSlot = 9;

struct DesktopState {
 private:
  Form& window_;  // ahead of the controls, which lie on it
  Host& host_;

 public:
  DesktopState(Form& window, Host& host);

  // --- counters ----------------------------------------------------------------------------------------------------
  int FoldersShown = 0;      // of slots 1 to 8
  int OpenFolderIndex = 0;   // 0 none, 1 to 8 a folder, 9 the Trashcan
  int PopupFolderIndex = 0;  // the slot that the last right click hit
  int DestSlotCount = 0;     // cells loaded in the open folder's view
  int DestColumns = 2;       // cells in a row
  int DestPageBase = 0;      // cells that lie before the canvas's origin
  BarScale DestBarScale;     // of DestScrollbar
  int KeptCell = 0;          // that the last change of DestColumns has left in its place; 0 none
  int KeptAtValue = 0;       // of DestScrollbar then
  std::string DestLoadedPath;
  LoadedPaths loadedPaths;

  // Picture sources.
  Picture ClosedFolder;
  Picture OpenFolder;
  Picture TrashcanClosed;
  Picture TrashcanOpen;

  // --- controls, back to front -------------------------------------------------------------------------------------
  Shape DestBackShape1{window_, "DestBackShape1"};  // frame the Desktop
  Shape DestBackShape2{window_, "DestBackShape2"};
  Shape DestBackShape3{window_, "DestBackShape3"};
  Shape DestBackShape4{window_, "DestBackShape4"};
  ImageBox DesktopImage{window_, "DesktopImage"};
  // A folder slot is one index in these five; the Trashcan, slot 9, has no preview. A preview's Tag is the
  // path of its photo.
  ControlArray<ImageBox> DestFolder{window_, "DestFolder"};
  ControlArray<Label> DestPicsCount{window_, "DestPicsCount"};
  ControlArray<Label> DestFolderName{window_, "DestFolderName"};
  ControlArray<ImageBox> DestFolderPreview{window_, "DestFolderPreview"};
  ControlArray<FileListBox> DestFolderFiles{window_, "DestFolderFiles", host_.files};
  Label NoFolderHint{window_, "NoFolderHint"};  // what to do first, where no folder is shown
  ImageBox ShowFolder{window_, "ShowFolder"};
  ImageBox HideFolder{window_, "HideFolder"};
  FileListBox DestFileList{window_, "DestFileList", host_.files};  // the open folder's photos
  Label DestContentsLabel{window_, "DestContentsLabel"};
  Label DestCountLabel{window_, "DestCountLabel"};
  PictureBox DestThumbsWindow{window_, "DestThumbsWindow"};
  PictureBox DestCanvas{DestThumbsWindow, "DestCanvas"};
  // A cell is one index in these three.
  ControlArray<ImageBox> DestBackground{DestCanvas, "DestBackground"};
  ControlArray<ImageBox> DestThumbnail{DestCanvas, "DestThumbnail"};
  ControlArray<Label> DestThumbName{DestCanvas, "DestThumbName"};
  Shape DestThumbFrame{DestCanvas, "DestThumbFrame"};
  ScrollBar DestScrollbar{window_, "DestScrollbar", Orientation::Vertical};
  std::string FolderBeingRenamed;                       // its path
  TextBox FolderRenameBox{window_, "FolderRenameBox"};  // its Tag holds the slot being renamed

 private:
  void DefineDesktop(Host& host);
  void DefineView(Host& host);
};

// The full path of the photo in a cell of the open folder's view, from 1.
inline const std::string& PhotoOf(const DesktopState& desk, int cell) {
  return desk.DestThumbnail(cell).Tag();
}
// How many cells the open folder's view is to have.
inline int CellsWanted(const DesktopState& desk) {
  return std::min(desk.DestFileList.ListCount(), MostThumbnails);
}
// The cell that was selected last, 0 before the first; DestThumbFrame is visible while it is selected still.
int SelectedCell(const DesktopState& desk);

}  // namespace pixorra
