// What thumbnail cache files hold, kept in memory: an entry is found without reading the records ahead of it. It
// answers as a scan of the file from its start would.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/QuickThumbsRecord.h"
#include "platform/services/Files.h"

namespace pixorra {

class QuickThumbsIndex {
 public:
  // This many files are remembered, those last used.
  static constexpr std::size_t MostFiles = 12;

  // The number of the first record with the key, 0 where there is none. `file` is the open file at `path`; one that has
  // been changed by another hand is read anew. Raises what reading does, and Overflow for a file of 2 GiB or more.
  std::int64_t Find(const std::string& path, File& file, const quickthumbs::EntryKey& key);
  // To be called after each change that the program itself makes: a record written at the end ...
  void Added(const std::string& path, File& file, const quickthumbs::EntryKey& key, std::int64_t record);
  // ... and one whose mark has been changed.
  void Marked(const std::string& path, File& file);
  // The file is not what is remembered any more.
  void Forget(const std::string& path);

  // The number of the record that a new entry is written to, in a file of so many bytes. Deliberate: one empty record
  // stays between it and the last one, as a scan sees the end only after a read beyond it has failed; only an empty
  // file begins with its first.
  static std::int64_t NextRecord(std::int64_t fileLength);

 private:
  struct Remembered {
    std::string Path;
    FileStamp Stamp;
    std::unordered_map<std::string, std::int64_t> Records;
  };

  Remembered& Current(const std::string& path, File& file);
  void TakeStamp(const std::string& path, File& file);

  std::vector<Remembered> files_;  // the one last used at the back
};

}  // namespace pixorra
