// The choice of the picture behind the Desktop.
#pragma once

namespace pixorra {

struct MainForm;

// Returns when the dialog has been closed. What is chosen in it holds at once.
void ShowChangeBackground(MainForm& main);

}  // namespace pixorra
