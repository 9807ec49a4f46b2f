#include "desktop/FolderRename.h"

#include <string_view>
#include <utility>

#include "base/Routines.h"
#include "base/ShownNames.h"
#include "desktop/FolderSlots.h"
#include "desktop/ProtectedFolders.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr std::string_view refusedCharacters = "\\[]{}\"'<>/,$*";
constexpr int fromIconToBox = 20;  // pixels, from left to left

void Warn(MainForm& main, const std::string& title, const std::string& text) {
  main.host.dialogs.MsgBox(text, BoxIcon::Exclamation, BoxButtons::Ok, title);
}

bool RefusesProtected(MainForm& main, const std::string& path) {
  const Protection protection = ProtectionOf(main.host, path);
  if (protection == Protection::None) return false;
  Warn(main, "WARNING: Can't Rename this folder",
       main.host.files.ShownPath(path) + "\n\n" +
           (protection == Protection::Root
                ? "This folder is a root drive or shared network resource.\nIt cannot be renamed."
                : "It is a protected system folder."));
  return true;
}

void WarnOfName(MainForm& main, const std::string& reason) {
  Warn(main, "WARNING: Unable to rename folder", reason + "\nPlease try renaming the folder again.");
}

// The slot that was being renamed. Before anything is hidden: a box that hides loses the focus, and nothing is to be
// renamed by that.
int CloseBox(DesktopState& desk) {
  const int slot = CLng(Val(desk.FolderRenameBox.Tag()));
  desk.FolderRenameBox.SetTag("");
  desk.FolderRenameBox.SetVisible(false);
  if (IsSlotInUse(desk, slot)) desk.DestFolderName(slot).SetVisible(true);
  return slot;
}

// A name that a person would never find again, or that is no name: the host itself may take it.
bool IsUnusable(const std::string& name) {
  return Trim(name).empty() || name.starts_with('.') || name.find_first_of("\\/") != std::string::npos;
}

// 0, or the number of the error.
int RenameOnDisk(Files& files, const std::string& from, const std::string& to) {
  // The name that it has already: done.
  if (from == to) return error::None;
  return ErrorsIgnored([&] { files.Rename(from, to); });
}

// The path after a rename of the folder `from`, which it is in or is itself; empty for any other path.
std::string Followed(const std::string& path, const std::string& from, const std::string& to) {
  if (path != from && !path.starts_with(from + "\\")) return {};
  return to + path.substr(from.size());
}

void ShowNewPath(MainForm& main, int slot, const std::string& path) {
  DesktopState& desk = main.desk;
  ImageBox& preview = desk.DestFolderPreview(slot);
  if (!preview.Tag().empty()) preview.SetTag(JoinPath(path, FileNameOf(preview.Tag())));
  desk.DestFolderFiles(slot).SetPath(path);
  desk.DestFolderFiles(slot).Refresh();
  ShowFolderCount(desk, slot);
  desk.DestFolderName(slot).SetToolTipText(main.host.files.ShownPath(path));
  if (slot != desk.OpenFolderIndex) return;
  desk.DestFileList.SetPath(path);
  desk.DestContentsLabel.SetToolTipText(desk.DestFolderName(slot).ToolTipText());
  desk.DestLoadedPath.clear();
}

// Other slots that show the folder or one in it, the folders used last, and the memory of the last drop.
void LetOthersFollow(MainForm& main, int renamed, const std::string& from, const std::string& to) {
  for (int i = 1; i <= FolderSlots; ++i) {
    if (i == renamed || !IsSlotInUse(main.desk, i)) continue;
    const std::string path = Followed(main.desk.DestFolderFiles(i).Path(), from, to);
    if (!path.empty()) ErrorsIgnored([&] { ShowNewPath(main, i, path); });
  }
  ComboBox& previous = main.strip.PreviousList;
  for (int i = 0; i < previous.ListCount(); ++i) {
    const std::string path = Followed(previous.List(i), from, to);
    if (path.empty()) continue;
    previous.RemoveItem(i);
    previous.AddItem(path, i);
  }
  for (std::string* known : {&main.drop.LastDropFile, &main.drop.LastDropPhoto}) {
    if (std::string path = Followed(*known, from, to); !path.empty()) *known = std::move(path);
  }
}

