// Deleting the selected photo, of the film strip or of the open folder.
#pragma once

namespace pixorra {

struct MainForm;

// The command of the menu: nothing where no photo is selected, and a beep during a run of drops.
void DeleteMenuItem_Click(MainForm& main);
// Asks about the selected photo, or about the selected slot's where that photo cannot be shown, and deletes it. A photo
// that cannot be deleted gets a message, and nothing changes.
void ShowDeleteSelectedForm(MainForm& main);

}  // namespace pixorra
