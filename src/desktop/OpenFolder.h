// The open folder: which slot is open and how that looks.
#pragma once

namespace pixorra {

struct MainForm;

// Makes a slot the open one; 0, or a slot that is not in use, opens none.
void Select_a_Folder(MainForm& main, int slot);
// Opens the slot, reads its list anew and deletes its cached thumbnails.
void RefreshFolder(MainForm& main, int slot);

}  // namespace pixorra
