// The places where a person's folders begin: disks, cards, cameras and network shares.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixorra {

enum class VolumeKind { FileSystem, Removable, Camera, Share };

struct PlaceOfVolume {
  std::string Label;  // the name that its owner knows it by
  VolumeKind Kind = VolumeKind::FileSystem;
  std::string Path;  // the program's path of its root, such as "D:\" or "\\nas\photos"
  // The same for the same medium or device wherever it is mounted, and no other's; empty where the host cannot say.
  std::string Identity{};
  bool operator==(const PlaceOfVolume&) const = default;
};

class Volumes {
 public:
  virtual ~Volumes() = default;
  // Those that are there now: the file system first, then as they came. No folder of theirs is looked at.
  virtual std::vector<PlaceOfVolume> List() = 0;
  // The path is where something begins that the desktop has mounted, listed or not, or a store of a camera or phone, or
  // the folder that holds such mounts. By its names alone, in the disk's own case: nothing is looked at.
  virtual bool IsMountOfDesktop(const std::string& path) = 0;
  // A number that is another one after each change of the list. Cheap enough to be asked for on a timer.
  virtual std::uint64_t Stamp() = 0;
};

}  // namespace pixorra
