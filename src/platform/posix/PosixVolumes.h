// Volumes by the kernel's list of mounts, and by the folder in which the desktop mounts shares and cameras.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/posix/DesktopMountsLook.h"
#include "platform/posix/Environment.h"
#include "platform/posix/MappingSource.h"
#include "platform/posix/UniqueFd.h"
#include "platform/services/Volumes.h"

namespace pixorra {

class PosixVolumes : public Volumes {
 public:
  // Where the desktop's folder is a mount, each look at it takes a thread's time, and nothing says that it has changed:
  // Stamp looks at it no more often than this. List always does.
  static constexpr std::chrono::milliseconds PauseOfLooks{4000};

  PosixVolumes(const Environment& environment, std::shared_ptr<MappingSource> mapping,
               std::chrono::milliseconds pause = PauseOfLooks);
  std::vector<PlaceOfVolume> List() override;
  bool IsMountOfDesktop(const std::string& path) override;
  std::uint64_t Stamp() override;

 private:
  void LookAtDesktopMounts();

  std::string desktopMounts_;  // host path, empty for none
  std::shared_ptr<MappingSource> mapping_;
  DesktopMountsLook look_;
  UniqueFd mountInfo_;
  std::vector<std::string> seen_;  // what was mounted there at the last look
  std::chrono::milliseconds pause_;
  std::chrono::steady_clock::time_point lookedAt_;
  std::uint64_t stamp_ = 1;
};

// The volume that the desktop's virtual file system shows as this folder, such as "mtp:host=Maker_Phone" or
// "smb-share:server=nas,share=photos"; without its path. No label where it is of another kind.
PlaceOfVolume VolumeOfDesktopMount(const std::string& folder);

}  // namespace pixorra
