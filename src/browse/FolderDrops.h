// Folders dropped from the file manager.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

struct MainForm;

// Paths as the host spells them. Files among them are passed over. The first folder becomes the film strip, after the
// browser's own questions.
void DropOnFilmStrip(MainForm& main, const std::vector<std::string>& paths);
// Each folder is shown on the Desktop, one after the other, for as long as a slot is free.
void DropOnDesktop(MainForm& main, const std::vector<std::string>& paths);

}  // namespace pixorra
