// The saved state file: what is kept of one run for the next.
#pragma once

namespace pixorra {

struct MainForm;

// What a missing or damaged file does not hold stays as it is. Shows the messages of the folders it cannot bring
// back.
void ReadSavedState(MainForm& main);
// Replaces the file as a whole. Raises where it cannot be opened for writing; a later failure leaves the one before.
void WriteSavedState(MainForm& main);

}  // namespace pixorra
