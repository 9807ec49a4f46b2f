// Which volume a path lies on.
#pragma once

#include <string>
#include <vector>

#include "platform/services/Volumes.h"

namespace pixorra {

// The volume that the path lies on, null where it is not mounted.
const PlaceOfVolume* VolumeOf(const std::vector<PlaceOfVolume>& volumes, const std::string& path);
// The folder itself, or one in it at any depth.
bool IsWithin(const std::string& path, const std::string& folder);

}  // namespace pixorra
