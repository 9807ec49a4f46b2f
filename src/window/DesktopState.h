// The Desktop: eight folder slots and the Trashcan, and the view of the open folder's photos beside it.
#pragma once

#include <string>

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

namespace pixorra {

struct Host;

inline constexpr int FolderSlots = 8;
inline constexpr int TrashcanSlot = 9;

struct DesktopState {
  DesktopState(Form& window, Host& host);

  // --- counters ----------------------------------------------------------------------------------------------------
  int FoldersShown = 0;      // of slots 1 to 8
  int OpenFolderIndex = 0;   // 0 none, 1 to 8 a folder, 9 the Trashcan
  int PopupFolderIndex = 0;  // the slot that the last right click hit
  int DestSlotCount = 0;     // cells loaded in the open folder's view
  int DestColumns = 2;       // cells in a row
  int DestPageBase = 0;      // cells that lie before the canvas's origin
  std::string DestLoadedPath;
  LoadedPaths loadedPaths;

  // Picture sources.
  Picture ClosedFolder;
  Picture OpenFolder;
  Picture TrashcanClosed;
  Picture TrashcanOpen;

  // --- controls, back to front -------------------------------------------------------------------------------------
  Shape DestBackShape1;  // frame the Desktop
  Shape DestBackShape2;
  Shape DestBackShape3;
  Shape DestBackShape4;
  ImageBox DesktopImage;
  // A folder slot is one index in these five; the Trashcan, slot 9, has no preview.
  ControlArray<ImageBox> DestFolder;
  ControlArray<Label> DestPicsCount;
  ControlArray<Label> DestFolderName;
  ControlArray<ImageBox> DestFolderPreview;
  ControlArray<FileListBox> DestFolderFiles;
  ImageBox ShowFolder;
  ImageBox HideFolder;
  FileListBox DestFileList;  // the open folder's photos
  Label DestContentsLabel;
  Label DestCountLabel;
  PictureBox DestThumbsWindow;
  PictureBox DestCanvas;
  // A cell is one index in these three.
  ControlArray<ImageBox> DestBackground;
  ControlArray<ImageBox> DestThumbnail;
  ControlArray<Label> DestThumbName;
  Shape DestThumbFrame;
  ScrollBar DestScrollbar;
  TextBox FolderRenameBox;  // its Tag holds the slot being renamed

 private:
  void DefineDesktop(Host& host);
  void DefineView(Host& host);
};

}  // namespace pixorra
