#include "platform/posix/Mounts.h"

#include <dirent.h>
#include <gio/gunixmounts.h>
#include <memory>
#include <sys/stat.h>
#include <unordered_map>
#include <utility>

namespace pixorra {

namespace {

constexpr const char* identitiesFolder = "/dev/disk/by-uuid";

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
  // The place where a medium will come is not one yet.
  if (mount.FileSystem == "autofs") return false;
  if (mount.Point == "/mnt" || IsBelow(mount.Point, "/mnt") || IsBelow(mount.Point, "/media")) return true;
  return !user.empty() && IsBelow(mount.Point, "/run/media/" + std::string(user));
}

std::string MediumKey(const Mount& mount) {
  std::string place = "at:" + mount.Point;
  struct stat source {};
  if (stat(mount.Source.c_str(), &source) != 0 || !S_ISBLK(source.st_mode)) return place;
  const std::unique_ptr<DIR, int (*)(DIR*)> identities(opendir(identitiesFolder), closedir);
  if (!identities) return place;
  while (const dirent* entry = readdir(identities.get())) {
    struct stat device {};
    const char* name = static_cast<const char*>(entry->d_name);
    if (fstatat(dirfd(identities.get()), name, &device, 0) == 0 && S_ISBLK(device.st_mode) &&
        device.st_rdev == source.st_rdev)
      return std::string("id:") + name;
  }
  return place;
}

}  // namespace pixorra
