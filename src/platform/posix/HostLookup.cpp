// Case rules of look-ups.
#include "platform/posix/HostLookup.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/posix/HostNames.h"
#include "platform/posix/KeptFolders.h"
#include "platform/posix/ShareMounts.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

int Look(const std::string& path, struct stat& entry) {
  return lstat(path.c_str(), &entry) == 0 ? 0 : errno;
}

bool IsThere(const std::string& path) {
  struct stat entry {};
  return Look(path, entry) == 0;
}

// The first of a folder's names, by NameLess, that `accepts` takes.
template <typename Accepts>
std::optional<std::string> FirstName(const std::string& folder, Accepts&& accepts) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
  std::optional<std::string> best;
  if (!open) return best;
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name = static_cast<const char*>(entry->d_name);
    if (name == "." || name == ".." || !accepts(name, entry->d_ino)) continue;
    if (!best || NameLess(name, *best)) best = std::string(name);
  }
  return best;
}

// Host names that may differ in case alone. Most names of a folder do not even begin alike, and are done with here.
bool MayBeAlike(std::string_view a, std::string_view b) {
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    if (!isAscii(a[i]) || !isAscii(b[i])) return true;
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return a.size() == b.size() || !isAscii(a.size() > b.size() ? a[b.size()] : b[a.size()]);
}

std::optional<std::string> OtherCase(const std::string& folder, const std::string& wanted, KeptFolders* kept) {
  if (const KeptFolder* known = kept != nullptr ? kept->Find(folder) : nullptr) return known->OtherCase(wanted);
  const std::string spelled = NameFromHost(wanted);
  return FirstName(folder, [&](std::string_view name, ino_t) {
    return MayBeAlike(name, wanted) && EqualIgnoringCase(NameFromHost(name), spelled);
  });
}

// Mounts of one share differ in more than case: fields may be added, and be in another order.
std::optional<std::string> OtherMount(const std::string& folder, const std::string& wanted) {
  const std::optional<Share> share = ShareOfMount(wanted);
  if (!share) return std::nullopt;
  return FirstName(folder, [&](std::string_view name, ino_t) {
    const std::optional<Share> mounted = ShareOfMount(name);
    return mounted && EqualIgnoringCase(mounted->Server, share->Server) &&
           EqualIgnoringCase(mounted->Name, share->Name);
  });
}

// One name at a time from name `first` on; those before it are there.
Located Walk(HostPath path, std::size_t first, KeptFolders* kept) {
  Located located;
  located.Path = std::move(path);
  HostPath& found = located.Path;
  for (std::size_t i = first; i < found.Names.size(); ++i) {
    const std::string folder = found.Text(i);
    located.Failure = Look(found.Text(i + 1), located.Entry);
    if (located.Failure == ENOENT) {
      const std::optional<std::string> name =
          i < found.RootNames ? OtherMount(folder, found.Names[i])
                              : OtherCase(folder, found.Names[i], i + 1 == found.Names.size() ? kept : nullptr);
      if (name) {
        found.Names[i] = *name;
        located.Failure = Look(found.Text(i + 1), located.Entry);
      }
    }
    if (located.Failure != 0) {
      located.Found = i;
      return located;
    }
  }
  located.Found = found.Names.size();
  return located;
}

// On a disk that ignores case a name is there in the other case too, as the same entry.
std::string NameInDiskCase(const std::string& folder, const std::string& name) {
  const std::string upper = UCase(name);
  const std::string other = upper == name ? LCase(name) : upper;
  struct stat entry {};
  struct stat twin {};
  if (other == name || Look(folder + '/' + name, entry) != 0 || Look(folder + '/' + other, twin) != 0) return name;
  if (entry.st_dev != twin.st_dev || entry.st_ino != twin.st_ino) return name;
  const std::string spelled = NameFromHost(name);
  const std::optional<std::string> onDisk = FirstName(folder, [&](std::string_view candidate, ino_t inode) {
    return inode == entry.st_ino && EqualIgnoringCase(NameFromHost(candidate), spelled);
  });
  return onDisk.value_or(name);
}

}  // namespace

Located Locate(HostPath path, KeptFolders* kept) {
  Located located;
  located.Failure = Look(path.Text(), located.Entry);
  if (located.Failure == 0 || path.Names.empty()) {
    located.Found = path.Names.size();
    located.Path = std::move(path);
    return located;
  }
  // Mostly it is only the last name that is not there.
  const std::size_t last = path.Names.size() - 1;
  const bool folderIsThere = last > 0 && IsThere(path.Text(last));
  return Walk(std::move(path), folderIsThere ? last : 0, kept);
}

Located LocateExactly(HostPath path) {
  const auto look = [](HostPath asked) {
    Located located;
    located.Failure = Look(asked.Text(), located.Entry);
    located.Path = std::move(asked);
    if (located.Exists()) located.Found = located.Path.Names.size();
    return located;
  };
  const bool isOnShare = path.RootNames > 0;
  Located located = look(std::move(path));
  if (located.Exists() || !isOnShare) return located;
  HostPath share = located.Path;
  share.Names.resize(share.RootNames);
  const Located mount = Locate(std::move(share));
  if (!mount.Exists()) return located;
  std::copy(mount.Path.Names.begin(), mount.Path.Names.end(), located.Path.Names.begin());
  return look(std::move(located.Path));
}

Located LocateInDiskCase(HostPath path) {
  Located located = Locate(std::move(path));
  for (std::size_t i = located.Path.RootNames; i < located.Found; ++i)
    located.Path.Names[i] = NameInDiskCase(located.Path.Text(i), located.Path.Names[i]);
  return located;
}

}  // namespace pixorra
