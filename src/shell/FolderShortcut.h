// The command "SlideShow by Pixorra" in the menu of every folder in the file manager: it starts the companion on that
// folder, with this program running or not.
#pragma once

namespace pixorra {

class Registry;
struct Host;
struct MainForm;

bool HasFolderShortcut(Registry& registry);
// Neither tells whether it has succeeded.
void AddFolderShortcut(Host& host);
void RemoveFolderShortcut(Registry& registry);

// Adds it the first time that the program is started, and never again: what a user has removed stays removed, also when
// a package has brought it for everybody since. Where the host cannot keep a note of that it is not added.
void AddFolderShortcutAtFirstStart(Host& host);

// A person has ticked or cleared the box: the command is added or removed at once.
void AddFolderShortcutCheckbox_MouseUp(MainForm& main);

}  // namespace pixorra
