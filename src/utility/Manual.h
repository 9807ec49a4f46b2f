// The user's manual, which is shown by the desktop's web browser.
#pragma once

namespace pixorra {

struct MainForm;

// Opens the manual's first page; a message where it is not installed, or where the desktop has no program for it.
void ManualMenuItem_Click(MainForm& main);

}  // namespace pixorra
