#include "browse/CameraVolume.h"

#include <algorithm>
#include <vector>

#include "base/Routines.h"
#include "browse/TreePlaces.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Settings.h"
#include "platform/services/Volumes.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr const char* Section = "Camera";
constexpr const char* VolumeEntry = "Volume";  // the volume's identity
constexpr const char* RootEntry = "Root";      // where it was mounted when it was seen last

// What cannot be kept is asked for again some day.
void Keep(MainForm& main, const char* entry, const std::string& text) {
  ErrorsIgnored([&] { main.host.settings.SaveSetting(ApplicationTitle, Section, entry, text); });
}

std::string Kept(MainForm& main, const char* entry) {
  return main.host.settings.GetSetting(ApplicationTitle, Section, entry, "");
}

}  // namespace

void SetCameraLocation(MainForm& main, const std::string& path) {
  main.strip.CameraLocation = path;
  const std::vector<PlaceOfVolume> volumes = main.host.volumes.List();
  const PlaceOfVolume* volume = VolumeOf(volumes, path);
  Keep(main, VolumeEntry, volume != nullptr ? volume->Identity : std::string());
  Keep(main, RootEntry, volume != nullptr ? volume->Path : std::string());
}

void FollowCameraVolume(MainForm& main) {
  // Brings the drives' letters up to date.
  static_cast<void>(main.host.volumes.Stamp());
  std::string& location = main.strip.CameraLocation;
  const std::string identity = Kept(main, VolumeEntry);
  const std::string root = Kept(main, RootEntry);
  if (identity.empty() || location.empty() || !IsWithin(location, root)) return;
  const std::vector<PlaceOfVolume> volumes = main.host.volumes.List();
  const auto isIt = [&](const PlaceOfVolume& volume) { return volume.Identity == identity; };
  if (std::ranges::any_of(volumes, [&](const PlaceOfVolume& at) { return isIt(at) && at.Path == root; })) return;
  const auto elsewhere = std::ranges::find_if(volumes, isIt);
  if (elsewhere == volumes.end()) return;
  const std::string rest = location.substr(std::min(StripTrailingBackslash(root).size() + 1, location.size()));
  location = rest.empty() ? elsewhere->Path : JoinPath(elsewhere->Path, rest);
  Keep(main, RootEntry, elsewhere->Path);
}

}  // namespace pixorra
