// Which photos of a folder's list have a place already, so that finding the next one costs the same however many there
// are. It answers as a plain search of all places for each entry would.
#pragma once

#include <functional>
#include <string>
#include <unordered_map>
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
  bool Has(const std::string& path, const PathOf& pathOf) const;

  std::unordered_multimap<std::size_t, int> places_;  // by the path's hash
  int cursor_ = 0;                                    // entries ahead of it have places
  unsigned generation_ = 0;                           // of the list that the cursor belongs to
};

}  // namespace pixorra
