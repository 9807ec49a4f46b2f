#include "desktop/OpenFolder.h"

#include "base/Palette.h"
#include "desktop/FolderGeometry.h"
#include "desktop/FolderSlots.h"
#include "desktop/ShownFolders.h"
#include "pictures/QuickThumbs.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

enum class Look { Closed, Open };
enum class Seen { No, Yes };

// Icon and preview are hidden while the picture changes, and the preview moves with the folder's front.
void ShowFolderState(DesktopState& desk, int slot, Look look, Seen seen) {
  const bool open = look == Look::Open;
  ImageBox& icon = desk.DestFolder(slot);
  ImageBox& preview = desk.DestFolderPreview(slot);
  icon.SetVisible(false);
  preview.SetVisible(false);
  icon.SetPicture(open ? desk.OpenFolder : desk.ClosedFolder);
  const Spot place = FolderPreviewPlace(PresentGrid(desk), slot, open);
  preview.Move(place.Left, place.Top);
  desk.DestFolderName(slot).SetBackColor(open ? palette::OpenLabelBack : palette::ClosedLabelBack);
  desk.DestFolderName(slot).SetForeColor(open ? palette::OpenLabelText : palette::ClosedLabelText);
  if (seen == Seen::No) return;
  icon.SetVisible(true);
  if (desk.DestFolderFiles(slot).ListCount() != 0) preview.SetVisible(true);
}

void ShowTrashcanState(DesktopState& desk, Look look) {
  ImageBox& icon = desk.DestFolder(TrashcanSlot);
  icon.SetVisible(false);
  icon.SetPicture(look == Look::Open ? desk.TrashcanOpen : desk.TrashcanClosed);
  icon.SetVisible(true);
}

void CloseSlot(DesktopState& desk, int slot) {
  if (slot == 0 || !desk.DestFolder.IsLoaded(slot)) return;
  if (slot == TrashcanSlot) {
    ShowTrashcanState(desk, Look::Closed);
  } else {
    ShowFolderState(desk, slot, Look::Closed, desk.DestFolder(slot).Visible() ? Seen::Yes : Seen::No);
  }
}

void OpenNone(DesktopState& desk) {
  desk.OpenFolderIndex = 0;
  desk.DestLoadedPath.clear();
  desk.DestContentsLabel.SetCaption("");
  desk.DestContentsLabel.SetToolTipText("");
}

// A folder that has photos has a preview, and one without has none. A preview that is shown stays.
void ShowPreviewByList(MainForm& main, int slot) {
  if (slot == TrashcanSlot) return;
  const FileListBox& list = main.desk.DestFolderFiles(slot);
  const ImageBox& preview = main.desk.DestFolderPreview(slot);
  const bool shown = preview.Visible() && !preview.GetPicture().IsNothing();
  if (list.ListCount() == 0 || !shown) ShowNewestPhoto(main, slot, list.Path(), Picture());
}

}  // namespace

void Select_a_Folder(MainForm& main, int slot) {
  DesktopState& desk = main.desk;
  main.core.SystemResourceStatusTimer.SetEnabled(true);
  CloseSlot(desk, desk.OpenFolderIndex);
  if (!IsSlotInUse(desk, slot)) {
    OpenNone(desk);
    return;
  }
  if (slot == TrashcanSlot) {
    ShowTrashcanState(desk, Look::Open);
  } else {
    ShowFolderState(desk, slot, Look::Open, Seen::Yes);
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
  DesktopState& desk = main.desk;
  if (!IsSlotInUse(desk, slot)) return;
  Select_a_Folder(main, slot);
  // A folder that no longer exists has been taken off the Desktop, and another one may be open now.
  if (desk.OpenFolderIndex != slot) return;
  desk.DestFileList.Refresh();
  desk.DestFolderFiles(slot).Refresh();
  ShowFolderCount(desk, slot);
  ShowPreviewByList(main, slot);
  QuickThumbsOf(main).DeleteQuickThumbs(desk.DestFileList.Path());
  desk.DestLoadedPath.clear();
}

}  // namespace pixorra
