// The menu of what can be done with drops.
#pragma once

namespace pixorra {

struct MainForm;

// It is about to open: what cannot be done now is disabled.
void DropMenu_Click(MainForm& main);

}  // namespace pixorra
