// The box over the preview pane in which the selected photo gets another name.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// The full path with the name that was typed, the photo's extension added; empty where none was, or the form was closed
// without Enter. Asks anew, after a message, for a name that no file may have.
std::string AskNewPicName(MainForm& main);

}  // namespace pixorra
