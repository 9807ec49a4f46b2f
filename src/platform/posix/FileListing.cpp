// The files of a folder with their lengths.
#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <utility>

#include "platform/posix/FolderListing.h"
#include "platform/posix/GlibPointers.h"
#include "platform/posix/HostNames.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

std::vector<ListedFile> ListByHost(const std::string& folder, const std::string& pattern, bool lengths) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
  if (!open) throw RuntimeError(error::PathNotFound);
  std::vector<ListedFile> files;
  errno = 0;
  for (; const dirent* entry = readdir(open.get()); errno = 0) {
    const char* hostName = static_cast<const char*>(entry->d_name);
    const bool mayBeFile = entry->d_type == DT_REG || entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN;
    if (hostName[0] == '.' || !mayBeFile) continue;
    std::string name = NameFromHost(hostName);
    if (!MatchesPattern(name, pattern)) continue;
    if (!lengths && entry->d_type == DT_REG) {
      files.push_back({std::move(name), std::nullopt});
      continue;
    }
    struct stat looked {};
    const bool seen = fstatat(dirfd(open.get()), hostName, &looked, 0) == 0;
    if (seen ? !S_ISREG(looked.st_mode) : entry->d_type != DT_REG) continue;
    files.push_back({std::move(name), seen ? std::optional<std::int64_t>(looked.st_size) : std::nullopt});
  }
  // A listing that breaks off is not a shorter one.
  if (errno != 0) throw RuntimeError(error::DeviceIO);
  return files;
}

// A thousand photos of a camera by name and look take half a minute, by this a blink.
std::vector<ListedFile> ListByDesktop(const std::string& folder, const std::string& pattern) {
  const GlibObject<GFile> place(g_file_new_for_path(folder.c_str()));
  const GlibObject<GFileEnumerator> entries(g_file_enumerate_children(
      place.get(), "standard::name,standard::type,standard::size", G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
  if (!entries) throw RuntimeError(error::PathNotFound);
  std::vector<ListedFile> files;
  for (;;) {
    GError* failure = nullptr;
    const GlibObject<GFileInfo> entry(g_file_enumerator_next_file(entries.get(), nullptr, &failure));
    if (!entry && failure == nullptr) return files;
    if (!entry) {
      g_error_free(failure);
      throw RuntimeError(error::DeviceIO);
    }
    const char* hostName = g_file_info_get_name(entry.get());
    if (hostName[0] == '.' || g_file_info_get_file_type(entry.get()) != G_FILE_TYPE_REGULAR) continue;
    std::string name = NameFromHost(hostName);
    if (MatchesPattern(name, pattern)) files.push_back({std::move(name), g_file_info_get_size(entry.get())});
  }
}

bool IsOfDesktop(const PathMapping& mapping, const std::string& hostFolder) {
  const std::string& mounts = mapping.ShareMounts();
  return !mounts.empty() && hostFolder.starts_with(mounts + '/');
}

}  // namespace

std::vector<ListedFile> ListFiles(const PathMapping& mapping, const std::string& hostFolder, const std::string& pattern,
                                  bool lengths) {
  std::vector<ListedFile> files =
      IsOfDesktop(mapping, hostFolder) ? ListByDesktop(hostFolder, pattern) : ListByHost(hostFolder, pattern, lengths);
  std::sort(files.begin(), files.end(),
            [](const ListedFile& a, const ListedFile& b) { return NameLess(a.Name, b.Name); });
  return files;
}

}  // namespace pixorra
