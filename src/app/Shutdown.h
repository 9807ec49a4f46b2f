// The end of the main window. Every way of closing it leads here, and none is cancelled.
#pragma once

namespace pixorra {

struct MainForm;

// The film strip and folders are still in place: the saved state needs them so.
void Form_QueryUnload(MainForm& main);
void Form_Unload(MainForm& main);
// The desktop saves its session and may end it: the state is written, and everything goes on. A failure is passed over.
void SaveForSession(MainForm& main);

}  // namespace pixorra
