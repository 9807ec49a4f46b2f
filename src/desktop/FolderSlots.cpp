#include "desktop/FolderSlots.h"

#include <string>

#include "base/Host.h"
#include "base/Routines.h"
#include "desktop/FolderGeometry.h"
#include "desktop/Trashcan.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "platform/services/Places.h"
#include "window/DesktopState.h"

namespace pixorra {

namespace {

void MoveTo(Control& control, const Spot& place) {
  control.Move(place.Left, place.Top);
}

// The Trashcan is always this one folder, with no setting to move it.
void FindTrashcan(DesktopState& desk, Host& host) {
  FileListBox& list = desk.DestFolderFiles(TrashcanSlot);
  const std::string path = TrashcanFolder(host.places);
  if (ErrorsIgnored([&] { list.SetPath(path); }) == error::None) return;
  ErrorsIgnored([&] { host.files.MakeFolder(path); });
  ErrorsIgnored([&] { list.SetPath(path); });
}

// Which key drops there is to be seen where one drops by hand.
std::string DropKeyHint(int slot) {
  return "Press " + std::to_string(slot) + " to drop the selected photo here";
}

void ArrangeTrashcan(DesktopState& desk, const FolderGrid& grid) {
  const TrashcanPlaces places = PlacesAtTrashcan(grid, desk.TrashcanClosed.Height());
  MoveTo(desk.DestFolder(TrashcanSlot), places.Icon);
  MoveTo(desk.DestPicsCount(TrashcanSlot), places.Count);
  MoveTo(desk.ShowFolder, places.Show);
  MoveTo(desk.HideFolder, places.Hide);
}

void ArrangeSlot(DesktopState& desk, const FolderGrid& grid, int slot) {
  const bool shown = desk.DestFolder(slot).Visible();
  Control* const controls[] = {&desk.DestFolder(slot), &desk.DestPicsCount(slot), &desk.DestFolderName(slot),
                               &desk.DestFolderPreview(slot)};
  for (Control* control : controls) control->SetVisible(false);
  MoveTo(desk.DestFolder(slot), FolderIconPlace(grid, slot));
  MoveTo(desk.DestPicsCount(slot), FolderCountPlace(grid, slot));
  desk.DestFolderName(slot).SetMaxWidth(FolderNameWidth(grid));
  MoveTo(desk.DestFolderName(slot), FolderNamePlace(grid, slot, desk.DestFolderName(slot).Width()));
  MoveTo(desk.DestFolderPreview(slot), FolderPreviewPlace(grid, slot, desk.OpenFolderIndex == slot));
  if (!shown) return;
  // The preview too, whether it was seen before or not.
  for (Control* control : controls) control->SetVisible(true);
}

}  // namespace

FolderGrid PresentGrid(const DesktopState& desk) {
  const ImageBox& pattern = desk.DestFolder(0);
  return {desk.DesktopImage.Bounds(), pattern.Width(), pattern.Height()};
}

bool IsSlotInUse(const DesktopState& desk, int slot) {
  return slot >= 1 && desk.DestFolder.IsLoaded(slot) && desk.DestFolder(slot).Visible();
}

void ShowFolderCount(DesktopState& desk, int slot) {
  desk.DestPicsCount(slot).SetCaption(CountCaption(desk.DestFolderFiles(slot).ListCount()));
}

void RefreshLists(DesktopState& desk, int slot) {
  ErrorsIgnored([&] {
    desk.DestFolderFiles(slot).Refresh();
    desk.DestFileList.RefreshAs(desk.DestFolderFiles(slot));
  });
}

void ShowFolderName(DesktopState& desk, int slot, const std::string& caption) {
  Label& name = desk.DestFolderName(slot);
  name.SetCaption(caption);
  MoveTo(name, FolderNamePlace(PresentGrid(desk), slot, name.Width()));
}

void CreateFolderSlots(DesktopState& desk, Host& host) {
  for (int i = 1; i <= FolderSlots; ++i) {
    desk.DestFolder.Load(i);
    desk.DestPicsCount.Load(i);
    desk.DestFolderName.Load(i);
    desk.DestFolderPreview.Load(i);
    desk.DestFolderFiles.Load(i);
    desk.DestFolder(i).SetToolTipText(DropKeyHint(i));
    desk.DestFolderPreview(i).SetToolTipText(DropKeyHint(i));
  }
  desk.DestFolder.Load(TrashcanSlot);
  desk.DestPicsCount.Load(TrashcanSlot);
  desk.DestFolderFiles.Load(TrashcanSlot);
  desk.DestFolderName.Load(TrashcanSlot);
  FindTrashcan(desk, host);
  desk.DestFolder(TrashcanSlot).SetPicture(desk.TrashcanClosed);
  ShowFolderCount(desk, TrashcanSlot);
  desk.DestFolder(TrashcanSlot).SetVisible(true);
  // Its ground is the Desktop's picture, whatever that is.
  desk.DestPicsCount(TrashcanSlot).SetHalo(true);
  desk.DestPicsCount(TrashcanSlot).SetVisible(true);
  desk.DestFolder(TrashcanSlot).BringToFront();
  desk.DestPicsCount(TrashcanSlot).BringToFront();
  desk.DestFolder(TrashcanSlot).SetToolTipText("Trashcan\n" + DropKeyHint(TrashcanSlot));
  desk.DestFolderName(TrashcanSlot).SetCaption("Trashcan");
  ArrangeFolderSlots(desk);
}

void DestroyFolderSlots(DesktopState& desk) {
  for (int i = 1; i <= TrashcanSlot; ++i) {
    desk.DestFolder.Unload(i);
    desk.DestPicsCount.Unload(i);
    desk.DestFolderName.Unload(i);
    if (i != TrashcanSlot) desk.DestFolderPreview.Unload(i);
    desk.DestFolderFiles.Unload(i);
  }
}

void ArrangeFolderSlots(DesktopState& desk) {
  const FolderGrid grid = PresentGrid(desk);
  for (int i = 1; i <= FolderSlots; ++i) ArrangeSlot(desk, grid, i);
  ArrangeTrashcan(desk, grid);
}

}  // namespace pixorra
