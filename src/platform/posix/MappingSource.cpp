#include "platform/posix/MappingSource.h"

#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <utility>

#include "platform/posix/DesktopMountsLook.h"
#include "platform/posix/HostNames.h"
#include "platform/posix/Mounts.h"
#include "platform/posix/PosixVolumes.h"
#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

std::string ShownName(const std::string& mountPoint) {
  return NameForPeople(NameFromHost(std::string_view(mountPoint).substr(mountPoint.rfind('/') + 1)));
}

std::string ShareMountsOf(const Environment& environment) {
  return environment.RuntimeDir.empty() ? std::string() : environment.RuntimeDir + "/gvfs";
}

}  // namespace

MountedMapping::MountedMapping(const Environment& environment)
    : MountedMapping(environment,
                     DesktopMountsLook(ShareMountsOf(environment)).Names(DesktopMountsLook::PatienceAtStart)) {}

MountedMapping::MountedMapping(const Environment& environment, std::vector<std::string> desktopMounts)
    : user_(environment.User),
      shareMounts_(ShareMountsOf(environment)),
      desktopMounts_(std::move(desktopMounts)),
      lettersFile_(environment.ConfigHome + "/pixorra/drives"),
      mountInfo_(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)),
      remembered_(ParseLetters(ReadSmallFile(lettersFile_).value_or(""))) {
  Read();
}

const PathMapping& MountedMapping::Current() {
  if (MountsChanged()) Read();
  return mapping_;
}

void MountedMapping::ReadAgain(const std::vector<std::string>& desktopMounts) {
  desktopMounts_ = desktopMounts;
  Read();
}

bool MountedMapping::MountsChanged() {
  // The kernel reports this once for each change since the last look. Every path asks, so that GLib's comparison of the
  // whole list would cost too much, and its own watch wants a main loop.
  pollfd look{mountInfo_.Get(), POLLPRI, 0};
  return mountInfo_ && poll(&look, 1, 0) > 0 && (look.revents & (POLLERR | POLLPRI)) != 0;
}

void MountedMapping::Read() {
  std::vector<Volume> media;  // without their letters
  std::vector<std::string> keys;
  for (const Mount& mount : AllMounts()) {
    if (!IsUserMedium(mount, user_)) continue;
    keys.push_back(MediumKey(mount));
    media.push_back({0, mount.Point, ShownName(mount.Point)});
  }
  for (const std::string& folder : desktopMounts_) {
    const PlaceOfVolume device = VolumeOfDesktopMount(folder);
    if (device.Kind != VolumeKind::Camera) continue;
    keys.push_back(device.Identity);
    media.push_back({0, shareMounts_ + '/' + folder, device.Label});
  }
  const std::vector<RememberedLetter> before = remembered_;
  const std::vector<char> letters = GiveLetters(keys, remembered_);
  std::vector<Volume> volumes{{'C', "/", "File System"}};
  for (std::size_t i = 0; i < media.size(); ++i)
    if (letters[i] != 0) volumes.push_back({letters[i], media[i].HostRoot, media[i].ShownName});
  mapping_ = PathMapping(std::move(volumes), shareMounts_);
  if (remembered_ == before) return;
  // A letter that cannot be remembered is given anew next time.
  static_cast<void>(ErrorsIgnored([this] {
    if (MakeFolders(lettersFile_.substr(0, lettersFile_.rfind('/'))))
      WriteSmallFile(lettersFile_, LettersText(remembered_));
  }));
}

}  // namespace pixorra
