// The saved state file: what is kept of one run for the next.
#pragma once

namespace pixorra {

struct MainForm;

// A missing or damaged file leaves what it does not tell as it is. Shows the messages of the folders it cannot bring
// back.
void ReadSavedState(MainForm& main);
// Replaces the file. Raises where it cannot be opened; a later failure leaves it cut short.
void WriteSavedState(MainForm& main);

}  // namespace pixorra
