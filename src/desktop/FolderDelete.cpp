#include "desktop/FolderDelete.h"

#include <string>

#include "base/Routines.h"
#include "desktop/DelTreeModule.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "desktop/ProtectedFolders.h"
#include "desktop/ShownFolders.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

void Warn(MainForm& main, const std::string& path, const std::string& text, const std::string& title) {
  main.host.dialogs.MsgBox(main.host.files.ShownPath(path) + "\n\n" + text, BoxIcon::Exclamation, BoxButtons::Ok,
                           title);
}

bool RefusesProtected(MainForm& main, int slot, const std::string& path) {
  const std::string title = "WARNING: Can't Delete this folder";
  switch (ProtectionOf(main.host, path, slot != TrashcanSlot)) {
    case Protection::Root:
      Warn(main, path,
           "This folder is a root drive or shared network resource.\n"
           "It cannot be deleted. This is to protect the critical\nfiles and folders that it may also contain.",
           title);
      return true;
    case Protection::System:
      Warn(main, path, "It is a protected system folder.", title);
      return true;
    case Protection::None:
      break;
  }
  return false;
}

// Deliberate: what is hidden is counted too. It is lost with the rest.
std::string Prompt(Files& files, const std::string& path) {
  const FolderContents contents = ContentsToLose(files, path);
  std::string text = "You are about to Delete this folder.\n";
  if (contents.Files == 0 && contents.Folders == 0) {
    text += "This folder is empty.";
  } else {
    text += "This folder still contains " + Str(contents.Files) + " files";
    if (contents.Folders > 0) text += " and " + Str(contents.Folders) + " SUB-FOLDERs\n";
    text += "\nAll of these contents will be lost.";
  }
  return text + "\n\nDelete this folder?";
}

bool Asks(MainForm& main, const std::string& text, const std::string& title) {
  return main.host.dialogs.MsgBox(text, BoxIcon::Question, BoxButtons::YesNo, title) == BoxAnswer::Yes;
}

bool AsksToEmpty(MainForm& main) {
  const std::string title = "Empty the Trashcan";
  if (main.desk.DestFolderFiles(TrashcanSlot).ListCount() == 0) {
    main.host.dialogs.MsgBox("Trashcan is already Empty.", BoxIcon::Information, BoxButtons::Ok, title);
    return false;
  }
  return Asks(main, "Do you want to delete the contents of the Trashcan?", title);
}

bool AsksToDelete(MainForm& main, int slot, const std::string& path) {
  return Asks(main, main.host.files.ShownPath(path) + "\n\n" + Prompt(main.host.files, path),
              main.desk.DestFolderName(slot).Caption() + " - Delete this folder");
}

void ShowPresentContents(DesktopState& desk, int slot) {
  desk.DestFolderFiles(slot).Refresh();
  ShowFolderCount(desk, slot);
  if (desk.DestFolderFiles(slot).Path() != desk.DestFileList.Path()) return;
  desk.DestFileList.Refresh();
  desk.DestLoadedPath.clear();
  desk.DestContentsLabel.SetCaption("");
  desk.DestContentsLabel.SetToolTipText("");
}

// Those that were in the deleted folder.
void TakeVanishedFoldersOff(MainForm& main) {
  for (int i = 1; i <= FolderSlots; ++i) {
    if (!IsSlotInUse(main.desk, i)) continue;
    const std::string& path = main.desk.DestFolderFiles(i).Path();
    if (!path.starts_with("\\\\") && !main.host.files.FolderExists(path)) TakeOffDesktop(main.desk, i);
  }
}

void DeleteSlot(MainForm& main, int slot, const std::string& path) {
  DesktopState& desk = main.desk;
  const int before = desk.OpenFolderIndex;
  Select_a_Folder(main, slot);
  // A folder that can no longer be entered has been taken off by the selection already.
  if (desk.OpenFolderIndex == slot) Remove_Open_Folder(main);
  if (!DeleteTree(main.host.files, path)) {
    Warn(main, path, "Unable to delete folder.", "Error - Deleting Folder");
    return;
  }
  Select_a_Folder(main, 0);
  TakeVanishedFoldersOff(main);
  Select_a_Folder(main, before);
}

}  // namespace

void DeleteFolderAsked(MainForm& main, int slot) {
  DesktopState& desk = main.desk;
  if (!IsSlotInUse(desk, slot)) return;
  const std::string path = desk.DestFolderFiles(slot).Path();
  if (RefusesProtected(main, slot, path)) return;
  if (!(slot == TrashcanSlot ? AsksToEmpty(main) : AsksToDelete(main, slot, path))) return;
  // While the question was up the program may have ended, and the slot may have been given to another folder.
  if (main.host.toolkit.Ended() || !IsSlotInUse(desk, slot) || desk.DestFolderFiles(slot).Path() != path) return;
  ShowPresentContents(desk, slot);
  // Deliberate: the photos in the Trashcan go when the program ends, and not before.
  if (slot == TrashcanSlot) return;
  DeleteSlot(main, slot, path);
}

}  // namespace pixorra
