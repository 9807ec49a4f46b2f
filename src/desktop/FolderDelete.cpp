#include "desktop/FolderDelete.h"

#include <optional>
#include <string>

#include "base/Routines.h"
#include "desktop/DelTreeModule.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "desktop/ProtectedFolders.h"
#include "desktop/ShownFolders.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
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

// Deliberate: what is hidden is counted too. It is lost with the rest. Raises as ContentsToLose does.
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

bool AsksToDelete(MainForm& main, int slot, const std::string& path, const std::string& prompt) {
  return Asks(main, main.host.files.ShownPath(path) + "\n\n" + prompt,
              main.desk.DestFolderName(slot).Caption() + " - Delete this folder");
}

void ShowPresentContents(DesktopState& desk, int slot) {
  ErrorsIgnored([&] { desk.DestFolderFiles(slot).Refresh(); });
  ShowFolderCount(desk, slot);
  if (desk.DestFolderFiles(slot).Path() != desk.DestFileList.Path()) return;
  ErrorsIgnored([&] { desk.DestFileList.Refresh(); });
  desk.DestLoadedPath.clear();
  desk.DestContentsLabel.SetCaption("");
  desk.DestContentsLabel.SetToolTipText("");
}

// It was in the deleted folder. A folder that cannot be looked at now stays.
bool HasVanished(Files& files, const std::string& path) {
  return ErrorsIgnored([&] { files.IdentityOf(path); }) == error::PathNotFound;
}

void TakeVanishedFoldersOff(MainForm& main) {
  for (int i = 1; i <= FolderSlots; ++i) {
    if (!IsSlotInUse(main.desk, i)) continue;
    const std::string& path = main.desk.DestFolderFiles(i).Path();
    if (!path.starts_with("\\\\") && HasVanished(main.host.files, path)) TakeOffDesktop(main.desk, i);
  }
}

void WarnOfFailure(MainForm& main, const std::string& path) {
  Warn(main, path, "Unable to delete folder.", "Error - Deleting Folder");
}

// The slot's folder is open and then off the Desktop; false where it can no longer be entered. The selection has taken
// it off then.
bool CouldTakeOffSlot(MainForm& main, int slot) {
  Select_a_Folder(main, slot);
  if (main.desk.OpenFolderIndex != slot) return false;
  Remove_Open_Folder(main);
  return true;
}

void DeleteSlot(MainForm& main, int slot, const std::string& path, const FolderIdentity& asked) {
  const int before = main.desk.OpenFolderIndex;
  bool entered = false;
  ErrorsIgnored([&] { entered = CouldTakeOffSlot(main, slot); });
  if (!entered || !DeleteTree(main.host.files, path, asked)) {
    WarnOfFailure(main, path);
    return;
  }
  ErrorsIgnored([&] { Select_a_Folder(main, 0); });
  TakeVanishedFoldersOff(main);
  ErrorsIgnored([&] { Select_a_Folder(main, before); });
}

// Nothing where it cannot be known which folder that is, or what is in it.
struct Asked {
  FolderIdentity Folder;
  std::string Prompt;
};
std::optional<Asked> WhatToAsk(Files& files, const std::string& path) {
  return OrElse(std::optional<Asked>(), [&] { return Asked{files.IdentityOf(path), Prompt(files, path)}; });
}

// While the question was up the program may have ended, and the slot may have been given to another folder.
bool IsStillShown(const MainForm& main, int slot, const std::string& path) {
  return !main.host.toolkit.Ended() && IsSlotInUse(main.desk, slot) && main.desk.DestFolderFiles(slot).Path() == path;
}

// Deliberate: the photos in the Trashcan go when the program ends, and not before.
void AskOfTrashcan(MainForm& main) {
  const std::string path = main.desk.DestFolderFiles(TrashcanSlot).Path();
  if (AsksToEmpty(main) && IsStillShown(main, TrashcanSlot, path)) ShowPresentContents(main.desk, TrashcanSlot);
}

void AskOfFolder(MainForm& main, int slot, const std::string& path) {
  const std::optional<Asked> asked = WhatToAsk(main.host.files, path);
  if (!asked) {
    WarnOfFailure(main, path);
    return;
  }
  if (!AsksToDelete(main, slot, path, asked->Prompt) || !IsStillShown(main, slot, path)) return;
  if (RefusesProtected(main, slot, path)) return;
  ShowPresentContents(main.desk, slot);
  DeleteSlot(main, slot, path, asked->Folder);
}

}  // namespace

void DeleteFolderAsked(MainForm& main, int slot) {
  if (!IsSlotInUse(main.desk, slot)) return;
  const std::string path = main.desk.DestFolderFiles(slot).Path();
  if (RefusesProtected(main, slot, path)) return;
  if (slot == TrashcanSlot) {
    AskOfTrashcan(main);
  } else {
    AskOfFolder(main, slot, path);
  }
}

}  // namespace pixorra
