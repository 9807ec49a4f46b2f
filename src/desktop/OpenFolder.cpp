#include "desktop/OpenFolder.h"

#include "base/Palette.h"
#include "desktop/FolderGeometry.h"
#include "desktop/FolderSlots.h"
#include "pictures/QuickThumbs.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Icon and preview are hidden while the picture changes, and the preview moves with the folder's front.
void ShowFolderState(MainForm& main, int slot, bool open, bool visible) {
  DesktopState& desk = main.desk;
  ImageBox& icon = desk.DestFolder(slot);
  ImageBox& preview = desk.DestFolderPreview(slot);
  icon.SetVisible(false);
  preview.SetVisible(false);
  icon.SetPicture(open ? desk.OpenFolder : desk.ClosedFolder);
  const Spot place = FolderPreviewPlace(PresentGrid(main), slot, open);
  preview.Move(place.Left, place.Top);
  desk.DestFolderName(slot).SetBackColor(open ? palette::OpenLabelBack : palette::ClosedLabelBack);
  desk.DestFolderName(slot).SetForeColor(open ? palette::OpenLabelText : palette::ClosedLabelText);
  if (!visible) return;
  icon.SetVisible(true);
  if (desk.DestFolderFiles(slot).ListCount() != 0) preview.SetVisible(true);
}

void ShowTrashcanState(MainForm& main, bool open) {
  ImageBox& icon = main.desk.DestFolder(TrashcanSlot);
  icon.SetVisible(false);
  icon.SetPicture(open ? main.desk.TrashcanOpen : main.desk.TrashcanClosed);
  icon.SetVisible(true);
}

void CloseSlot(MainForm& main, int slot) {
  if (slot == 0 || !main.desk.DestFolder.IsLoaded(slot)) return;
  if (slot == TrashcanSlot) {
    ShowTrashcanState(main, false);
  } else {
    ShowFolderState(main, slot, false, main.desk.DestFolder(slot).Visible());
  }
}

void OpenNone(MainForm& main) {
  main.desk.OpenFolderIndex = 0;
  main.desk.DestLoadedPath.clear();
  main.desk.DestContentsLabel.SetCaption("");
  main.desk.DestContentsLabel.SetToolTipText("");
}

}  // namespace

void Select_a_Folder(MainForm& main, int slot) {
  DesktopState& desk = main.desk;
  main.core.SystemResourceStatusTimer.SetEnabled(true);
  CloseSlot(main, desk.OpenFolderIndex);
  if (!IsSlotInUse(main, slot)) {
    OpenNone(main);
    return;
  }
  if (slot == TrashcanSlot) {
    ShowTrashcanState(main, true);
  } else {
    ShowFolderState(main, slot, true, true);
  }
  desk.DestContentsLabel.SetCaption(desk.DestFolderName(slot).Caption());
  desk.DestContentsLabel.SetToolTipText(desk.DestFolderName(slot).ToolTipText());
  desk.DestContentsLabel.SetVisible(true);
  desk.OpenFolderIndex = slot;
  const int failure = ErrorsIgnored([&] {
    desk.DestFileList.SetPath(desk.DestFolderFiles(slot).Path());
    desk.DestScrollbar.SetValue(desk.DestScrollbar.Min());
  });
  if (failure == error::None) return;
  const std::string path = desk.DestFolderFiles(slot).Path();
  Remove_Open_Folder(main);
  main.host.dialogs.MsgBox("?? Folder Not Found\n\n" + main.host.files.ShownPath(path), BoxIcon::Exclamation,
                           BoxButtons::Ok, std::string(ApplicationTitle) + " - Unable to Open folder");
}

void RefreshFolder(MainForm& main, int slot) {
  if (!IsSlotInUse(main, slot)) return;
  Select_a_Folder(main, slot);
  DesktopState& desk = main.desk;
  // Where the folder has gone, another one may be open now.
  if (desk.OpenFolderIndex != slot) return;
  desk.DestFileList.Refresh();
  desk.DestFolderFiles(slot).Refresh();
  ShowFolderCount(main, slot);
  QuickThumbsOf(main).DeleteQuickThumbs(desk.DestFileList.Path());
  desk.DestLoadedPath.clear();
}

}  // namespace pixorra
