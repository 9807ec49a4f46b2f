#include "base/VolumePaths.h"

#include <string_view>

#include "base/Routines.h"
#include "platform/runtime/Text.h"

namespace pixorra {

const PlaceOfVolume* VolumeOf(const std::vector<PlaceOfVolume>& volumes, const std::string& path) {
  const PlaceOfVolume* nearest = nullptr;
  for (const PlaceOfVolume& volume : volumes) {
    if (!IsWithin(path, volume.Path)) continue;
    if (nearest == nullptr || volume.Path.size() > nearest->Path.size()) nearest = &volume;
  }
  return nearest;
}

bool IsWithin(const std::string& path, const std::string& folder) {
  const std::string start = StripTrailingBackslash(folder);
  if (!EqualIgnoringCase(std::string_view(path).substr(0, start.size()), start)) return false;
  return path.size() == start.size() || path[start.size()] == '\\';
}

}  // namespace pixorra
