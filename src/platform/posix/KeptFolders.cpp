// Deliberate: nothing is trusted but the kernel's own account of a folder. It is complete where every change passes
// through this kernel, so folders of networks, cameras and other programs' file systems are never kept, and neither are
// those of disks that spell a name in several ways. An event that does not fit what is known, one that is lost, and a
// time of the folder that no event explains make an end of it: the folder is read again.
#include "platform/posix/KeptFolders.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <new>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/vfs.h>
#include <utility>

#include "platform/posix/HostNames.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr std::size_t MostReadOnce = 32;
constexpr std::size_t MostPatterns = 8;
constexpr std::uint32_t OfNames = IN_CREATE | IN_MOVED_TO | IN_DELETE | IN_MOVED_FROM;
constexpr std::uint32_t OfFolder = IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;

bool IsTrusted(int folder) {
  constexpr std::array<std::int64_t, 5> trusted = {
      0xEF53,      // ext2, ext3, ext4
      0x58465342,  // XFS
      0x9123683E,  // Btrfs
      0xF2F52010,  // F2FS
      0x01021994,  // memory
  };
  struct statfs disk {};
  return fstatfs(folder, &disk) == 0 && std::ranges::find(trusted, std::int64_t{disk.f_type}) != trusted.end();
}

bool SaysThatItIgnoresCase(int folder) {
  int flags = 0;
  return ioctl(folder, FS_IOC_GETFLAGS, &flags) == 0 && (flags & FS_CASEFOLD_FL) != 0;
}

bool IsAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool HasTwinOfOtherCase(int folder, const std::string& hostName) {
  std::string other = hostName;
  for (char& c : other)
    if (IsAsciiLetter(c)) c = static_cast<char>(c ^ ('a' ^ 'A'));
  struct stat entry {};
  struct stat twin {};
  return fstatat(folder, hostName.c_str(), &entry, AT_SYMLINK_NOFOLLOW) == 0 &&
         fstatat(folder, other.c_str(), &twin, AT_SYMLINK_NOFOLLOW) == 0 && entry.st_dev == twin.st_dev &&
         entry.st_ino == twin.st_ino;
}

bool LeadsToFile(const std::string& path) {
  struct stat looked {};
  return stat(path.c_str(), &looked) == 0 && S_ISREG(looked.st_mode);
}

bool IsSameMoment(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool IsSameFolder(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool HasSameTimes(const struct stat& a, const struct stat& b) {
  return IsSameMoment(a.st_mtim, b.st_mtim) && IsSameMoment(a.st_ctim, b.st_ctim);
}

}  // namespace

// --- one folder ------------------------------------------------------------------------------------------------------

// False where it cannot be read to its end, or ignores case.
bool KeptFolder::Read(DIR& open) {
  const int folder = dirfd(&open);
  if (fstat(folder, &folder_) != 0 || SaysThatItIgnoresCase(folder)) return false;
  errno = 0;
  for (; const dirent* entry = readdir(&open); errno = 0) {
    const std::string hostName = static_cast<const char*>(entry->d_name);
    if (hostName != "." && hostName != "..") entries_.push_back(EntryOf(hostName, KindOf(folder, *entry)));
  }
  if (errno != 0) return false;
  std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return NameLess(a.Name, b.Name); });
  // Where the whole disk ignores case the folder does not say so.
  const auto lettered = std::ranges::find_if(
      entries_, [](const Entry& entry) { return std::ranges::any_of(entry.HostName, IsAsciiLetter); });
  return lettered == entries_.end() || !HasTwinOfOtherCase(folder, lettered->HostName);
}

KeptFolder::Entry KeptFolder::EntryOf(const std::string& hostName, EntryKind kind) const {
  Entry entry{NameFromHost(hostName), hostName, kind, 0};
  for (std::size_t i = 0; i < patterns_.size(); ++i)
    if (MatchesPattern(entry.Name, patterns_[i])) entry.Matches |= static_cast<std::uint8_t>(1U << i);
  return entry;
}

KeptFolder::Entries::iterator KeptFolder::PlaceOf(const std::string& name) {
  return std::lower_bound(entries_.begin(), entries_.end(), name,
                          [](const Entry& entry, const std::string& wanted) { return NameLess(entry.Name, wanted); });
}

