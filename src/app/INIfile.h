// The saved state file: what is kept of one run for the next.
#pragma once

namespace pixorra {

struct MainForm;

// What a missing or damaged file does not hold stays as it is. Shows the messages of the folders it cannot bring
// back.
void ReadSavedState(MainForm& main);
// Replaces the file as a whole; a link stays and what it leads to is replaced. One that is there and could not be read
// is kept under another name beside it. Raises where the file cannot be opened for writing, and where one cannot be
// kept that should be; a later failure leaves the one before.
void WriteSavedState(MainForm& main);

}  // namespace pixorra
