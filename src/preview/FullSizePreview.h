// A photo at full size, in a window of its own.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// Shows the photo at the full path, in the window that is up or in a new one. One that cannot be loaded gives a beep,
// and one that is too small for a window is not shown. With an empty path the window is made ready, and no more.
void DisplayFullSizePreview(MainForm& main, const std::string& file);
// Another photo has been selected, the one that is shown: those beside it are got ready.
void FollowSelectionAtFullSize(MainForm& main);
// Closes the window, if it is up.
void CloseFullSizePreview(MainForm& main);

}  // namespace pixorra
