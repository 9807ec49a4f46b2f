// What screen readers offer to do with a photo, a folder and the strip as a whole: what is done by dragging otherwise.
#pragma once

namespace pixorra {

struct MainForm;

void ConnectSpokenActions(MainForm& main);

}  // namespace pixorra
