#include "desktop/ShownFolders.h"

#include "base/Routines.h"
#include "base/ShownNames.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "pictures/PaintPhoto.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

bool IsNetworkPath(const std::string& path) {
  return path.starts_with("\\\\");
}

void WarnWith(MainForm& main, const std::string& title, const std::string& text) {
  main.host.dialogs.MsgBox(text, BoxIcon::Exclamation, BoxButtons::Ok, title);
}

// Deliberate: only the first FoldersShown slots are searched. With a gap in the slots, a folder beyond it is not
// noticed.
int SlotShowing(const DesktopState& desk, const std::string& path) {
  for (int i = 1; i <= desk.FoldersShown; ++i) {
    if (desk.DestFolderFiles(i).Path() == path && desk.DestFolder(i).Visible()) return i;
  }
  return 0;
}

int FirstFreeSlot(const DesktopState& desk) {
  for (int i = 1; i <= FolderSlots; ++i) {
    if (!desk.DestFolder(i).Visible()) return i;
  }
  return 0;
}

void FillSlot(MainForm& main, int slot, const std::string& path) {
  DesktopState& desk = main.desk;
  FileListBox& list = desk.DestFolderFiles(slot);
  list.SetPattern(main.core.PicturePattern);
  list.SetPath(path);
  list.Refresh();
  ++desk.FoldersShown;
  desk.DestFolder(slot).BringToFront();
  desk.DestPicsCount(slot).BringToFront();
  desk.DestFolderName(slot).BringToFront();
  desk.DestFolderPreview(slot).BringToFront();
  const bool camera = path == main.strip.CameraLocation;
  ShowFolderName(desk, slot, camera ? " Camera Photos " : " " + ShownFolderName(main.host.files, path) + " ");
  desk.DestFolderName(slot).SetToolTipText(main.host.files.ShownPath(path));
  desk.DestFolder(slot).SetVisible(true);
  desk.DestPicsCount(slot).SetVisible(true);
  desk.DestFolderName(slot).SetVisible(true);
  ShowNewestPhoto(main, slot, path, Picture());
  ShowFolderCount(desk, slot);
}

}  // namespace

void ShowNewestPhoto(MainForm& main, int slot, const std::string& folder, const Picture& whenEmpty) {
  const FileListBox& list = main.desk.DestFolderFiles(slot);
  ImageBox& preview = main.desk.DestFolderPreview(slot);
  if (list.ListCount() == 0) {
    preview.SetPicture(whenEmpty);
    preview.SetVisible(false);
  } else {
    bool bDragged = false;
    const std::string photo = JoinPath(folder, list.List(list.ListCount() - 1));
    preview.SetTag(photo);
    PaintThumbnail(main, preview, photo, bDragged);
    preview.SetVisible(true);
  }
}

int Display_a_New_Folder(MainForm& main, const std::string& path) {
  DesktopState& desk = main.desk;
  Files& files = main.host.files;
  if (!IsNetworkPath(path) && !files.FolderExists(StripTrailingBackslash(path))) {
    WarnWith(main, "WARNING: Can't display the folder",
             "Folder not found\n\n" + files.ShownPath(path) +
                 "\n\nThis folder may have been Moved, Renamed, or Deleted.\n"
                 "It may have been located on a removeable media such\nas a CD-ROM or your digital camera.");
    return 0;
  }
  if (const int shown = SlotShowing(desk, path)) {
    main.host.dialogs.MsgBox(files.ShownPath(path) + "\n\nDestination Folder is already Shown.", BoxIcon::Information,
                             BoxButtons::Ok, "Show a Folder - " + ShownFolderName(files, path));
    return shown;
  }
  if (desk.FoldersShown == FolderSlots) {
    WarnWith(main, "WARNING: Unable to open folder",
             "You already have ALL 8 folders on your desktop.\nPlease close one before trying again.");
    return 0;
  }
  const int slot = FirstFreeSlot(desk);
  if (ErrorsIgnored([&] { FillSlot(main, slot, path); }) != error::None) {
    WarnWith(main, std::string(ApplicationTitle) + " - Cannot Display Folder",
             "?? Folder not found\n\n" + files.ShownPath(path));
    return 0;
  }
  return slot;
}

void TakeOffDesktop(DesktopState& desk, int slot) {
  desk.DestFolder(slot).SetVisible(false);
  desk.DestPicsCount(slot).SetVisible(false);
  desk.DestFolderName(slot).SetVisible(false);
  desk.DestFolderPreview(slot).SetVisible(false);
  --desk.FoldersShown;
}

void Remove_Open_Folder(MainForm& main) {
  DesktopState& desk = main.desk;
  const int slot = desk.OpenFolderIndex;
  if (slot == 0) return;
  if (slot == TrashcanSlot) {
    Select_a_Folder(main, 0);
    return;
  }
  if (desk.FoldersShown == 0) return;
  desk.DestContentsLabel.SetCaption("");
  desk.DestContentsLabel.SetToolTipText("");
  TakeOffDesktop(desk, slot);
  Select_a_Folder(main, 0);
  for (int i = FolderSlots; i >= 1; --i) {
    if (IsSlotInUse(desk, i)) {
      Select_a_Folder(main, i);
      return;
    }
  }
}

}  // namespace pixorra
