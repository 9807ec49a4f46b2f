// The open folder: which slot is open and how that looks.
#pragma once

namespace pixorra {

struct MainForm;

// Makes a slot the open one; 0, or a slot that is not in use, opens none.
void Select_a_Folder(MainForm& main, int slot);
// Reads the slot anew, its cached thumbnails with it.
void RefreshFolder(MainForm& main, int slot);

}  // namespace pixorra
