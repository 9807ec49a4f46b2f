// The saved state file: what is kept of one run for the next.
#pragma once

namespace pixorra {

struct MainForm;

// What a missing or damaged file does not hold stays as it is. Shows the messages of the folders it cannot bring
// back.
void ReadSavedState(MainForm& main);
// Replaces the file as a whole, as ReplaceStateFile does; a link stays and what it leads to is replaced. One that is
// there and that this run has neither read nor written is kept under another name beside it. Raises as ReplaceStateFile
// does, PathNotFound for a link that leads nowhere.
void WriteSavedState(MainForm& main);

}  // namespace pixorra
