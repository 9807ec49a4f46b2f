#include "app/StripMedium.h"

#include <vector>

#include "base/VolumePaths.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Volumes.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Of ThumbsTimer, a second in all. Where all between them are left out, it is the film strip's turn at one look and the
// open folder's at the next, as the number is odd.
constexpr int TurnsBetweenLooks = 49;

void LookAtMedium(MainForm& main, std::uint64_t stamp) {
  FilmStripState& strip = main.strip;
  WatchedMedium& watched = strip.SrcMedium;
  watched.Stamp = stamp;
  const std::vector<PlaceOfVolume> volumes = main.host.volumes.List();
  const PlaceOfVolume* volume = VolumeOf(volumes, strip.SrcFileList.Path());
  const PlaceOfVolume medium = volume != nullptr ? *volume : PlaceOfVolume();
  if (watched.Folder != strip.SrcFileList.Path()) {
    watched = {strip.SrcFileList.Path(), medium.Path, medium.Identity, stamp};
    return;
  }
  // Where nothing is mounted, another volume, or none, is what the folder lies on.
  if (medium.Path != watched.Root) {
    watched.Away = true;
    return;
  }
  if (!watched.Away && medium.Identity == watched.Identity) return;
  watched.Away = false;
  watched.Identity = medium.Identity;
  strip.SrcFileList.Refresh();
  strip.SrcLoadedPath.clear();
}

}  // namespace

bool WatchStripMedium(MainForm& main) {
  FilmStripState& strip = main.strip;
  WatchedMedium& watched = strip.SrcMedium;
  if (++watched.Turns < TurnsBetweenLooks && watched.Folder == strip.SrcFileList.Path()) return false;
  watched.Turns = 0;
  const std::uint64_t stamp = main.host.volumes.Stamp();
  if (stamp == watched.Stamp && watched.Folder == strip.SrcFileList.Path()) return false;
  LookAtMedium(main, stamp);
  return true;
}

int TurnsWithoutLook(const FilmStripState& strip) {
  return TurnsBetweenLooks - 1 - strip.SrcMedium.Turns;
}

}  // namespace pixorra
