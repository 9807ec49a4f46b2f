// What a click on a folder, the Desktop and their menus does.
#pragma once

namespace pixorra {

struct MainForm;

void DestFolder_Click(MainForm& main, int slot);
// The right button opens the slot's pop-up menu.
void DestFolder_MouseDown(MainForm& main, int slot, int mouseButton);
void HideFolder_Click(MainForm& main);
void HideFolderPopupItem_Click(MainForm& main);

}  // namespace pixorra
