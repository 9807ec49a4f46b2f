// The kernel's list of mounts.
#include "platform/posix/Mounts.h"

#include <algorithm>
#include <cstddef>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace pixorra {

namespace {

constexpr const char* identitiesFolder = "/dev/disk/by-uuid";

std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> fields;
  while (!line.empty()) {
    const std::size_t end = std::min(line.find(' '), line.size());
    if (end > 0) fields.push_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return fields;
}

bool IsOctal(char c) {
  return c >= '0' && c <= '7';
}

// Blanks, tabs, line ends and backslashes stand as a backslash and three octal digits.
std::string Unescaped(std::string_view field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const bool escape = field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) && IsOctal(field[i + 2]) &&
                        IsOctal(field[i + 3]);
    if (!escape) {
      text += field[i];
      continue;
    }
    const int value = (field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0');
    text += static_cast<char>(static_cast<unsigned char>(value));
    i += 3;
  }
  return text;
}

bool IsBelow(std::string_view path, std::string_view folder) {
  return path.size() > folder.size() + 1 && path.starts_with(folder) && path[folder.size()] == '/';
}

}  // namespace

std::vector<Mount> ParseMountInfo(std::string_view text) {
  constexpr std::size_t pointField = 4;
  std::vector<Mount> mounts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::vector<std::string_view> fields = Fields(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    // A varying number of fields ends in a lone dash; the file system and the source follow.
    const auto dash = std::find(fields.begin(), fields.end(), "-");
    if (fields.size() <= pointField || fields.end() - dash < 3 || dash - fields.begin() <= 4) continue;
    Mount mount{Unescaped(fields[pointField]), Unescaped(dash[1]), Unescaped(dash[2])};
    if (!mount.Point.starts_with('/')) continue;
    std::erase_if(mounts, [&mount](const Mount& old) { return old.Point == mount.Point; });
    mounts.push_back(std::move(mount));
  }
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
