// The folder slots of the Desktop: made, placed, filled and freed.
#pragma once

#include <string>

namespace pixorra {

struct FolderGrid;
struct MainForm;

void CreateFolderSlots(MainForm& main);
void DestroyFolderSlots(MainForm& main);
void ArrangeFolderSlots(MainForm& main);
// Puts a folder on the Desktop and tells its slot; 0 where none was filled.
int Display_a_New_Folder(MainForm& main, const std::string& path);
// Takes the open folder off the Desktop. No file is touched.
void Remove_Open_Folder(MainForm& main);
// Writes the count caption of a slot from its list.
void ShowFolderCount(MainForm& main, int slot);
// A folder of the Desktop is shown in that slot, or the slot is the Trashcan's.
bool IsSlotInUse(const MainForm& main, int slot);
// Writes the name of slots 1 to 8, centred below the icon.
void ShowFolderName(MainForm& main, int slot, const std::string& caption);

// The grid that the slots stand in, from the Desktop's present size; nothing is stored of it.
FolderGrid PresentGrid(const MainForm& main);
// Grid steps in pixels.
int ColumnStep(const MainForm& main);
int RowStep(const MainForm& main);

}  // namespace pixorra
