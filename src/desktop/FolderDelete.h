// Deleting a folder of the Desktop from the disk, after a question.
#pragma once

namespace pixorra {

struct MainForm;

// Asks, and deletes the slot's folder with all that is in it. A protected folder gets a message; 0, and a slot that is
// not in use, do nothing. Of the Trashcan only the question is asked: its photos go when the program ends.
void DeleteFolderAsked(MainForm& main, int slot);

}  // namespace pixorra
