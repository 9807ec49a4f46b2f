#include "app/SpokenActions.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/Keys.h"
#include "app/SelectionKeys.h"
#include "desktop/FolderRename.h"
#include "desktop/FolderSlots.h"
#include "drop/DragGestures.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "preview/FullSizePreview.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// An action waits for no drop: one that runs refuses it as it refuses a key.
std::function<void()> Action(MainForm& main, const std::function<void()>& run) {
  return [&main, run] {
    if (main.drop.DropRunning) {
      main.host.dialogs.Beep();
      return;
    }
    EndFolderRename(main);
    run();
  };
}

// The photo is selected first, as the key for it asks. A message may come up in that, and it may have gone since the
// action was offered.
std::function<void()> OnPhoto(MainForm& main, const Control& photo, const std::function<void()>& run) {
  const int slot = photo.Index();
  return Action(main, [&main, slot, path = photo.Tag(), run] {
    FilmStripState& strip = main.strip;
    const auto isThere = [&] { return strip.SrcThumbnail.IsLoaded(slot) && PhotoOf(strip, slot) == path; };
    if (isThere() && SlotSelected(strip) != slot) SelectSlotInStrip(main, slot);
    if (isThere() && SlotSelected(strip) == slot) {
      run();
    } else {
      main.host.dialogs.Beep();
    }
  });
}

struct NamedFolder {
  int Slot = 0;
  std::string Name;
};

// The folders of the Desktop that are in use, and the Trashcan. Those that are called alike, or as the Trashcan is,
// have their number in the name.
std::vector<NamedFolder> Folders(const DesktopState& desk) {
  std::vector<NamedFolder> folders;
  for (int slot = 1; slot < TrashcanSlot; ++slot) {
    if (IsSlotInUse(desk, slot)) folders.push_back({slot, Trim(desk.DestFolderName(slot).Caption())});
  }
  if (IsSlotInUse(desk, TrashcanSlot)) folders.push_back({TrashcanSlot, "Trashcan"});
  std::vector<NamedFolder> named = folders;
  for (NamedFolder& folder : named) {
    const bool alike = std::ranges::any_of(folders, [&folder](const NamedFolder& other) {
      return other.Slot != folder.Slot && EqualIgnoringCase(other.Name, folder.Name);
    });
    if (alike && folder.Slot != TrashcanSlot) folder.Name += ", folder " + std::to_string(folder.Slot);
  }
  return named;
}

std::vector<NamedAction> ActionsOfPhoto(MainForm& main, const Control& photo) {
  std::vector<NamedAction> actions;
  if (photo.Tag().empty()) return actions;
  for (const auto& [slot, name] : Folders(main.desk)) {
    actions.push_back({"Copy to " + name, std::to_string(slot),
                       OnPhoto(main, photo, [&main, at = slot] { DropSelected(main, at); })});
  }
  const bool marked = IsMarked(main.strip, photo.Index());
  actions.push_back(
      {marked ? "Recover" : "Discard", "Ins", OnPhoto(main, photo, [&main] { ToggleMarkOfSelected(main); })});
  return actions;
}

std::vector<NamedAction> ActionsOfCell(MainForm& main, const Control& cell) {
  if (cell.Tag().empty()) return {};
  return {{"View Full Size", "Space", Action(main, [&main, index = cell.Index(), path = cell.Tag()] {
             const bool there = index <= main.desk.DestSlotCount && PhotoOf(main.desk, index) == path;
             if (there) DisplayFullSizePreview(main, path);
           })}};
}

std::vector<NamedAction> ActionsOfFolder(MainForm& main, const Control& folder) {
  DesktopState& desk = main.desk;
  const int slot = folder.Index();
  std::vector<NamedAction> actions;
  if (SlotSelected(main.strip) != 0) {
    actions.push_back({"Copy the selected photo here", std::to_string(slot),
                       Action(main, [&main, slot] { DropSelected(main, slot); })});
  }
  actions.push_back({"Show Menu", "Shift+F10", Action(main, [&desk, slot] {
                       ImageBox& icon = desk.DestFolder(slot);
                       if (!icon.Visible()) return;
                       Raise(icon.On().MouseDown, static_cast<Control&>(icon), MouseArgs{.Button = button::Right});
                     })});
  return actions;
}

// The drag's own beginning says why it cannot be yet.
void CopyAll(MainForm& main, int slot) {
  FilmStripState& strip = main.strip;
  ImageBox& reel = strip.AllButton;
  main.preview.bPicEdited = false;
  if (strip.SrcSlotCount < SlotsWanted(strip)) {
    AllButton_DragOver(main, reel, DragState::Enter);
    return;
  }
  DropOnTarget(main, slot, reel);
}

std::vector<NamedAction> ActionsOfReel(MainForm& main) {
  std::vector<NamedAction> actions;
  for (const auto& [slot, name] : Folders(main.desk)) {
    actions.push_back({"Copy all remaining to " + name, "", Action(main, [&main, at = slot] { CopyAll(main, at); })});
  }
  return actions;
}

}  // namespace

void ConnectSpokenActions(MainForm& main) {
  Connect(main.strip.SrcThumbnail.On().SpokenActions,
          [&main](const Control& photo) { return ActionsOfPhoto(main, photo); });
  Connect(main.strip.AllButton.On().SpokenActions, [&main](const Control&) { return ActionsOfReel(main); });
  Connect(main.desk.DestThumbnail.On().SpokenActions,
          [&main](const Control& cell) { return ActionsOfCell(main, cell); });
  Connect(main.desk.DestFolder.On().SpokenActions,
          [&main](const Control& folder) { return ActionsOfFolder(main, folder); });
}

}  // namespace pixorra
