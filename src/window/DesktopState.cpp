#include "window/DesktopState.h"

#include "base/Definition.h"
#include "base/Palette.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

DesktopState::DesktopState(Form& window, Host& host) : window_(window), host_(host) {
  DefineDesktop(host);
  DefineView(host);
}

void DesktopState::DefineDesktop(Host& host) {
  ClosedFolder = Drawing(host, "ClosedFolder", 138, 95);
  OpenFolder = Drawing(host, "OpenFolder", 138, 95);
  TrashcanClosed = Drawing(host, "TrashcanClosed", 62, 89);
  TrashcanOpen = Drawing(host, "TrashcanOpen", 62, 89);
  for (Shape* shape : {&DestBackShape1, &DestBackShape2, &DestBackShape3, &DestBackShape4}) {
    shape->SetFill(palette::DesktopEdge);
    shape->SetBorder(palette::DesktopEdge, 0);
  }
  DesktopImage.SetStretch(true);
  Place(DesktopImage, 120, 2880, 7920, 5400);
  DesktopImage.SetPicture(Drawing(host, "Clouds", 1200, 900));

  DestFolder(0).SetPicture(ClosedFolder);
  // Its icon is the pane's too, which changes it by hand.
  DestFolder(0).SetMousePointer(pointer::Custom);
  DestFolder(0).SetMouseIcon(Drawing(host, "HandPointer", 32, 32));
  DestPicsCount(0).SetForeColor(palette::CountText);
  DestPicsCount(0).SetAutoSize(true);
  DestPicsCount(0).SetBackColor(palette::CountHalo);
  DestFolderName(0).SetAlignment(Alignment::Center);
  DestFolderName(0).SetAutoSize(true);
  DestFolderName(0).SetShortensInMiddle(true);
  DestFolderName(0).SetOpaque(true);
  DestFolderName(0).SetMousePointer(pointer::Hand);
  DestFolderName(0).SetBackColor(palette::ClosedLabelBack);
  DestFolderName(0).SetForeColor(palette::ClosedLabelText);
  DestFolderPreview(0).SetStretch(true);
  DestFolderPreview(0).SetShowsPhotoOfTag(true);
  DestFolderPreview(0).Move(0, 0, ThumbnailWidth, ThumbnailHeight);
  DestFolderPreview(0).SetMousePointer(pointer::Hand);

  ShowFolder.SetPicture(Drawing(host, "ShowFolder", 70, 51));
  ShowFolder.SetToolTipText("Show a Folder");
  HideFolder.SetPicture(Drawing(host, "HideFolder", 70, 51));
  HideFolder.SetToolTipText("Hide the Open Folder");
  for (ImageBox* box : {&ShowFolder, &HideFolder}) {
    box->SetMousePointer(pointer::Hand);
  }
  NoFolderHint.SetCaption("Show a folder to sort into");
  NoFolderHint.SetForeColor(palette::CountText);
  NoFolderHint.SetBackColor(palette::CountHalo);
  NoFolderHint.SetHalo(true);
  NoFolderHint.SetFont({"", 11, false});
  NoFolderHint.SetAutoSize(true);
  NoFolderHint.SetMousePointer(pointer::Hand);
  NoFolderHint.SetVisible(false);
  FolderRenameBox.SetVisible(false);
  FolderRenameBox.Move(0, 0, 120, 22);
}

void DesktopState::DefineView(Host& host) {
  Place(DestContentsLabel, 8160, 2835, 2895, 255);
  DestContentsLabel.SetAlignment(Alignment::Center);
  DestContentsLabel.SetShortensInMiddle(true);
  DestContentsLabel.SetVisible(false);
  Place(DestCountLabel, 11040, 2835, 495, 255);
  DestCountLabel.SetAlignment(Alignment::Center);
  DestCountLabel.SetShrinks(true);  // five figures are wider than its box
  Place(DestThumbsWindow, 8190, 3075, 2970, 5220);
  DestThumbsWindow.SetBackColor(palette::Page);
  DestCanvas.SetBackColor(palette::Page);
  Place(DestScrollbar, 11160, 3075, 255, 5220);

  DestBackground(0).SetPicture(Drawing(host, "DestBackground", CellWidth, CellHeight));
  DestThumbnail(0).SetStretch(true);
  DestThumbnail(0).SetShowsPhotoOfTag(true);
  DestThumbnail(0).Move(0, 0, ThumbnailWidth, ThumbnailHeight);
  DestThumbnail(0).SetMousePointer(pointer::Hand);
  DestThumbName(0).Move(0, 0, ThumbnailWidth, ThumbNameHeight);
  DestThumbName(0).SetForeColor(palette::PageText);
  DestThumbName(0).SetAlignment(Alignment::Center);
  DestThumbName(0).SetShortensInMiddle(true);
  DestThumbName(0).SetFont({"", 8, false});
  DestThumbFrame.SetBorder(palette::Selection, 3);
  DestThumbFrame.SetVisible(false);
}

int SelectedCell(const DesktopState& desk) {
  return CLng(Val(desk.DestThumbFrame.Tag()));
}

}  // namespace pixorra
