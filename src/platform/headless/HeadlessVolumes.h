// Volumes that tests put in and take out.
#pragma once

#include <set>
#include <string>
#include <utility>

#include "platform/services/Volumes.h"

namespace pixorra {

class HeadlessVolumes : public Volumes {
 public:
  std::vector<PlaceOfVolume> List() override { return volumes_; }
  bool IsMountOfDesktop(const std::string& path) override { return DesktopMounts.contains(path); }
  std::uint64_t Stamp() override { return stamp_; }

  void Set(std::vector<PlaceOfVolume> volumes) {
    volumes_ = std::move(volumes);
    ++stamp_;
  }

  std::set<std::string> DesktopMounts;

 private:
  std::vector<PlaceOfVolume> volumes_{{"File System", VolumeKind::FileSystem, "C:\\"}};
  std::uint64_t stamp_ = 1;
};

}  // namespace pixorra
