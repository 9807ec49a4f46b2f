// The keyboard of the main window: which key does what.
#pragma once

namespace pixorra {

struct MainForm;

// The main window sees each key before its controls and its menus do; other forms may pass theirs on. `shift` is the
// sum of shift::Shift, shift::Ctrl and shift::Alt. A key that is used becomes 0.
void Form_KeyDown(MainForm& main, int& keyCode, int shift);

}  // namespace pixorra
