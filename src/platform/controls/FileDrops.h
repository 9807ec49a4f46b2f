// Files and folders that a person drags here from another program.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

class Control;
class Form;

// The control that a drop at this place would go to; null where none takes files, and while the form takes no input.
// Pixels of the form's client area.
Control* TargetOfFiles(Form& form, int x, int y);
// Raises FilesDropped there. False: nobody takes files at this place.
bool UserDroppedFiles(Form& form, int x, int y, const std::vector<std::string>& paths);

}  // namespace pixorra
