#include "selected/RenameSelectedPhoto.h"

#include <optional>
#include <string>

#include "base/Routines.h"
#include "base/ShownNames.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolderView.h"
#include "filmstrip/Listing.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewPane.h"
#include "selected/RenamePreviewPicForm.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// The path as the disk spells its name; as it is where nothing there has the name, in whatever letter case.
std::string AsOnDisk(Files& files, const std::string& path) {
  const std::string folder = ParentPathOf(path);
  const std::string name = FileNameOf(path);
  std::string found = name;
  for (const std::string& other :
       files.Names(folder, "*", attribute::Hidden | attribute::System | attribute::Directory)) {
    if (other == name) return path;
    if (EqualIgnoringCase(other, name)) found = other;
  }
  return JoinPath(folder, found);
}

// A file of another letter case, or a folder, may have taken the photo's place, and a photo that is write-protected
// keeps its name, also where the host would change it.
void RenameFile(Files& files, const std::string& from, const std::string& to) {
  if (!files.FileExists(from) || AsOnDisk(files, from) != from) throw RuntimeError(error::FileNotFound);
  const std::optional<int> attributes = files.Attributes(from);
  if (attributes && (*attributes & attribute::ReadOnly) != 0 && !files.IsLink(from))
    throw RuntimeError(error::PathAccess);
  files.Rename(from, to);
}

int TryToRename(Files& files, const std::string& from, const std::string& to) {
  if (files.LookAtName(to) == NameState::Taken) return error::FileExists;
  return ErrorsIgnored([&] { RenameFile(files, from, to); });
}

void ShowFailure(MainForm& main, const std::string& path, int failure) {
  main.host.dialogs.MsgBox(main.host.files.ShownPath(path) + "\n\n" + ErrorDescription(failure), BoxIcon::Critical,
                           BoxButtons::Ok, "Unable to rename Selected Photo");
}

// Returns the path that the file has then; empty where it keeps its own.
std::string GiveNewName(MainForm& main, const std::string& photo) {
  Files& files = main.host.files;
  for (;;) {
    const std::string path = AskNewPicName(main);
    // While it was asked another photo may have been selected, or none.
    if (path.empty() || main.host.toolkit.Ended() || SelectedPhoto(main.preview) != photo) return {};
    const int failure = TryToRename(files, photo, path);
    if (failure == error::None) return path;
    if (failure == error::FileExists) {
      main.host.dialogs.MsgBox("Name is already in use.", BoxIcon::Exclamation, BoxButtons::Ok,
                               ShownFileName(files, AsOnDisk(files, path)));
    } else {
      ShowFailure(main, photo, failure);
      // Another name may do.
      if (failure != error::BadFileName) return {};
    }
    if (main.host.toolkit.Ended() || SelectedPhoto(main.preview) != photo) return {};
  }
}

struct Renamed {
  std::string From;
  std::string To;
  std::string Folder;  // of both, without a final backslash
};

void ShowName(MainForm& main, Label& name, const std::string& path) {
  name.SetCaption(ShownBaseName(main.host.files, path));
  name.SetToolTipText(ShownFileName(main.host.files, path));
}

void FollowInStrip(MainForm& main, const Renamed& photo) {
  FilmStripState& strip = main.strip;
  if (photo.Folder != StripTrailingBackslash(strip.SrcFileList.Path())) return;
  if (const int slot = SlotOf(strip, photo.From); slot != 0) {
    SetSrcSlotPath(strip, slot, photo.To);
    ShowName(main, strip.SrcThumbName(slot), photo.To);
  }
  // Not to be loaded once more under the name that it had.
  strip.SrcFileList.Refresh();
}

void FollowOnDesktop(MainForm& main, const Renamed& photo) {
  DesktopState& desk = main.desk;
  const auto shows = [&](const FileListBox& list) { return photo.Folder == StripTrailingBackslash(list.Path()); };
  for (int i = 1; i <= TrashcanSlot; ++i) {
    if (IsSlotInUse(desk, i) && shows(desk.DestFolderFiles(i))) desk.DestFolderFiles(i).Refresh();
  }
  if (const int cell = CellOf(desk, photo.From); cell != 0) {
    SetDestCellPath(desk, cell, photo.To);
    ShowName(main, desk.DestThumbName(cell), photo.To);
  }
  if (desk.OpenFolderIndex == 0 || !shows(desk.DestFileList)) return;
  desk.DestFileList.Refresh();
  Redisplay_DestThumbnails(main);
}

void Follow(std::string& path, const Renamed& photo) {
  if (path == photo.From) path = photo.To;
}

}  // namespace

void RenameMenuItem_Click(MainForm& main) {
  const std::string from = SelectedPhoto(main.preview);
  if (from.empty()) return;
  if (main.drop.DropAllRunning) {
    main.host.dialogs.Beep();
    return;
  }
  const std::string to = GiveNewName(main, from);
  if (to.empty()) return;
  const Renamed photo{from, to, StripTrailingBackslash(ParentPathOf(from))};
  QuickThumbsOf(main).RenameQuickThumb(from, to);
  ErrorsIgnored([&] { main.host.files.FlushFolder(photo.Folder); });
  // On the disk it is done: what follows from that must be shown, whatever a step raises.
  ErrorsIgnored([&] { FollowInStrip(main, photo); });
  ErrorsIgnored([&] { FollowOnDesktop(main, photo); });
  for (std::string* path : {&main.drop.LastDropFile, &main.drop.LastDropPhoto}) Follow(*path, photo);
  PaintPicPreview(main, to);
  if (main.preview.sFullSizeFile == from) DisplayFullSizePreview(main, to);
}

}  // namespace pixorra