bool KeptFolder::IsAtItsPath(struct stat& now) const {
  return stat(path_.c_str(), &now) == 0 && IsSameFolder(now, folder_);
}

// Takes in what events have told of. False where the folder is to be read again, also as its path leads to another one
// by now, whose names are not those of the events.
bool KeptFolder::Follow() {
  if (heard_.empty()) return true;
  std::vector<std::string> names = std::exchange(heard_, {});
  const UniqueFd folder(open(path_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  struct stat now {};
  if (!folder || fstat(folder.Get(), &now) != 0 || !IsSameFolder(now, folder_)) return false;
  changed_ = true;
  std::ranges::sort(names);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return std::ranges::all_of(names, [&](const std::string& name) { return LookAgain(folder.Get(), name); });
}

// After an event, whatever that was: what the disk now has by that name counts. False where that does not fit what was
// known before.
bool KeptFolder::LookAgain(int folder, const std::string& hostName) {
  struct stat looked {};
  const int failure = fstatat(folder, hostName.c_str(), &looked, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
  if (failure != 0 && failure != ENOENT) return false;
  Entry entry = EntryOf(hostName, KindOf(looked.st_mode));
  const auto place = PlaceOf(entry.Name);
  const bool known = place != entries_.end() && place->Name == entry.Name;
  if (failure == 0 && known) *place = std::move(entry);
  if (failure == 0 && !known) entries_.insert(place, std::move(entry));
  if (failure == 0) return true;
  if (known) entries_.erase(place);
  // A disk that ignores case tells of a name as it was asked for.
  return known || !OtherCase(hostName);
}

std::uint8_t KeptFolder::BitOf(const std::string& pattern) {
  const auto known = std::ranges::find(patterns_, pattern);
  if (known != patterns_.end()) return static_cast<std::uint8_t>(1U << (known - patterns_.begin()));
  if (patterns_.size() == MostPatterns) {
    patterns_.clear();
    for (Entry& entry : entries_) entry.Matches = 0;
  }
  const auto bit = static_cast<std::uint8_t>(1U << patterns_.size());
  patterns_.push_back(pattern);
  for (Entry& entry : entries_)
    if (MatchesPattern(entry.Name, pattern)) entry.Matches |= bit;
  return bit;
}

// What a link leads to lies elsewhere, and is looked at each time.
std::vector<std::string> KeptFolder::OrdinaryNames(const std::string& pattern) {
  const std::uint8_t bit = BitOf(pattern);
  std::vector<std::string> names;
  names.reserve(entries_.size());
  for (const Entry& entry : entries_) {
    if ((entry.Matches & bit) == 0 || entry.HostName[0] == '.') continue;
    const bool listed = entry.Kind == EntryKind::Ordinary ||
                        (entry.Kind == EntryKind::Link && LeadsToFile(path_ + '/' + entry.HostName));
    if (listed) names.push_back(entry.Name);
  }
  return names;
}

std::optional<std::string> KeptFolder::OtherCase(const std::string& hostName) const {
  const std::string wanted = NameFromHost(hostName);
  auto place =
      std::lower_bound(entries_.begin(), entries_.end(), wanted, [](const Entry& entry, const std::string& name) {
        return NameLess(entry.Name, name) && !EqualIgnoringCase(entry.Name, name);
      });
  std::optional<std::string> best;
  for (; place != entries_.end() && EqualIgnoringCase(place->Name, wanted); ++place)
    if (!best || NameLess(place->HostName, *best)) best = place->HostName;
  return best;
}

// --- all of them -----------------------------------------------------------------------------------------------------

KeptFolders::Kept::iterator KeptFolders::PlaceOf(const std::string& hostFolder) {
  return std::ranges::find_if(kept_, [&](const auto& kept) { return kept->path_ == hostFolder; });
}

void KeptFolders::Drop(Kept::iterator place) {
  inotify_rm_watch(events_.Get(), (*place)->watch_);
  kept_.erase(place);
}

void KeptFolders::DropAll() {
  while (!kept_.empty()) Drop(kept_.begin());
}

KeptFolder* KeptFolders::Find(const std::string& hostFolder) {
  auto place = PlaceOf(hostFolder);
  if (place == kept_.end()) return std::erase(readOnce_, hostFolder) != 0 ? Keep(hostFolder) : nullptr;
  // Ahead of the events: what has changed until now is among them.
  struct stat now {};
  const bool isThere =
      (*place)->IsAtItsPath(now) && faccessat(AT_FDCWD, hostFolder.c_str(), R_OK | X_OK, AT_EACCESS) == 0;
  TakeEvents();
  place = PlaceOf(hostFolder);
  if (place == kept_.end()) return nullptr;
  KeptFolder& folder = **place;
  const bool explained = folder.changed_ || HasSameTimes(now, folder.folder_);
  // Some of the events may be later than the look, and explain no change after this.
  if (!isThere || !explained || (folder.changed_ && !folder.IsAtItsPath(now))) {
    Drop(place);
    return nullptr;
  }
  folder.changed_ = false;
  folder.folder_ = now;
  std::rotate(kept_.begin(), place, place + 1);
  return kept_.front().get();
}

void KeptFolders::WasRead(const std::string& hostFolder, std::size_t names) {
  if (names < Fewest || std::ranges::find(readOnce_, hostFolder) != readOnce_.end()) return;
  if (readOnce_.size() == MostReadOnce) readOnce_.erase(readOnce_.begin());
  readOnce_.push_back(hostFolder);
}

// It is watched before it is read; what changes meanwhile is known to both.
KeptFolder* KeptFolders::Keep(const std::string& hostFolder) {
  if (!events_) events_ = UniqueFd(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  const std::unique_ptr<DIR, int (*)(DIR*)> open(events_ ? opendir(hostFolder.c_str()) : nullptr, closedir);
  if (!open || !IsTrusted(dirfd(open.get()))) return nullptr;
  kept_.reserve(Most + 1);
  std::unique_ptr<KeptFolder> folder(new KeptFolder(hostFolder));
  // By its path another folder might be watched than is read. One that is kept by another path fails here.
  const std::string opened = "/proc/self/fd/" + std::to_string(dirfd(open.get()));
  folder->watch_ = inotify_add_watch(events_.Get(), opened.c_str(), OfNames | OfFolder | IN_ONLYDIR | IN_MASK_CREATE);
  if (folder->watch_ < 0) return nullptr;
  kept_.insert(kept_.begin(), std::move(folder));
  if (kept_.size() > Most) Drop(kept_.end() - 1);
  // Nor is one kept that there is no memory for.
  if (!OrElse(false, [&] { return kept_.front()->Read(*open); })) {
    Drop(kept_.begin());
    return nullptr;
  }
  TakeEvents();
  const auto place = PlaceOf(hostFolder);
  return place != kept_.end() ? place->get() : nullptr;
}

void KeptFolders::TakeEvents() {
  alignas(inotify_event) std::array<char, 16 * 1024> buffer{};
  // Without memory for what they tell of, all folders are to be read again.
  try {
    for (;;) {
      const ssize_t length = read(events_.Get(), buffer.data(), buffer.size());
      if (length <= 0) break;
      for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
        const auto& event = *reinterpret_cast<const inotify_event*>(buffer.data() + at);
        at += sizeof(inotify_event) + event.len;
        Take(event);
      }
    }
    for (std::size_t i = kept_.size(); i-- > 0;)
      if (!kept_[i]->Follow()) Drop(kept_.begin() + static_cast<std::ptrdiff_t>(i));
  } catch (const std::bad_alloc&) {
    DropAll();
  }
}

void KeptFolders::Take(const inotify_event& event) {
  // The kernel has lost events.
  if ((event.mask & IN_Q_OVERFLOW) != 0) return DropAll();
  const auto place = std::ranges::find_if(kept_, [&](const auto& kept) { return kept->watch_ == event.wd; });
  if (place == kept_.end()) return;
  if (event.len == 0) return Drop(place);  // of the folder itself
  if ((event.mask & OfNames) == 0) return;
  if ((*place)->heard_.size() == MostChanges) return Drop(place);
  (*place)->heard_.emplace_back(static_cast<const char*>(event.name));
}

}  // namespace pixorra
