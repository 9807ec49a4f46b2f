// The form that offers three ways to delete photos of the film strip.
#pragma once

namespace pixorra {

struct MainForm;

// Shows it, and then the confirmation of the way that is chosen. Without a film strip a message says so; during a run
// of drops there is a beep.
void DeleteButton_Click(MainForm& main);

}  // namespace pixorra
