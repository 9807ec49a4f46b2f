#include "browse/TreePlaces.h"

#include <algorithm>

#include "base/Definition.h"
#include "base/Routines.h"
#include "base/ShownNames.h"
#include "base/VolumePaths.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"
#include "platform/services/Places.h"

namespace pixorra {

namespace {

constexpr int PlaceIconSize = 16;  // pixels

Picture Icon(Host& host, const std::string& name) {
  return Drawing(host, "desktop:" + name, PlaceIconSize, PlaceIconSize);
}

TreeEntry Entry(const std::string& key, const std::string& text, const Picture& icon) {
  return {key, text, true, icon, {}, {}};
}

const char* IconOfVolume(const PlaceOfVolume& volume) {
  switch (volume.Kind) {
    case VolumeKind::FileSystem:
      return "drive-harddisk";
    case VolumeKind::Removable:
      return "media-flash";
    case VolumeKind::Camera:
      return "camera-photo";
    case VolumeKind::Share:
      break;
  }
  return "folder-remote";
}

bool Holds(const std::vector<TreeEntry>& entries, const std::string& key) {
  return std::ranges::any_of(entries, [&](const TreeEntry& entry) { return entry.Key == key; });
}

std::vector<TreeEntry> Entries(Host& host, const std::vector<PlaceOfVolume>& volumes, bool shares) {
  std::vector<TreeEntry> entries;
  for (const PlaceOfVolume& volume : volumes) {
    if ((volume.Kind == VolumeKind::Share) != shares) continue;
    const std::string key = KeyOf("volume", volume.Path);
    // The same share may be mounted twice.
    if (!Holds(entries, key)) entries.push_back(Entry(key, volume.Label, Icon(host, IconOfVolume(volume))));
  }
  return entries;
}

void AddPlace(Host& host, std::vector<TreeEntry>& entries, const std::string& path, const std::string& label,
              const char* icon) {
  const std::string key = KeyOf("place " + path, path);
  if (Holds(entries, key)) return;
  entries.push_back(Entry(key, label.empty() ? ShownFolderName(host.files, path) : label, Icon(host, icon)));
}

// Names that hold only what people read as it is written need no look into the mapping of paths: ten thousand of them
// are spelled in no time.
bool NeedsSpelling(const std::string& name) {
  return std::ranges::any_of(name, [](char byte) {
    const auto lead = static_cast<unsigned char>(byte);
    return lead == 0xEE || lead == 0xEF;  // of private-use characters
  });
}

}  // namespace

std::string KeyOf(const std::string& place, const std::string& path) {
  // The first bar ends the place. A path may hold bars, and never a slash.
  std::string start = place;
  std::ranges::replace(start, '|', '/');
  return start + '|' + path;
}

std::string PathOfKey(const std::string& key) {
  return key.substr(key.find('|') + 1);
}

std::vector<TreeEntry> TopEntries(Host& host, const std::vector<PlaceOfVolume>& volumes) {
  std::vector<TreeEntry> entries;
  const std::string home = host.places.HomeFolder();
  if (!home.empty()) AddPlace(host, entries, home, "Home", "user-home");
  for (const std::string& folder : host.places.UserFolders()) {
    const bool desktop = folder == host.places.SpecialFolder(0);
    AddPlace(host, entries, folder, {}, desktop ? "user-desktop" : "folder");
  }
  for (const Places::Bookmark& bookmark : host.places.Bookmarks()) {
    if (VolumeOf(volumes, bookmark.Path) != nullptr)
      AddPlace(host, entries, bookmark.Path, bookmark.Label, "user-bookmarks");
  }
  entries.push_back(Entry(ComputerKey, "Computer", Icon(host, "computer")));
  entries.push_back(Entry(NetworkKey, "Network", Icon(host, "network-workgroup")));
  entries.back().HasChildren = !ShareEntries(host, volumes).empty();
  return entries;
}

std::vector<TreeEntry> VolumeEntries(Host& host, const std::vector<PlaceOfVolume>& volumes) {
  return Entries(host, volumes, false);
}

std::vector<TreeEntry> ShareEntries(Host& host, const std::vector<PlaceOfVolume>& volumes) {
  return Entries(host, volumes, true);
}

TreeEntry FolderEntry(Host& host, const std::string& parentKey, const std::string& name) {
  // A key ends with the path, so that one text makes both.
  return {JoinPath(parentKey, name), ShownNameIn(host, PathOfKey(parentKey), name), true, {}, {}, {}};
}

std::string ShownNameIn(Host& host, const std::string& folder, const std::string& name) {
  return NeedsSpelling(name) ? ShownFileName(host.files, JoinPath(folder, name)) : name;
}

}  // namespace pixorra
