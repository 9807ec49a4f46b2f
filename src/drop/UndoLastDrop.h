// Taking the last drop, or the last paste, back.
#pragma once

namespace pixorra {

struct MainForm;

// Deletes the file that was made, and nothing else, and shows the folder and the film strip as they were before. A file
// that cannot be deleted, or that is another one by now, stays, after a message; the rest is done all the same. Beeps
// where there is nothing to undo.
void UndoLastDrop(MainForm& main);
// The pointer shows whether there is anything to undo.
void UndoButton_MouseMove(MainForm& main);

}  // namespace pixorra
