// What is mounted where, and which of it is a user's own medium.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

struct Mount {
  std::string Point;       // absolute host path
  std::string FileSystem;  // such as "vfat"
  std::string Source;      // such as "/dev/sdb1"
};

// All mounts that there are. Of those over one another at one point only the last counts.
std::vector<Mount> AllMounts();

// Below /media, /run/media/<user> or /mnt, or at /mnt itself: cards, cameras, sticks and disks that came later.
bool IsUserMedium(const Mount& mount, std::string_view user);

// The same for the same medium wherever it is mounted: the file system's own identity where it has one, else its place.
std::string MediumKey(const Mount& mount);

// What its owner calls it: its label or, of a medium without one, its size, such as "32 GB Volume". Empty for what is
// no block device.
std::string MediumLabel(const Mount& mount);
// As the device manager spells labels in the names of its links: "EOS\x20DIGITAL".
std::string LabelOfLink(std::string_view name);
std::string VolumeOfSize(std::uint64_t bytes);

// The medium's identity, label and size together, as cards that one camera has formatted may share any one of them;
// empty where it has no identity. The same in any reader and at any place.
std::string MediumIdentity(const Mount& mount);

}  // namespace pixorra
