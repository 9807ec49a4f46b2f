// The folder slots of the Desktop: made, placed, captioned and freed.
#pragma once

#include <string>

namespace pixorra {

struct DesktopState;
struct FolderGrid;
struct Host;

// Makes the slots 1 to 8, hidden, and the Trashcan's with its folder. Without that folder it stays empty.
void CreateFolderSlots(DesktopState& desk, Host& host);
void DestroyFolderSlots(DesktopState& desk);
// Places the slots for the Desktop's present size.
void ArrangeFolderSlots(DesktopState& desk);
// Writes the count caption of a slot from its list.
void ShowFolderCount(DesktopState& desk, int slot);
// A folder of the Desktop is shown in that slot, or the slot is the Trashcan's.
bool IsSlotInUse(const DesktopState& desk, int slot);
// Lists the folder of that slot anew, and the open folder as it. What cannot be read stays as it is.
void RefreshLists(DesktopState& desk, int slot);
// Writes the name of slots 1 to 8, centred below the icon.
void ShowFolderName(DesktopState& desk, int slot, const std::string& caption);

// The grid that the slots lie in, from the Desktop's present size; nothing is stored of it.
FolderGrid PresentGrid(const DesktopState& desk);

}  // namespace pixorra
