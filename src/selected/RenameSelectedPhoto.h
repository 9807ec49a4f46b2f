// Renaming the selected photo.
#pragma once

namespace pixorra {

struct MainForm;

// Asks for a name until one is free, and gives it to the photo's file; strip, open folder, pane, cache and the memory
// of the last drop follow. What the disk refuses gets a message, and nothing changes. Nothing where no photo is
// selected, and a beep during a run of drops.
void RenameMenuItem_Click(MainForm& main);

}  // namespace pixorra
