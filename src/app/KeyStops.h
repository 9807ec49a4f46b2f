// The way of the focus through the main window, and what keys do to the control that has it: what the mouse does with a
// click can be done by key.
#pragma once

namespace pixorra {

struct MainForm;

// Tab goes from control to control, Return presses the one that has the focus, Shift+F10 brings up the menu of a folder
// or of the print button, and the paging keys scroll the film strip or, while a photo there is selected, the open
// folder. False for other keys.
bool UseKeyOnFocus(MainForm& main, int keyCode, int shift);

}  // namespace pixorra
