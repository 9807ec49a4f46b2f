// Editing the selected photo in the program that is registered for its type.
#pragma once

namespace pixorra {

struct MainForm;

// Starts the program; the pane follows the file from then on. A failed start shows nothing. A photo in the camera gets
// a message instead, and with no photo selected there is a beep.
void SelectedEditMenuItem_Click(MainForm& main);

}  // namespace pixorra
