// The picture behind the Desktop. It lasts because it is a file, "Background.pic" in the program's folder; without that
// file the window's own picture is shown.
#pragma once

#include <string>

#include "platform/pixels/Picture.h"

namespace pixorra {

struct MainForm;

// Shows the file, where it is there and can be shown.
void LoadBackground(MainForm& main);

// The default cloud scene is in the program's folder.
bool HasCloudScene(MainForm& main);
// The colour near the top left corner of what is shown.
Colour BackgroundColour(MainForm& main);

// A new background is shown and kept, whole and on stable storage; or nothing changes, neither on the Desktop nor on
// the disk, and no message is shown: where the picture cannot be read or shown, and where the disk is full.
void UsePhotoAsBackground(MainForm& main, const std::string& photo);
void UseCloudScene(MainForm& main);
void UseColour(MainForm& main, Colour colour);

// Shows the cloud scene, where it is there, and deletes the file.
void RestoreCloudScene(MainForm& main);

}  // namespace pixorra
