// The camera's location, remembered by the volume that it is on, so that a card is found again in another reader and
// under another mount point.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// The location becomes the camera's, and its volume is remembered.
void SetCameraLocation(MainForm& main, const std::string& path);
// Where the remembered volume is mounted elsewhere now, CameraLocation follows it. Looks at no folder.
void FollowCameraVolume(MainForm& main);

}  // namespace pixorra
