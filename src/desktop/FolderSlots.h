// The folder slots of the Desktop: made, placed, filled and freed.
#pragma once

#include <string>

namespace pixorra {

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
// Grid steps in pixels, from the Desktop's present size.
int ColumnStep(const MainForm& main);
int RowStep(const MainForm& main);

}  // namespace pixorra
