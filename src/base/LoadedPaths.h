// Which photos of a folder's list have a place already, so that finding the next one costs the same however many there
// are. It answers as a plain search of all places for each entry would.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/FileListBox.h"

namespace pixorra {

class LoadedPaths {
 public:
  // The path that a place, by its number, now holds; empty for none.
  using PathOf = std::function<const std::string&(int)>;

  void Clear();
  // A place has taken a path. The number must stay good until Clear.
  void Add(const std::string& path, int place);
  // A place has lost its path or been given another: entries passed over may want one again.
  void StartOver() { cursor_ = 0; }
  // The first entry of the list without a place, as a full path; empty where all have one.
  std::string FirstMissing(const FileListBox& list, const PathOf& pathOf);
  // The first `most` such entries, or as many as there are.
  std::vector<std::string> Missing(const FileListBox& list, const PathOf& pathOf, int most);

 private:
  struct Entry {
    std::uint32_t Hash = 0;  // of the path that the place took
    std::int32_t Place = Free;
  };
  static constexpr std::int32_t Free = -1;

  bool Has(const std::string& path, const PathOf& pathOf) const;
  void Put(Entry entry);

  // Looked up by hash, the next free element after a taken one; at least half of it is free. In one block, as the cost
  // of a search is that of the memory it touches.
  std::vector<Entry> table_;
  std::size_t used_ = 0;
  int cursor_ = 0;           // entries of the list ahead of it have places
  unsigned generation_ = 0;  // of the list that the cursor belongs to
};

}  // namespace pixorra
