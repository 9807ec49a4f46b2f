// The life of the main window: connecting its events, start-up and shutdown.
#pragma once

namespace pixorra {

struct MainForm;

// Connects every event of the window and its controls to its operation. Once, before the window is loaded.
void ConnectEvents(MainForm& main);
// The whole start-up, ending with the window on the screen.
void StartUp(MainForm& main);

}  // namespace pixorra