void ShowRenamed(MainForm& main, int slot, const std::string& path) {
  DesktopState& desk = main.desk;
  // On the disk it is done, and what follows from that must be shown even if the folder cannot be read.
  ErrorsIgnored([&] { ShowNewPath(main, slot, path); });
  desk.DestFolder(slot).BringToFront();
  desk.DestPicsCount(slot).BringToFront();
  desk.DestFolderName(slot).BringToFront();
  desk.DestFolderPreview(slot).BringToFront();
  const std::string name = ShownFolderName(main.host.files, path);
  ShowFolderName(desk, slot, " " + name + " ");
  if (slot == desk.OpenFolderIndex) desk.DestContentsLabel.SetCaption(name);
}

}  // namespace

bool IsFolderBeingRenamed(const DesktopState& desk) {
  return !desk.FolderRenameBox.Tag().empty();
}

void RenameFolderStart(MainForm& main, int slot) {
  DesktopState& desk = main.desk;
  EndFolderRename(main);
  if (!IsSlotInUse(desk, slot) || slot == TrashcanSlot) return;
  if (RefusesProtected(main, desk.DestFolderFiles(slot).Path())) return;
  desk.FolderBeingRenamed = desk.DestFolderFiles(slot).Path();
  desk.FolderRenameBox.SetTag(TrimmedStr(slot));
  desk.FolderRenameBox.SetVisible(true);
  desk.FolderRenameBox.SetFocus();
}

void FolderRenameBox_GotFocus(MainForm& main) {
  DesktopState& desk = main.desk;
  const int slot = CLng(Val(desk.FolderRenameBox.Tag()));
  if (slot == 0) return;
  TextBox& box = desk.FolderRenameBox;
  box.Move(desk.DestFolder(slot).Left() + fromIconToBox, desk.DestFolderName(slot).Top());
  box.SetText(Trim(desk.DestFolderName(slot).Caption()));
  box.Select(0, static_cast<int>(box.Text().size()));
  desk.DestFolderName(slot).SetVisible(false);
  box.SetVisible(true);
}

void FolderRenameBox_KeyPress(MainForm& main, int& code) {
  if (code == key::Escape) {
    code = 0;
    CloseBox(main.desk);
  }
  if (code == key::Return) {
    code = 0;
    EndFolderRename(main);
  }
  if (code > key::Space && code < 0x80 && refusedCharacters.find(static_cast<char>(code)) != std::string_view::npos) {
    code = 0;
    main.host.dialogs.Beep();
  }
}

void EndFolderRename(MainForm& main) {
  DesktopState& desk = main.desk;
  if (!IsFolderBeingRenamed(desk)) return;
  const std::string text = desk.FolderRenameBox.Text();
  const std::string path = std::exchange(desk.FolderBeingRenamed, {});
  const int slot = CloseBox(desk);
  if (!IsSlotInUse(desk, slot) || desk.DestFolderFiles(slot).Path() != path) return;
  if (text.empty()) {
    WarnOfName(main, "You have left the folder name blank.");
    return;
  }
  // Deliberate: a name that was left as it is renames nothing. It may be the camera's caption in place of a name.
  if (text != Trim(desk.DestFolderName(slot).Caption())) RenameFolderFinish(main, slot, text);
}

void RenameFolderFinish(MainForm& main, int slot, const std::string& name) {
  DesktopState& desk = main.desk;
  if (!IsSlotInUse(desk, slot)) return;
  Files& files = main.host.files;
  const std::string before = desk.DestFolderFiles(slot).Path();
  if (RefusesProtected(main, before)) return;
  const std::string typed = TypedName(files, name);
  const std::string path = ParentPathOf(before) + typed;
  const int failure = IsUnusable(typed) ? error::BadFileName : RenameOnDisk(files, before, path);
  if (failure == error::FileExists) {
    WarnOfName(main, "The new folder name \"" + name + "\" is already being used.");
    return;
  }
  if (failure != error::None) {
    main.host.dialogs.MsgBox(ErrorDescription(failure), BoxIcon::None, BoxButtons::Ok, ApplicationTitle);
    return;
  }
  ShowRenamed(main, slot, path);
  const std::string& shown = desk.DestFolderFiles(slot).Path();
  LetOthersFollow(main, slot, before, shown == before ? path : shown);
}

}  // namespace pixorra
