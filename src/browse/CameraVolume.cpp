#include "browse/CameraVolume.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/Routines.h"
#include "base/VolumePaths.h"
#include "browse/TreePlaces.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
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
constexpr const char* PathEntry = "Folder";    // the location, without the root

// What cannot be kept is asked for again some day.
void Keep(MainForm& main, const char* entry, const std::string& text) {
  ErrorsIgnored([&] { main.host.settings.SaveSetting(ApplicationTitle, Section, entry, text); });
}

std::string Kept(MainForm& main, const char* entry) {
  return main.host.settings.GetSetting(ApplicationTitle, Section, entry, "");
}

// The part of the path below a folder that it lies in; empty for the folder itself.
std::string PathBelow(const std::string& path, const std::string& folder) {
  return path.substr(std::min(StripTrailingBackslash(folder).size() + 1, path.size()));
}

// What is to be followed, as its path on the volume; nothing where the location is another one. The settings are
// written at once and the location when the program ends: after a crash it may be that of an earlier root.
std::optional<std::string> RememberedFolder(MainForm& main, const std::string& root) {
  const std::string& location = main.strip.CameraLocation;
  if (IsWithin(location, root)) return PathBelow(location, root);
  const std::string folder = Kept(main, PathEntry);
  const bool sameFolder = folder.empty() ? IsRootPath(location) : UCase(location).ends_with(UCase('\\' + folder));
  return sameFolder ? std::optional(folder) : std::nullopt;
}

}  // namespace

void SetCameraLocation(MainForm& main, const std::string& path) {
  main.strip.CameraLocation = path;
  const std::vector<PlaceOfVolume> volumes = main.host.volumes.List();
  const PlaceOfVolume* volume = VolumeOf(volumes, path);
  Keep(main, VolumeEntry, volume != nullptr ? volume->Identity : std::string());
  Keep(main, RootEntry, volume != nullptr ? volume->Path : std::string());
  Keep(main, PathEntry, volume != nullptr ? PathBelow(path, volume->Path) : std::string());
}

void FollowCameraVolume(MainForm& main) {
  // Brings the drives' letters up to date.
  const std::vector<PlaceOfVolume> volumes = main.host.volumes.List();
  std::string& location = main.strip.CameraLocation;
  const std::string identity = Kept(main, VolumeEntry);
  const std::string root = Kept(main, RootEntry);
  if (identity.empty() || location.empty()) return;
  const std::optional<std::string> folder = RememberedFolder(main, root);
  if (!folder) return;
  const auto isIt = [&](const PlaceOfVolume& volume) { return volume.Identity == identity; };
  auto at = std::ranges::find_if(volumes, [&](const PlaceOfVolume& it) { return isIt(it) && it.Path == root; });
  if (at == volumes.end()) at = std::ranges::find_if(volumes, isIt);
  if (at == volumes.end() || (at->Path == root && IsWithin(location, root))) return;
  location = folder->empty() ? at->Path : JoinPath(at->Path, *folder);
  if (at->Path != root) Keep(main, RootEntry, at->Path);
}

}  // namespace pixorra
