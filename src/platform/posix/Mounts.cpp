#include "platform/posix/Mounts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <dirent.h>
#include <gio/gunixmounts.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unordered_map>
#include <utility>

#include "platform/posix/SmallFiles.h"

namespace pixorra {

namespace {

constexpr const char* identitiesFolder = "/dev/disk/by-uuid";
constexpr const char* labelsFolder = "/dev/disk/by-label";

bool IsBelow(std::string_view path, std::string_view folder) {
  return path.size() > folder.size() + 1 && path.starts_with(folder) && path[folder.size()] == '/';
}

}  // namespace

std::vector<Mount> AllMounts() {
  std::vector<Mount> mounts;
  std::unordered_map<std::string, std::size_t> places;  // in `mounts`, by the point
  GList* all = g_unix_mounts_get(nullptr);
  for (GList* entry = all; entry != nullptr; entry = entry->next) {
    auto* found = static_cast<GUnixMountEntry*>(entry->data);
    const char* source = g_unix_mount_get_device_path(found);
    Mount mount{g_unix_mount_get_mount_path(found), g_unix_mount_get_fs_type(found), source == nullptr ? "" : source};
    const auto [place, isNew] = places.try_emplace(mount.Point, mounts.size());
    if (isNew) {
      mounts.push_back(std::move(mount));
    } else {
      mounts[place->second] = std::move(mount);
    }
    g_unix_mount_free(found);
  }
  g_list_free(all);
  return mounts;
}

bool IsUserMedium(const Mount& mount, std::string_view user) {
  // A place that waits for its medium is no mount yet.
  if (mount.FileSystem == "autofs") return false;
  if (mount.Point == "/mnt" || IsBelow(mount.Point, "/mnt") || IsBelow(mount.Point, "/media")) return true;
  return !user.empty() && IsBelow(mount.Point, "/run/media/" + std::string(user));
}

namespace {

// The name by which a folder of links to devices knows this one.
std::optional<std::string> NameOfDevice(const char* folder, dev_t wanted) {
  const std::unique_ptr<DIR, int (*)(DIR*)> names(opendir(folder), closedir);
  if (!names) return std::nullopt;
  while (const dirent* entry = readdir(names.get())) {
    struct stat device {};
    const char* name = static_cast<const char*>(entry->d_name);
    if (fstatat(dirfd(names.get()), name, &device, 0) == 0 && S_ISBLK(device.st_mode) && device.st_rdev == wanted)
      return name;
  }
  return std::nullopt;
}

// Of the block device that is mounted there; nothing for any other mount.
std::optional<dev_t> DeviceOf(const Mount& mount) {
  struct stat source {};
  if (stat(mount.Source.c_str(), &source) != 0 || !S_ISBLK(source.st_mode)) return std::nullopt;
  return source.st_rdev;
}

std::string SectorsOf(dev_t device) {
  const std::string number = std::to_string(major(device)) + ':' + std::to_string(minor(device));
  const std::string text = ReadSmallFile("/sys/dev/block/" + number + "/size").value_or("");
  return text.substr(0, text.find('\n'));
}

}  // namespace

std::string LabelOfLink(std::string_view name) {
  std::string label;
  for (std::size_t i = 0; i < name.size(); ++i) {
    unsigned value = 0;
    const std::string_view digits = name.substr(std::min(i + 2, name.size()), 2);
    const bool coded = name.substr(i, 2) == "\\x" && digits.size() == 2 &&
                       std::from_chars(digits.data(), digits.data() + 2, value, 16).ptr == digits.data() + 2;
    label += coded ? static_cast<char>(value) : name[i];
    if (coded) i += 3;
  }
  return label;
}

std::string VolumeOfSize(std::uint64_t bytes) {
  constexpr std::uint64_t Thousand = 1000;
  constexpr std::array units = {"MB", "GB", "TB"};
  std::uint64_t size = bytes / (Thousand * Thousand);
  std::size_t unit = 0;
  for (; size >= Thousand && unit + 1 < units.size(); ++unit) size = (size + Thousand / 2) / Thousand;
  return std::to_string(size) + ' ' + units.at(unit) + " Volume";
}

std::string MediumLabel(const Mount& mount) {
  const std::optional<dev_t> device = DeviceOf(mount);
  if (!device) return {};
  if (const std::optional<std::string> label = NameOfDevice(labelsFolder, *device)) return LabelOfLink(*label);
  constexpr std::uint64_t SectorBytes = 512;
  const std::string sectors = SectorsOf(*device);
  return sectors.empty() ? std::string() : VolumeOfSize(std::strtoull(sectors.c_str(), nullptr, 10) * SectorBytes);
}

std::string MediumKey(const Mount& mount) {
  const std::optional<dev_t> device = DeviceOf(mount);
  const std::optional<std::string> identity = device ? NameOfDevice(identitiesFolder, *device) : std::nullopt;
  return identity ? "id:" + *identity : "at:" + mount.Point;
}

std::string MediumIdentity(const Mount& mount) {
  const std::optional<dev_t> device = DeviceOf(mount);
  const std::optional<std::string> identity = device ? NameOfDevice(identitiesFolder, *device) : std::nullopt;
  if (!identity) return {};
  return *identity + '|' + NameOfDevice(labelsFolder, *device).value_or("") + '|' + SectorsOf(*device);
}

}  // namespace pixorra
