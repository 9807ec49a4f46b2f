// Placing every control for the window's present size.
#pragma once

namespace pixorra {

struct MainForm;

// Does nothing for a minimised window, and for the size of the last layout.
void Window_Layout(MainForm& main);
// What a resize does: the layout waits until sizes have settled.
void Form_Resize(MainForm& main);

}  // namespace pixorra
