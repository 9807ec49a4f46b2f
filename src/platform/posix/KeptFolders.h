// What long folders hold, kept between one reading and the next for as long as the kernel says what changes in them: a
// run of drops into a folder of thousands then reads it once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <dirent.h>
#include <memory>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "platform/posix/EntryKind.h"
#include "platform/posix/UniqueFd.h"

struct inotify_event;

namespace pixorra {

class KeptFolder {
 public:
  // The ordinary files, and links to such, that match the pattern, in the program's spelling; hidden ones not.
  std::vector<std::string> OrdinaryNames(const std::string& pattern);
  // The first of the host names, by NameLess, that differs from this one in case alone, or is the same.
  std::optional<std::string> OtherCase(const std::string& hostName) const;

 private:
  friend class KeptFolders;
  struct Entry {
    std::string Name;  // in the program's spelling
    std::string HostName;
    EntryKind Kind = EntryKind::Other;
    std::uint8_t Matches = 0;  // one bit for each of the patterns
  };
  using Entries = std::vector<Entry>;

  explicit KeptFolder(std::string path) : path_(std::move(path)) {}
  bool Read(DIR& open);
  Entry EntryOf(const std::string& hostName, EntryKind kind) const;
  Entries::iterator PlaceOf(const std::string& name);
  bool IsAtItsPath(struct stat& now) const;
  bool Follow();
  bool LookAgain(int folder, const std::string& hostName);
  std::uint8_t BitOf(const std::string& pattern);

  std::string path_;
  struct stat folder_ {};  // when it was last found to be current
  int watch_ = -1;
  bool changed_ = false;            // since then, by an event, which explains another time of the folder
  std::vector<std::string> heard_;  // host names that events tell of, until they are followed
  Entries entries_;                 // by NameLess of the program's spelling
  std::vector<std::string> patterns_;
};

// Used by one thread. A folder is kept from its second reading on, where it is long and on a disk of this machine whose
// changes all pass through this kernel; where nothing can be watched none is.
class KeptFolders {
 public:
  // Shorter ones are read in no time.
  static constexpr std::size_t Fewest = 200;
  // So many are kept: the folders of the Desktop, the film strip and a few more. The one used longest ago goes first.
  static constexpr std::size_t Most = 12;
  // A folder in which more names have changed between two looks is read again, which takes less time.
  static constexpr std::size_t MostChanges = 64;

  // The folder as it is now; null where it is to be read. Good until the next call.
  KeptFolder* Find(const std::string& hostFolder);
  // The folder has been read, and that many names were found in it.
  void WasRead(const std::string& hostFolder, std::size_t names);

 private:
  using Kept = std::vector<std::unique_ptr<KeptFolder>>;
  Kept::iterator PlaceOf(const std::string& hostFolder);
  void Drop(Kept::iterator place);
  void DropAll();
  KeptFolder* Keep(const std::string& hostFolder);
  void TakeEvents();
  void Take(const inotify_event& event);

  UniqueFd events_;
  Kept kept_;  // the last used one first
  std::vector<std::string> readOnce_;
};

}  // namespace pixorra
