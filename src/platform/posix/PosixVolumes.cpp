#include "platform/posix/PosixVolumes.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <poll.h>
#include <string_view>

#include "platform/posix/HostNames.h"
#include "platform/posix/Mounts.h"
#include "platform/posix/ShareMounts.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr const char* mountInfoFile = "/proc/self/mountinfo";

bool IsOfNetwork(std::string_view fileSystem) {
  constexpr std::array network = {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs", "davfs", "fuse.davfs2", "9p"};
  return std::find(network.begin(), network.end(), fileSystem) != network.end();
}

// What is mounted there, if the volume's root is a mount.
const Mount* MountAt(const std::string& point, const std::vector<Mount>& mounts) {
  const auto found = std::ranges::find_if(mounts, [&](const Mount& mount) { return mount.Point == point; });
  return found != mounts.end() ? &*found : nullptr;
}

PlaceOfVolume PlaceOf(const Volume& volume, const std::vector<Mount>& mounts) {
  PlaceOfVolume place{volume.ShownName, VolumeKind::Removable, {volume.Letter, ':', '\\'}};
  const Mount* mount = MountAt(volume.HostRoot, mounts);
  if (volume.HostRoot == "/") {
    place.Kind = VolumeKind::FileSystem;
  } else if (mount != nullptr && IsOfNetwork(mount->FileSystem)) {
    place.Kind = VolumeKind::Share;
  } else if (mount != nullptr) {
    place.Identity = MediumIdentity(*mount);
    if (const std::string label = MediumLabel(*mount); !label.empty()) place.Label = NameForPeople(NameFromHost(label));
  }
  return place;
}

// The name of a device: its identity for the desktop, percent signs undone, low lines for blanks.
std::string DeviceName(std::string_view text) {
  std::string name = PercentDecoded(text);
  std::ranges::replace(name, '_', ' ');
  std::erase(name, '\0');
  return NameForPeople(NameFromHost(name));
}

}  // namespace

PlaceOfVolume VolumeOfDesktopMount(const std::string& folder) {
  if (const std::optional<Share> share = ShareOfMount(folder))
    return {NameForPeople(NameFromHost(share->Name)) + " on " + NameForPeople(NameFromHost(share->Server)),
            VolumeKind::Share,
            {}};
  for (const std::string_view device : {"gphoto2:host=", "mtp:host="}) {
    if (!folder.starts_with(device)) continue;
    const std::string_view host = std::string_view(folder).substr(device.size());
    // What follows the host is a storage's name, which may change with the language of the device.
    const std::string_view named = host.substr(0, host.find(','));
    return {DeviceName(named), VolumeKind::Camera, {}, "device:" + std::string(device) + std::string(named)};
  }
  return {};
}

PosixVolumes::PosixVolumes(const Environment& environment, std::shared_ptr<MappingSource> mapping,
                           std::chrono::milliseconds pause)
    : desktopMounts_(environment.RuntimeDir.empty() ? std::string() : environment.RuntimeDir + "/gvfs"),
      mapping_(std::move(mapping)),
      look_(desktopMounts_, mapping_->DesktopMounts()),
      mountInfo_(open(mountInfoFile, O_RDONLY | O_CLOEXEC)),
      seen_(mapping_->DesktopMounts()),
      pause_(pause),
      lookedAt_(std::chrono::steady_clock::now() - pause) {}

void PosixVolumes::LookAtDesktopMounts() {
  std::vector<std::string> names = look_.Names();
  lookedAt_ = std::chrono::steady_clock::now();
  if (names == seen_) return;
  seen_ = std::move(names);
  // A device that has come or gone is a drive that has.
  mapping_->ReadAgain(seen_);
  ++stamp_;
}

std::vector<PlaceOfVolume> PosixVolumes::List() {
  LookAtDesktopMounts();
  const PathMapping& mapping = mapping_->Current();
  const std::vector<Mount> mounts = AllMounts();
  std::vector<PlaceOfVolume> volumes;
  for (const Volume& volume : mapping.Volumes()) {
    const bool ofDesktop = !desktopMounts_.empty() && volume.HostRoot.starts_with(desktopMounts_ + '/');
    if (!ofDesktop) volumes.push_back(PlaceOf(volume, mounts));
  }
  for (const std::string& folder : seen_) {
    PlaceOfVolume volume = VolumeOfDesktopMount(folder);
    const std::optional<std::string> path = mapping.ToProgram(desktopMounts_ + '/' + folder);
    if (volume.Label.empty() || !path) continue;
    volume.Path = *path;
    volumes.push_back(std::move(volume));
  }
  return volumes;
}

bool PosixVolumes::IsMountOfDesktop(const std::string& path) {
  if (desktopMounts_.empty()) return false;
  const std::string host = OrElse(std::string(), [&] { return mapping_->Current().ToHost(path).Text(); });
  if (host == desktopMounts_) return true;
  if (!host.starts_with(desktopMounts_ + '/')) return false;
  const std::string below = host.substr(desktopMounts_.size() + 1);
  const std::size_t end = below.find('/');
  if (end == std::string::npos) return true;
  const bool device = below.starts_with("mtp:") || below.starts_with("gphoto2:");
  return device && below.find('/', end + 1) == std::string::npos;
}

std::uint64_t PosixVolumes::Stamp() {
  // The kernel raises this once for each change since the last look.
  pollfd look{mountInfo_.Get(), POLLPRI, 0};
  const bool changed = mountInfo_ && poll(&look, 1, 0) > 0 && (look.revents & (POLLERR | POLLPRI)) != 0;
  if (changed) ++stamp_;
  const bool lately = std::chrono::steady_clock::now() - lookedAt_ < pause_;
  if (changed || !lately || !look_.NeedsThread()) LookAtDesktopMounts();
  return stamp_;
}

}  // namespace pixorra
