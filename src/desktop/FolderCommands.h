// What a click on a folder, the Desktop and their menus does.
#pragma once

namespace pixorra {

struct MainForm;

// Opens the slot, or closes it where it is the open one.
void DestFolder_Click(MainForm& main, int slot);
// The right button opens the slot's pop-up menu.
void DestFolder_MouseDown(MainForm& main, int slot, int mouseButton);
void HideFolder_Click(MainForm& main);
void HideFolderPopupItem_Click(MainForm& main);
// The menu is about to open: its items say what they would do.
void OpenFolderMenu_Click(MainForm& main);

}  // namespace pixorra
