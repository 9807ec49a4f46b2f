// Quiet lines that tell a new user what to do first.
#pragma once

namespace pixorra {

struct MainForm;

// One in the film while there is no film strip, one on the Desktop while it shows no folder. Cheap: called at each turn
// of the background loading, which follows all that changes either.
void ShowHints(MainForm& main);

}  // namespace pixorra
