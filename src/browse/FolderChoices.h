// What becomes of a folder that was chosen, in the browser or by a drop from another program: the film strip, or a
// folder on the Desktop.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

bool AnswersYes(MainForm& main, const std::string& title, const std::string& question);

// Paths are those of Files::FolderPath. The questions and refusals that come before; false where the choice is not to
// be carried out. A folder that is on the Desktop may have been taken off it for the film strip, and the film strip
// been given up for the Desktop.
bool MaySelectFilmStrip(MainForm& main, const std::string& path);
bool MayShowFolder(MainForm& main, const std::string& path);

// Makes the folder the film strip, its photos with no mark. False, after a beep, where it cannot be entered any more.
bool SelectFilmStrip(MainForm& main, const std::string& path);
// Puts the folder on the Desktop and opens it. Returns its slot; 0, after a message, where it is not shown.
int ShowFolderOnDesktop(MainForm& main, const std::string& path);

// All eight slots are taken: a message says so.
bool IsDesktopFull(MainForm& main);

}  // namespace pixorra
